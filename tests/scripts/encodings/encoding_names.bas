// Encodings are found by any common spelling of their name; a name no
// encoding has raises a RuntimeException the script can catch.
Print Str(Encodings("UTF-8")) + " " + Str(Encodings("utf8"))
Print Str(Encodings("ISO-8859-1")) + " " + Str(Encodings("iso_8859-1")) + " " + Str(Encodings("Latin1"))
Print Str(Encodings("UTF-16")) + " " + Str(Encodings("ASCII")) + " " + Str(Encodings("MacRoman"))
Print Str(Encoding("plain")) + " " + Str(Encoding("naïve")) + " " + Str(Encoding(ChrB(65)))
Print Str(Encoding(""))
Try
  Print Str(Encodings("Klingon"))
Catch err
  Print "no such encoding"
End Try
// DefineEncoding changes the tag and not a byte.
Dim bytes As String = DefineEncoding("abc", Encodings("UTF-16"))
Print Str(LenB(bytes)) + " " + Str(bytes.Encoding)
// expect: 134217984 134217984
// expect: 513 513 513
// expect: 256 1536 0
// expect: 134217984 134217984 1536
// expect: 1536
// expect: no such encoding
// expect: 3 256
