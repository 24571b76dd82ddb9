// What an enum refuses: a name twice, a base that is no plain integer, a
// value that is no integer, a second enum of one name; and in use, mixing
// with integers without a cast, arguments, assignment, a bare value and an
// unknown name.
Module Colors
  Enum Shade
    Light
    Dark
    Light
  End Enum
  Enum Named As String
    X
  End Enum
  Enum Nested As Shade
    Y
  End Enum
  Enum Floaty
    Z = 1.5
    W = "s"
  End Enum
  Enum Shade
    Q
  End Enum
End Module
Dim s As Shade = Shade.Dark
s = 1
Dim n As Int32 = Shade.Dark
Print Str(Int32(Shade.Dark(1)))
Shade.Dark = 3
Shade.Dark
Print Str(Int32(Shade.Purple))
Dim u As Int16 = Int16(Shade.Dark)
// expect error 7 22
// expect error 11 113
// expect error 14 114
// expect error 18 113
// expect error 19 113
// expect error 21 22
// expect error 26 2
// expect error 27 2
// expect error 28 6
// expect error 29 115
// expect error 30 15
// expect error 31 11
// expect error 32 2
