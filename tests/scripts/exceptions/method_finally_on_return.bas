// A method's own Finally runs however the method ends: at its end, on a
// Return or Exit anywhere in its body, after its Exception handler, and
// when an exception passes. A Return inside the Finally leaves at once.
Function Pick(n As Integer) As Integer
  If n > 0 Then Return 1
  Return 2
Finally
  Print "finally Pick " + Str(n)
End Function

Sub Walk(n As Integer)
  For i As Integer = 1 To 3
    If i = n Then Exit Sub
    Print "step " + Str(i)
  Next
Finally
  Print "finally Walk"
End Sub

Function Guarded(n As Integer) As Integer
  If n = 0 Then Raise New RuntimeException
  Return 10 \ n
Exception e As RuntimeException
  Print "handled"
  Return -1
Finally
  Print "finally Guarded"
End Function

Function Override(n As Integer) As Integer
  Return n
Finally
  If n > 5 Then Return 5
  Print "kept " + Str(n)
End Function

Sub Passing()
  Raise New RuntimeException
Finally
  Print "finally Passing"
End Sub

Print Str(Pick(1))
Print Str(Pick(0))
Walk(2)
Print Str(Guarded(2))
Print Str(Guarded(0))
Print Str(Override(3))
Print Str(Override(9))
Try
  Passing()
Catch
  Print "caught outside"
End Try
// expect: finally Pick 1
// expect: 1
// expect: finally Pick 0
// expect: 2
// expect: step 1
// expect: finally Walk
// expect: finally Guarded
// expect: 5
// expect: handled
// expect: finally Guarded
// expect: -1
// expect: kept 3
// expect: 3
// expect: 5
// expect: finally Passing
// expect: caught outside
