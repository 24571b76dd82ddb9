// Past the end of standard input, Input gives the empty string; a loop can
// read until then.
// stdin: first
// stdin: second
Dim line As String = Input("")
Dim count As Integer
While line <> ""
  count = count + 1
  Print Str(count) + ": " + line
  line = Input("")
Wend
Print "lines: " + Str(count)
// expect: 1: first
// expect: 2: second
// expect: lines: 2
