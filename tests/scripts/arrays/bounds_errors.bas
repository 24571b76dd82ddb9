// Reading past the end raises OutOfBoundsException, which a script can
// catch; uncaught, it ends the run.
Dim a(2) As Integer
Try
  a(3) = 1
Catch
  Print "caught write"
End Try
Try
  Print Str(a(-1))
Catch
  Print "caught read"
End Try
Dim empty() As String
Try
  Print empty.Pop
Catch
  Print "caught pop"
End Try
Print Str(a(5))
Print "not reached"
// expect: caught write
// expect: caught read
// expect: caught pop
// expect runtime error: OutOfBoundsException
