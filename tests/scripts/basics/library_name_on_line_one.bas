Const Print = 0
// The first line declares a name that the runtime library declares too:
// the library's declarations stand on no line of the script, so the
// constant is the script's own.
Dim own As Integer = Print + 1
Print "still runs " + Str(own)          // expect: still runs 1
