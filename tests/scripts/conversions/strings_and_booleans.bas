// Between numbers and strings, Str, CStr, Val and CDbl are the explicit
// conversions; there is no implicit one (see mismatches.bas).
Dim s As String = Str(42)
Print s + "!"                     // expect: 42!
Print Str(Val("12.5") * 2)        // expect: 25
Print Str(Val("  7 apples"))      // expect: 7
Print Str(Val("none"))            // expect: 0
Print Str(CDbl("1,234.5"))        // expect: 1234.5
Print CStr(0.25)                  // expect: 0.25
Dim n As Integer = Val("&hFF")
Print Str(n)                      // expect: 255
Print Str(1e21)                   // expect: 1e+21
Print Str(123456789012)           // expect: 123456789012
