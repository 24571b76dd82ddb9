// Case mapping, trimming and StrComp.
Dim s As String = "  mixed Case text  "
Print "[" + Trim(s) + "]"                  // expect: [mixed Case text]
Print "[" + LTrim(s) + "]"                 // expect: [mixed Case text  ]
Print "[" + RTrim(s) + "]"                 // expect: [  mixed Case text]
Dim x As String = "x"
Print Uppercase("abc") + Ucase("d") + x.Uppercase + x.Ucase   // expect: ABCDXX
Dim d As String = "DEF"
Print Lowercase("ABC") + d.Lowercase       // expect: abcdef
Print Titlecase("hello big world")         // expect: Hello Big World
Print s.Trim.Titlecase                     // expect: Mixed Case Text
Print Str(StrComp("a", "B", 0)) + " " + Str(StrComp("a", "B", 1))   // expect: 1 -1
Print Str(StrComp("same", "SAME", 1)) + " " + Str(StrComp("x", "x", 0))  // expect: 0 0
