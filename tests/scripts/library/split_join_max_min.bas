// Split and Join on string arrays, Max and Min with any number of values.
Dim parts() As String = Split("one,two,,four", ",")
Print Str(UBound(parts)) + " [" + parts(2) + "] " + parts(3)        // expect: 3 [] four
Print Join(parts, "+")                                              // expect: one+two++four
// An omitted delimiter is a space; an empty one is nothing: Join puts
// nothing between the parts, Split gives each character.
Print Join(Split("a b c"), "") + "|" + Join(Split("a b"))           // expect: abc|a b
Dim letters() As String = Split("héllo", "")
Print Str(UBound(letters)) + " " + letters(1) + " " + Join(letters, ".")   // expect: 4 é h.é.l.l.o
Print Str(UBound(Split("", ""))) + " [" + Join(Split("", "")) + "]"        // expect: -1 []
Dim words() As String = Array("red", "green", "blue")
Print "[" + words.Join("") + "][" + words.Join + "][" + words.Join(", ") + "]"  // expect: [redgreenblue][red green blue][red, green, blue]
// A delimiter of several characters, found without regard to case; one
// that never occurs leaves the whole text as one field.
Dim pieces() As String = Split("a<->b<-><->C", "<->")
Print Str(UBound(pieces)) + " " + Join(pieces, "=>")                 // expect: 3 a=>b=>=>C
Print Str(UBound(Split("abc", "::"))) + " " + Join(Split("abc", "::"), "::")  // expect: 0 abc
Dim one() As String = Array("solo")
Print Join(one, "--") + " " + Str(Len(Join(Split("x,y", ","), "")))  // expect: solo 2
Dim text As String = "xANDyandz"
Dim mixed() As String = text.Split("and")
Print Str(mixed.UBound) + " " + mixed.Join("-")                      // expect: 2 x-y-z
Print Str(UBound(Split("", ",")))                                   // expect: -1
Print Str(Max(3, 9)) + " " + Str(Min(3, 9))                          // expect: 9 3
Print Str(Max(3, 9, 12.5, -1)) + " " + Str(Min(3, 9, 12.5, -1))      // expect: 12.5 -1
