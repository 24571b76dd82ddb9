// A stack overflow is an exception like any other: a Catch in a caller
// takes it, every frame on the way releases its locals, and the run goes
// on. It can happen again and be caught again.
Function Down(n As Integer) As Integer
  Dim s As String = "frame"
  Return Down(n + 1) + 1
End Function
Sub Guarded(tag As String)
  Try
    Dim k As Integer = Down(1)
    Print "not reached"
  Catch
    Print "caught " + tag
  End Try
  Print "after " + tag
End Sub
Guarded("one")
Guarded("two")
Try
  Dim j As Integer = Down(1)
Catch err
  Print "caught at the top"
End Try
Print "end"
// expect: caught one
// expect: after one
// expect: caught two
// expect: after two
// expect: caught at the top
// expect: end
