// A Finally runs while an exception passes through it, and the exception
// goes on to the next handler outward, in the same function and beyond.
Function Down(n As Integer) As Integer
  Return Down(n + 1) + 1
End Function
Sub Inner()
  Try
    Dim k As Integer = Down(1)
  Finally
    Print "inner finally"
  End Try
  Print "not reached 1"
End Sub
Sub Outer()
  Try
    Inner()
    Print "not reached 2"
  Finally
    Print "outer finally"
  End Try
  Print "not reached 3"
End Sub
Try
  Outer()
Catch
  Print "caught"
End Try
Print "went on"
// expect: inner finally
// expect: outer finally
// expect: caught
// expect: went on
