// Enum values: implicit ones follow the one before, explicit and negative
// ones, 64-bit and 8-bit bases, Select Case over them, typecasts to and
// from the base type, qualified by module or not, and a zero default.
Module Colors
  Enum Shade
    Light
    Dark = 10
    Darker
    Negative = -3
    After
  End Enum
  Enum Big As Int64
    Huge = 5000000000
    Next1
  End Enum
  Enum Small As UInt8
    A
    B
  End Enum
  Function Name(s As Shade) As String
    Select Case s
    Case Shade.Light
      Return "light"
    Case Shade.Dark
      Return "dark"
    Else
      Return "other " + Str(Int32(s))
    End Select
  End Function
End Module
Dim s As Colors.Shade = Colors.Shade.Darker
Print Str(Int32(s))
Print Colors.Name(s)
Print Colors.Name(Colors.Shade.Dark)
Print Name(Shade.Light)
Print Str(Int32(Shade.Negative)) + " " + Str(Int32(Shade.After))
s = Shade(10)
If s = Shade.Dark Then Print "back to dark"
Print Str(Int64(Big.Next1))
Print Str(UInt8(Small.B))
Dim t As Shade
Print Str(Int32(t))
// expect: 11
// expect: other 11
// expect: dark
// expect: light
// expect: -3 -2
// expect: back to dark
// expect: 5000000001
// expect: 1
// expect: 0
