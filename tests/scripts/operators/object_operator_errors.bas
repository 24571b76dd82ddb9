// An operator on objects needs a method that takes the operands.
Class Point
  Dim x As Integer
  Function Operator_Add(other As Point) As Point
    Return other
  End Function
End Class
Dim p As New Point
Dim q As New Point
Dim r As Point = p + q
r = p - q
r = p + "text"
If Not p Then Print "never"
r = -p
r = p And q
// expect error 11 12
// expect error 12 12
// expect error 13 12
// expect error 14 12
// expect error 15 12
