// Precedence and associativity: * before +, ^ binds tighter than unary
// minus and groups to the right, - and / group to the left, comparisons
// come after arithmetic, And before Or, and Not binds tighter than =.
Print Str(2 + 3 * 4)              // expect: 14
Print Str((2 + 3) * 4)            // expect: 20
Print Str(10 - 4 - 3)             // expect: 3
Print Str(64 / 4 / 2)             // expect: 8
Print Str(2 ^ 3 ^ 2)              // expect: 512
Print Str(-2 ^ 2)                 // expect: -4
Print Str(2 * 3 ^ 2)              // expect: 18
Print Str(7 + 8 \ 3 * 2)          // expect: 11
Print Str(1 + 10 Mod 4)           // expect: 3
Dim t As Boolean = 1 + 1 = 2
If t Then Print "arith before compare"     // expect: arith before compare
If True Or False And False Then Print "And binds tighter"   // expect: And binds tighter
Dim f As Boolean = False
If Not f = False Then Print "wrong" Else Print "Not binds tighter"  // expect: Not binds tighter
Dim i As Integer = 2
If i > 1 And i < 3 Then Print "range"      // expect: range
