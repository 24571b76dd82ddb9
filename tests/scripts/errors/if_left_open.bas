// An If the text ends in is reported at its own line, not past the end.
Dim n As Integer = 1
If n > 0 Then
  Print "positive"
n = 2
// expect error 3 1
