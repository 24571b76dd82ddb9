// An operator on objects needs a method that takes the operands, and
// only one that fits best.
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
Class Reading
  Function Operator_Add(x As Double) As Integer
    Return 1
  End Function
  Function Operator_Add(x As Single) As Integer
    Return 2
  End Function
End Class
Dim meter As New Reading
Dim k As Integer = meter + 3
// expect error 12 12
// expect error 13 12
// expect error 14 12
// expect error 15 12
// expect error 16 12
// expect error 26 24
