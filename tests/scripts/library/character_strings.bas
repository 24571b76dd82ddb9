// The character forms of the string library, as functions and as methods
// (their Extends forms): positions count from 1, searches ignore case.
Dim s As String = "Hello, World"
Print Str(Len(s)) + " " + Str(s.Len)               // expect: 12 12
Print Left(s, 5) + "|" + s.Left(2)                 // expect: Hello|He
Print Right(s, 5) + "|" + s.Right(1)               // expect: World|d
Print Mid(s, 8) + "|" + Mid(s, 8, 3)               // expect: World|Wor
Print s.Mid(12) + "|" + Mid(s, 1, 4)                // expect: d|Hell
Print Str(InStr(s, "o")) + " " + Str(InStr(6, s, "O"))   // expect: 5 9
Print Str(s.InStr("world")) + " " + Str(InStr(s, "xyz")) // expect: 8 0
Print Str(Asc("A")) + " " + Chr(66) + Chr(&hE9)    // expect: 65 Bé
Print Str(Len("héllo")) + " " + Str(Asc("é"))      // expect: 5 233
Print "[" + Mid(s, 50) + "][" + Left(s, 0) + "]"   // expect: [][]
