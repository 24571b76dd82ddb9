// Split and Join on string arrays, Max and Min with any number of values.
Dim parts() As String = Split("one,two,,four", ",")
Print Str(UBound(parts)) + " [" + parts(2) + "] " + parts(3)        // expect: 3 [] four
Print Join(parts, "+")                                              // expect: one+two++four
// An omitted or empty delimiter is a space.
Print Join(Split("a b c"), "") + "|" + Join(Split("a b"))           // expect: a b c|a b
Dim text As String = "xANDyandz"
Dim mixed() As String = text.Split("and")
Print Str(mixed.UBound) + " " + mixed.Join("-")                      // expect: 2 x-y-z
Print Str(UBound(Split("", ",")))                                   // expect: -1
Print Str(Max(3, 9)) + " " + Str(Min(3, 9))                          // expect: 9 3
Print Str(Max(3, 9, 12.5, -1)) + " " + Str(Min(3, 9, 12.5, -1))      // expect: 12.5 -1
