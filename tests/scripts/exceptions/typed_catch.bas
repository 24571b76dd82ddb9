// Typed handlers: the first whose class the exception belongs to takes it,
// one that does not match passes it on to the next, and a handler without
// a type takes everything.
Class ParseError
  Inherits RuntimeException
End Class
Class LimitError
  Inherits RuntimeException
End Class
Class DeepLimitError
  Inherits LimitError
End Class

Sub Fail(kind As Integer)
  Select Case kind
  Case 1
    Raise New ParseError
  Case 2
    Raise New LimitError
  Case 3
    Raise New DeepLimitError
  Case 4
    Dim a(1) As Integer
    a(kind) = 0
  End Select
End Sub

Function Classify(kind As Integer) As String
  Try
    Fail(kind)
    Return "nothing"
  Catch e As ParseError
    Return "parse"
  Catch e As LimitError
    If e IsA DeepLimitError Then Return "deep limit"
    Return "limit"
  Catch e
    Return "other " + e.Message
  End Try
End Function

Dim k As Integer
For k = 0 To 4
  Print Classify(k)
Next
// expect: nothing
// expect: parse
// expect: limit
// expect: deep limit
// expect: other Index 4 is outside the bounds 0 to 1

// A handler that does not match passes the exception out of the function
// to an outer Try, here five frames up.
Function Level(n As Integer) As Integer
  Dim label As String = "level " + Str(n)
  If n = 5 Then
    Try
      Raise New LimitError
    Catch e As ParseError
      Print "wrong handler"
    End Try
  End If
  Return Level(n + 1) + 1
End Function
Try
  Print Str(Level(1))
Catch e As ParseError
  Print "wrong handler"
Catch e As LimitError
  Print "caught five frames down"
End Try
// expect: caught five frames down

// Nested Try in one function: the inner one does not match, the outer does;
// a caught exception raised again goes to the next handler outward.
Try
  Try
    Raise New ParseError
  Catch e As LimitError
    Print "wrong handler"
  Finally
    Print "inner finally"
  End Try
Catch e As ParseError
  Print "outer caught"
  Try
    Try
      Raise e
    Catch again As ParseError
      Print "raised again"
      Raise again
    End Try
  Catch last
    If last Is e Then Print "same object"
  End Try
End Try
// expect: inner finally
// expect: outer caught
// expect: raised again
// expect: same object
