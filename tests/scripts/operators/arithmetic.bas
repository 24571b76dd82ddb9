// Arithmetic operators on variables (generated code) and on constants
// (folded), which must agree: / is Double, \ and Mod keep integers, ^ is
// Double, and integer \ and Mod truncate toward zero.
Dim a As Integer = 17
Dim b As Integer = 5
Print Str(a + b) + " " + Str(a - b) + " " + Str(a * b)     // expect: 22 12 85
Print Str(a / b) + " " + Str(17 / 5)                       // expect: 3.4 3.4
Print Str(a \ b) + " " + Str(17 \ 5)                       // expect: 3 3
Print Str(a Mod b) + " " + Str(17 Mod 5)                   // expect: 2 2
Print Str(-a \ b) + " " + Str(-17 \ 5)                     // expect: -3 -3
Print Str(-a Mod b) + " " + Str(-17 Mod 5)                 // expect: -2 -2
Print Str(b ^ 2) + " " + Str(5 ^ 2)                        // expect: 25 25
Print Str(2 ^ -1)                                          // expect: 0.5
Dim x As Double = 2.5
Print Str(x * 2) + " " + Str(x - 5) + " " + Str(x / 0.5)   // expect: 5 -2.5 5
Print Str(7.9 \ 2) + " " + Str(x \ 1)                      // expect: 3 2
Print Str(5 \ 0)                                           // expect: 2147483647
Print Str(-5 \ 0)                                          // expect: -2147483648
Dim big As Integer = 2147483647
big = big + 1
Print Str(big)                                             // expect: -2147483648
Dim n As Int64 = 3000000000
Print Str(n * 2)                                           // expect: 6000000000
