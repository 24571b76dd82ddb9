// Filling, sorting and summing an array of 1,000,000 pseudo-random
// integers.
Dim values() As Integer
Dim seed As Integer = 12345
For i As Integer = 1 To 1000000
  seed = (seed * 1103 + 12345) Mod 1000003
  values.Append(seed)
Next
values.Sort
Dim total As Double
For i As Integer = 0 To values.UBound Step 1000
  total = total + values(i)
Next
Print Str(values(0)) + " " + Str(values(values.UBound)) + " " + Str(total)
