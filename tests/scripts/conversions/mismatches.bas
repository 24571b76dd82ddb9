// Numbers, Strings and Booleans do not convert into each other implicitly:
// each such assignment is compile error 2 at its own line.
Dim s As String
Dim b As Boolean
Dim i As Integer
s = 5             // expect error 6 2
b = 1             // expect error 7 2
i = True          // expect error 8 2
i = "7"           // expect error 9 2
s = 2.5           // expect error 10 2
Dim d As Double = "1.5"   // expect error 11 2
