// The math functions, with results checked to a few places.
Function R(d As Double) As String
  Return Format(d, "0.0000")
End Function
Print Str(Abs(-3.5)) + " " + Str(Sign(-2)) + " " + Str(Sign(0))   // expect: 3.5 -1 0
Print Str(Sqrt(16)) + " " + Str(Pow(2, 10))                         // expect: 4 1024
Print Str(Floor(-2.5)) + " " + Str(Ceil(-2.5)) + " " + Str(Round(2.5))  // expect: -3 -2 3
Print R(Sin(1)) + " " + R(Cos(0)) + " " + R(Tan(0.5))     // expect: 0.8415 1.0000 0.5463
Print R(ASin(1)) + " " + R(ACos(0)) + " " + R(ATan(1))    // expect: 1.5708 1.5708 0.7854
Print R(ATan2(1, 1)) + " " + R(Exp(1)) + " " + R(Log(10)) // expect: 0.7854 2.7183 2.3026
Dim chance As Double = Rnd()
If chance >= 0 And chance < 1 Then Print "rnd in range"             // expect: rnd in range
Print Str(BitwiseAnd(12, 10)) + " " + Str(BitwiseOr(12, 3)) + " " + Str(BitwiseXor(6, 3))  // expect: 8 15 5
