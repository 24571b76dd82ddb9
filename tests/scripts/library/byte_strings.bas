// The byte forms: lengths and positions count bytes of the stored text.
Dim s As String = "héllo"
Print Str(LenB(s)) + " " + Str(s.LenB)             // expect: 6 6
Print LeftB(s, 1) + "|" + RightB(s, 3)             // expect: h|llo
Print MidB(s, 4) + "|" + MidB(s, 4, 2)             // expect: llo|ll
Print Str(InStrB(s, "l")) + " " + Str(InStrB(5, s, "l"))  // expect: 4 5
Print Str(AscB("A")) + ChrB(67)                    // expect: 65C
Print Str(InStrB("abc", "B"))                      // expect: 0
