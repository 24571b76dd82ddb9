// Compile errors of class declarations and their use: an inheritance loop
// (at the class seen second), arguments no constructor takes, protected
// and private members out of reach, a private constructor, a computed
// property without Set assigned to, a second Inherits.
Class B
  Inherits A
End Class
Class A
  Inherits B
End Class
Class Plain
  Dim v As Integer
End Class
Dim p As New Plain(1)
Class Base
  Protected Sub Secret()
    Print "secret"
  End Sub
  Private Sub Hidden()
  End Sub
End Class
Class Derived
  Inherits Base
  Sub Reveal()
    Secret
    Me.Secret
  End Sub
End Class
Class Stranger
  Sub Peek(b As Base)
    b.Secret
  End Sub
End Class
Class Locked
  Private Sub Constructor()
  End Sub
End Class
Dim l As New Locked
Dim base1 As New Base
base1.Secret
Class Temperature
  Property Celsius As Double
    Get
      Return 21.5
    End Get
  End Property
End Class
Dim t As New Temperature
t.Celsius = 3
Class Twice
  Inherits Plain
  Inherits Base
End Class
// expect error 8 69
// expect error 14 9
// expect error 31 11
// expect error 38 109
// expect error 40 11
// expect error 49 70
// expect error 52 25
