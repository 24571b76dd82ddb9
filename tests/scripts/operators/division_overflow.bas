// The lowest value divided by -1 overflows: the quotient wraps to the
// lowest value itself and the remainder is 0, in 32 and in 64 bits, never
// a fault of the host. Divisors by -1 that do not overflow stay ordinary.
Function MinusOne() As Integer
  Return -1
End Function
Dim m As Integer = MinusOne()
Dim lowest As Integer = -2147483647 - 1
Print Str(lowest \ m) + " " + Str(lowest Mod m)          // expect: -2147483648 0
Print Str((-2147483647 - 1) \ m)                        // expect: -2147483648
Print Str((-2147483647 - 1) Mod MinusOne())             // expect: 0
Print Str(7 \ m) + " " + Str(7 Mod m)                   // expect: -7 0
Print Str(-7 \ m) + " " + Str(-7 Mod m)                 // expect: 7 0
Print Str(lowest \ 2) + " " + Str(-7 Mod 2)             // expect: -1073741824 -1
Dim z As Integer = 0
Print Str(lowest \ z) + " " + Str(lowest Mod z)         // expect: 0 -2147483648
Dim w As Integer = lowest
w = w \ m
Print Str(w)                                            // expect: -2147483648
Dim m64 As Int64 = m
Dim lowest64 As Int64 = -9223372036854775807 - 1
If lowest64 \ m64 = lowest64 Then Print "wraps"        // expect: wraps
Print Str(lowest64 Mod m64) + " " + Str(-7 Mod m64)     // expect: 0 0
Print Str(lowest64 \ 4294967296)                        // expect: -2147483648
