// The raiser scans a function's code for its handlers. Constants whose
// bytes spell the end of a function (50013 is 5D C3, `pop ebp; ret`;
// 50121 is C9 C3, `leave; ret`) or a handler's marker (1041) stand between
// the raise and the Catch: the Catch of the raising function still takes
// the exception, and code after the raise does not run.
Sub Risky(which As Integer)
  Try
    If which > 0 Then Raise New RuntimeException
    Dim a As Integer = 50013
    Dim b As Integer = 50121
    Dim c As Integer = 1041
    Print Str(a + b + c)
  Catch e As RuntimeException
    Print "caught inside " + Str(which)
  End Try
End Sub

Function Deep(n As Integer) As Integer
  Dim a As Integer = 50013
  Dim b As Integer = 50121
  Return Deep(n + 1) + a + b
End Function

Try
  Risky(0)
  Risky(1)
Catch
  Print "caught outside"
End Try
Try
  Print Str(Deep(0))
Catch e As StackOverflowException
  Print "overflow caught"
End Try
// expect: 101175
// expect: caught inside 1
// expect: overflow caught
