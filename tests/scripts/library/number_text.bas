// Numbers to text and back: Str, CStr, Val, CDbl, Hex, Oct, Bin, Format.
Print Str(3.25) + " " + Str(-0.5) + " " + Str(1000000)   // expect: 3.25 -0.5 1000000
Print Str(1 / 3)                                   // expect: 0.333333333333333
Print Hex(255) + " " + Oct(8) + " " + Bin(5)       // expect: FF 10 101
Print Hex(-1)                                      // expect: FFFFFFFF
Print Str(Val("3.5e2")) + " " + Str(Val("-12abc")) // expect: 350 -12
Print Str(Val("&b101")) + " " + Str(Val("&o17"))   // expect: 5 15
Print Str(CDbl("2,500")) + " " + Str(Val("2,500")) // expect: 2500 2
Print Format(3.14159, "0.00")                      // expect: 3.14
Print Format(1234567.891, "#,##0.0")               // expect: 1,234,567.9
Print Format(-2.5, "0.0;(0.0)")                    // expect: (2.5)
Print Format(0.075, "0.0%")                        // expect: 7.5%
Print Format(7, "000")                             // expect: 007
