// Text converts between encodings and keeps its characters: the bytes
// change, what Print shows does not.
Function Yes(answer As Boolean) As String
  If answer Then Return "True"
  Return "False"
End Function

Dim utf8 As Integer = Encodings.UTF8
Dim latin1 As Integer = Encodings.ISOLatin1
Dim utf16 As Integer = Encodings.UTF16

Dim word As String = "café"
Print Str(LenB(word)) + " " + Str(Len(word))
Dim latin As String = ConvertEncoding(word, latin1)
Print Str(LenB(latin)) + " " + Str(AscB(RightB(latin, 1))) + " " + latin
Print Yes(latin.Encoding = latin1)
Dim wide As String = latin.ConvertEncoding(utf16)
Print Str(LenB(wide)) + " " + Str(AscB(MidB(wide, 7, 1))) + " " + wide
Dim back As String = ConvertEncoding(wide, utf8)
Print Str(LenB(back)) + " " + Yes(back = word) + " " + Yes(back.Encoding = utf8)

// Cyrillic through a one-byte set and back.
Dim russian As String = ConvertEncoding("Привет", Encodings.KOI8R)
Print Str(LenB(russian)) + " " + Str(AscB(russian)) + " " + russian

// The same bytes read as another encoding: Mac Roman 0x8E is e acute.
Dim mac As String = DefineEncoding(ChrB(&h8E), Encodings.MacRoman)
Print mac + " " + Str(LenB(ConvertEncoding(mac, utf8)))

// A byte that is no UTF-8 becomes one "?" and the rest converts.
Dim broken As String = DefineEncoding("a" + ChrB(255) + "b" + ChrB(195), utf8)
Print ConvertEncoding(broken, latin1)
// A character that Latin-1 lacks is passed byte by byte: a "?" for each.
Print ConvertEncoding("x€y", latin1)

// Latin-1 text plus UTF-8 text is UTF-8.
Dim sum As String = latin + "ü€"
Print Yes(sum.Encoding = utf8) + " " + Str(LenB(sum)) + " " + sum

// ASCII text keeps its bytes and takes the new tag.
Dim plain As String = ConvertEncoding("plain", Encodings.WindowsLatin1)
Print Str(LenB(plain)) + " " + Yes(plain.Encoding = FindEncoding("CP1252"))
// expect: 5 4
// expect: 4 233 café
// expect: True
// expect: 8 233 café
// expect: 5 True True
// expect: 6 240 Привет
// expect: é 2
// expect: a?b?
// expect: x???y
// expect: True 10 caféü€
// expect: 5 True
