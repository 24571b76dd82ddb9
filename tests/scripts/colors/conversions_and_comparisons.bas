// A colour is its 32-bit value: casts both ways keep the bits, and
// colours compare for equality only.
Dim c As Color = &c102030
Dim n As Integer = Integer(c)
Print Hex(n)                                   // expect: 102030
Dim back As Color = Color(&h405060)
Print Str(back.Red) + " " + Str(back.Blue)     // expect: 64 96
If Color(n) = c Then Print "same bits"         // expect: same bits
If c <> back Then Print "different"            // expect: different
If RGB(255, 0, 0) = HSV(0, 1, 1) Then Print "red both ways"  // expect: red both ways
