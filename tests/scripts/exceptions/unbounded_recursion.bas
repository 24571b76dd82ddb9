// Recursion without an end meets the stack limit: the overflow finds no
// handler, the run ends with a runtime error, and nothing after it runs.
// The Finally on the way out still runs.
Function Down(n As Integer) As Integer
  Return Down(n + 1) + 1
End Function
Print "before"
Try
  Dim k As Integer = Down(1)
Finally
  Print "finally on the way out"
End Try
Print "not reached"
// expect: before
// expect: finally on the way out
// expect runtime error: StackOverflowException
