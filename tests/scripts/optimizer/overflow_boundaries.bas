// 32-bit arithmetic wraps, and division by zero is quiet, in loops as in
// straight code.
Dim big As Integer = 2147483647
Dim small As Integer = -2147483648
Print Str(big + 1)                             // expect: -2147483648
Print Str(small - 1)                           // expect: 2147483647
Print Str(big * 2)                             // expect: -2
Print Str(-small)                              // expect: -2147483648
Dim zero As Integer
Print Str(7 \ zero) + " " + Str(7 Mod zero)    // expect: 0 7
Dim n As Integer = 2147483640
Dim steps As Integer
While n > 0
  n = n + 3
  steps = steps + 1
Wend
Print Str(steps) + " " + Str(n)                // expect: 3 -2147483647
Dim u As UInt32 = 4294967295
Print Str(u + 1)                               // expect: 0
Dim count As Integer
For i As Integer = -2147483648 To -2147483646
  count = count + i \ 1000000000
Next
Print Str(count)                               // expect: -6
