// An If or Select Case closed by another block's End is reported at the
// line that opened it.
Sub Work(n As Integer)
  If n > 0 Then      // expect error 4 95
    n = 0
  End Select
  Select Case n      // expect error 7 96
  Case 1
    n = 2
  End If
End Sub
