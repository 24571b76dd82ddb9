// Unary minus on every kind of number, folded and generated, including
// double negation and unsigned operands.
Dim i As Integer = 5
Dim d As Double = 2.25
Dim u As UInt8 = 200
Print Str(-i) + " " + Str(- -i) + " " + Str(-d)    // expect: -5 5 -2.25
Print Str(-(3 + 4)) + " " + Str(-2.5)              // expect: -7 -2.5
Print Str(-u)                                      // expect: 56
Dim k As Int64 = -9000000000
Print Str(-k)                                      // expect: 9000000000
