// What a variant does not have is a compile error at the name.
Dim v As Variant = 1
Dim n As Integer
n = Variant.Nope
n = Variant.TypeString(1)
Variant.TypeString = 3
Variant.TypeString
n = v.Hash(1)
Dim same As Boolean = v.Equals()
v.Hash = 3
v.Hash
n = v.Nope
n = v.TypeString(2)
v.TypeString = 1
// Arrays do not go into variants, nor come out of them.
Dim list(2) As Integer
v = list
Dim copy() As Integer = v
// expect error 4 11
// expect error 5 6
// expect error 6 70
// expect error 7 31
// expect error 8 6
// expect error 9 7
// expect error 10 70
// expect error 11 31
// expect error 12 11
// expect error 13 6
// expect error 14 70
// expect error 17 2
// expect error 18 2
