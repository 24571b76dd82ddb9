// If without Then is compile error 86; the statement compiles as if Then
// stood there.
Sub Check(n As Integer)
  If n > 1           // expect error 4 86
    n = 1
  End If
End Sub
