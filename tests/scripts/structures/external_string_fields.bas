// Fixed-size fields of the external string kinds: a PString holds a length
// byte and the text, a WString UTF-16, a CString the bytes; each reads back
// as the text that was written, cut to fit, in arrays as alone.
Module Wire
  Structure Names
    P As PString * 4
    W As WString * 8
    C As CString * 4
    Ps(1) As PString * 6
    Tail As UInt8
  End Structure
End Module
Function Bytes(s As String) As String
  Dim out As String
  For i As Integer = 1 To LenB(s)
    out = out + Str(AscB(MidB(s, i, 1))) + " "
  Next
  Return Trim(out)
End Function
Dim n As Wire.Names
Print Str(Wire.Names.Size)                                  // expect: 29
n.P = "abcdef"
n.W = "héllo"
n.C = "xyzzy"
n.Ps(0) = "q"
n.Ps(1) = "rstuvwxyz"
n.Tail = 9
Print n.P + "|" + n.W + "|" + n.C + "|" + n.Ps(0) + "|" + n.Ps(1) + "|" + Str(n.Tail)  // expect: abc|héll|xyzz|q|rstuv|9
Print Bytes(n.StringValue)  // expect: 3 97 98 99 104 0 233 0 108 0 108 0 120 121 122 122 1 113 0 0 0 0 5 114 115 116 117 118 9
// Shorter text clears what was there; nothing is empty.
n.P = ""
n.W = "é"
n.Ps(1) = "ok"
Print "[" + n.P + "]" + n.W + "|" + n.Ps(1) + "|" + Str(n.Tail)  // expect: []é|ok|9
Print Bytes(MidB(n.StringValue, 1, 12))                     // expect: 0 0 0 0 233 0 0 0 0 0 0 0
// A length byte that claims more than the field holds reads no further.
Dim raw As String = n.StringValue
n.StringValue = ChrB(200) + MidB(raw, 2, LenB(raw) - 1)
Print Str(LenB(n.P))                                        // expect: 3
