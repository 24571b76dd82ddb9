// And, Or, Xor (which is Or on objects), Not and unary minus on objects
// through their Operator_ methods. Both operands are always evaluated:
// there is no short circuit for objects.
Class Flags
  Dim bits As Integer
  Sub Constructor(value As Integer)
    bits = value
  End Sub
  Function Operator_And(other As Flags) As Flags
    Return New Flags(bits And other.bits)
  End Function
  Function Operator_AndRight(mask As Integer) As Flags
    Return New Flags(mask And bits)
  End Function
  Function Operator_Or(other As Flags) As Flags
    Return New Flags(bits Or other.bits)
  End Function
  Function Operator_OrRight(mask As Integer) As Flags
    Return New Flags(mask Or bits)
  End Function
  Function Operator_Not() As Boolean
    Return bits = 0
  End Function
End Class

Function Noisy(value As Integer) As Flags
  Print "evaluated " + Str(value)
  Return New Flags(value)
End Function

Dim r As Flags = Noisy(12) And Noisy(10)
Print Str(r.bits)
r = Noisy(0) Or Noisy(5)
Print Str(r.bits)
r = New Flags(12) Xor New Flags(3)
Print Str(r.bits)
r = 6 And New Flags(3)
Print Str(r.bits)
r = 8 Or New Flags(1)
Print Str(r.bits)
If Not New Flags(0) Then Print "no bits"
If Not (New Flags(0) Or New Flags(2)) Then Print "wrong" Else Print "some bits"
// expect: evaluated 12
// expect: evaluated 10
// expect: 8
// expect: evaluated 0
// expect: evaluated 5
// expect: 5
// expect: 15
// expect: 2
// expect: 9
// expect: no bits
// expect: some bits
