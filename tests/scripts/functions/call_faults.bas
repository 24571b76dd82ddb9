// Faults of calls: too many or too few arguments, a constant for ByRef,
// an argument of the wrong type, a call of nothing.
Sub Two(a As Integer, b As Integer)
End Sub
Sub Change(ByRef x As Integer)
End Sub
Function Twice(d As Double) As Double
  Return d * 2
End Function
Two(1, 2, 3)             // expect error 10 6
Two(1)                   // expect error 11 7
Change(5)                // expect error 12 21
Dim s As String = Twice("x")   // expect error 13 9
Dim w As Double
w = Nothing(1)           // expect error 15 11
