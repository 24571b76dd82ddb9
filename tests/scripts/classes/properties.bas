// Properties: stored fields with initialisers, computed properties with
// Get and Set, shared properties (arrays too) and shared methods, reached
// through an object, through the class's name and from inside.
Class Thermo
  Dim mCelsius As Double = 20
  Shared Count As Integer
  Shared Label As String = "thermo"
  Shared Sizes(3) As Integer
  Property Fahrenheit As Double
    Get
      Return mCelsius * 9 / 5 + 32
    End Get
    Set
      mCelsius = (value - 32) * 5 / 9
    End Set
  End Property
  Shared Property Made As String
    Get
      Return Label + " x" + Str(Count)
    End Get
  End Property
  Sub Constructor()
    Count = Count + 1
  End Sub
  Shared Function Twice(n As Integer) As Integer
    Return n * 2
  End Function
End Class
Dim t As New Thermo
Print Str(t.Fahrenheit)
t.Fahrenheit = 212
Print Str(t.mCelsius)
Dim u As New Thermo
Print Thermo.Made
Print Str(Thermo.Twice(21))
Thermo.Label = "th"
Print Thermo.Made
Thermo.Sizes(2) = 5
Print Str(UBound(Thermo.Sizes)) + " " + Str(Thermo.Sizes(2))
Print Str(t.Count)
// expect: 68
// expect: 100
// expect: thermo x2
// expect: 42
// expect: th x2
// expect: 3 5
// expect: 2
