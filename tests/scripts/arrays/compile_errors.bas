// Compile errors of array declarations, subscripts and methods.
Dim n As Integer = 3
Dim a(n) As Integer
Dim b(-2) As Integer
Dim c(2) As Integer
c(1, 1) = 0
Dim d As Integer
d(0) = 1
Dim e() As Boolean
e.Sort
Dim f(1.5) As Integer
Dim x As Integer = c.Append(1)
Dim g() As Integer = Array()
c.Pop
// expect error 3 48
// expect error 4 30
// expect error 6 18
// expect error 8 16
// expect error 10 52
// expect error 11 14
// expect error 12 67
// expect error 13 7
// expect error 14 31
