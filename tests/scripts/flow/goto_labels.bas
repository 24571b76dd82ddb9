// GoTo jumps forwards and backwards to labels that stand on their own line.
Dim n As Integer
again:
n = n + 1
If n < 3 Then GoTo again
Print Str(n)            // expect: 3
GoTo skip
Print "skipped"
skip:
Print "landed"          // expect: landed
Sub Counter()
  Dim k As Integer
top:
  k = k + 1
  If k < 5 Then GoTo top
  Print Str(k)
End Sub
Counter()               // expect: 5
