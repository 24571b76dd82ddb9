// Each top-level line with a syntax error is reported, and the lines between
// them are still read: one run shows every mistake.
Dim a As Integer = = 1
Dim b As Integer
b = (2
Print "x" +
Print Str(c)
// expect error 3 1
// expect error 5 1
// expect error 6 1
// expect error 7 11
