// One Dim may declare several names: names without their own type take
// the type of the next clause, at the top level as in a method.
Dim a, b As Integer, s, t As String
a = 2
b = 3
s = "x"
t = "y"
Print Str(a * b) + s + t        // expect: 6xy
Dim p, q As Double = 1.5
Print Str(p + q)                // expect: 3
Dim first As Integer = Len("a,b"), second As String = "after"
Print Str(first) + " " + second  // expect: 3 after
Sub Local()
  Dim m, n As Integer
  m = 4
  n = 5
  Print Str(m + n)
End Sub
Local()                         // expect: 9
