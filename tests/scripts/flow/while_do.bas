// While and the Do loop forms: Until at the head, Until at the tail, and
// a bare Do ... Loop left only by Exit.
Dim n As Integer = 0
While n < 3
  n = n + 1
Wend
Print Str(n)          // expect: 3
While n < 0
  Print "never"
Wend
n = 0
Do Until n >= 4
  n = n + 2
Loop
Print Str(n)          // expect: 4
n = 10
Do
  n = n + 1
Loop Until n > 5
Print Str(n)          // expect: 11
n = 0
Do
  n = n + 1
  If n = 7 Then Exit Do
Loop
Print Str(n)          // expect: 7
n = 0
Do Until n = 3
  n = n + 1
Loop Until n = 100
Print Str(n)          // expect: 3
