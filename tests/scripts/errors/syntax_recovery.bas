// A syntax error inside a method is reported once at its line; the parse
// resumes at the next statement, so a later fault is reported too.
Sub Work()
  Dim n As Integer
  n = ) 3            // expect error 5 1
  n = 4
  n = "text"         // expect error 7 2
End Sub
