// Colours are not ordered, do not become integers without a cast, and
// have no members to assign or beyond those they have.
Dim c As Color = &c102030
Dim back As Color = &c405060
If c < back Then Print "ordered"
Dim wrong As Integer = c
c.Red = 5
Print Str(c.Purple)
// expect error 5 12
// expect error 6 2
// expect error 7 11
// expect error 8 11
