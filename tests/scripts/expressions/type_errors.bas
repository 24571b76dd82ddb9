// Type faults in expressions: each is reported once, at its own line, and
// the compilation goes on to the next one.
Dim i As Integer
Dim s As String
i = "text" * 2              // expect error 5 2
s = "a" - "b"               // expect error 6 12
i = Int32(2.5)              // expect error 7 2
i = (1 + "x") * 3 + 4       // expect error 8 2
s = True + 1                // expect error 9 2
i = Integer                 // expect error 10 89
