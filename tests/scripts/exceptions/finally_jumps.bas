// Finally runs however the protected code is left: on Return, and on Exit
// or Continue to a loop outside the Try (at its end and on an exception:
// finally_normal_exit.bas, finally_while_passing.bas); jumps that stay
// inside the Try run nothing extra.
Class Oops
  Inherits RuntimeException
End Class

Function Early(n As Integer) As String
  Try
    If n > 0 Then Return "returned " + Str(n)
    Print "not returned"
  Finally
    Print "finally " + Str(n)
  End Try
  Return "end"
End Function
Print Early(1)
Print Early(0)
// expect: finally 1
// expect: returned 1
// expect: not returned
// expect: finally 0
// expect: end

// A Return through two Trys runs both Finally blocks, inner first; one
// from a Catch runs the Finally of its own Try.
Sub Nested(fail As Boolean)
  Try
    Try
      If fail Then Raise New Oops
      Return
    Catch e As Oops
      Print "caught, returning"
      Return
    Finally
      Print "inner finally"
    End Try
    Print "not reached"
  Finally
    Print "outer finally"
  End Try
End Sub
Nested(False)
Nested(True)
// expect: inner finally
// expect: outer finally
// expect: caught, returning
// expect: inner finally
// expect: outer finally

Dim i As Integer
For i = 1 To 4
  Try
    If i = 2 Then Continue
    If i = 3 Then Exit For
    Print "pass " + Str(i)
  Finally
    Print "finally " + Str(i)
  End Try
Next
Print "after loop at " + Str(i)
// expect: pass 1
// expect: finally 1
// expect: finally 2
// expect: finally 3
// expect: after loop at 3

// A loop inside the Try is left without running the Finally.
Try
  Dim j As Integer
  For j = 1 To 10
    If j = 2 Then Exit For
  Next
  Print "inner loop left at " + Str(j)
Finally
  Print "finally once"
End Try
// expect: inner loop left at 2
// expect: finally once

// A Return in a Finally leaves at once.
Function FromFinally() As Integer
  Try
    Return 1
  Finally
    Print "finally returns"
    Return 2
  End Try
End Function
Print Str(FromFinally())
// expect: finally returns
// expect: 2
