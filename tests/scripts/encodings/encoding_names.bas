// The module Encodings names the common encodings; FindEncoding finds any
// by a common spelling of its name, and a name no encoding has raises a
// RuntimeException the script can catch.
Print Str(FindEncoding("UTF-8")) + " " + Str(FindEncoding("utf8"))
Print Str(FindEncoding("ISO-8859-1")) + " " + Str(FindEncoding("iso_8859-1")) + " " + Str(FindEncoding("Latin1"))
Print Str(FindEncoding("UTF-16")) + " " + Str(FindEncoding("ASCII")) + " " + Str(FindEncoding("MacRoman"))
Print Str(Encodings.UTF8) + " " + Str(Encodings.UTF16) + " " + Str(Encodings.ShiftJIS)
Print Str(Encoding("plain")) + " " + Str(Encoding("naïve")) + " " + Str(Encoding(ChrB(65)))
Print Str(Encoding(""))
Try
  Print Str(FindEncoding("Klingon"))
Catch err
  Print "no such encoding"
End Try
// DefineEncoding changes the tag and not a byte.
Dim bytes As String = DefineEncoding("abc", FindEncoding("UTF-16"))
Print Str(LenB(bytes)) + " " + Str(bytes.Encoding)
// expect: 134217984 134217984
// expect: 513 513 513
// expect: 256 1536 0
// expect: 134217984 256 2561
// expect: 134217984 134217984 1536
// expect: 1536
// expect: no such encoding
// expect: 3 256
