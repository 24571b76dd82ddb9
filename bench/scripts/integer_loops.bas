// Integer arithmetic in a tight loop.
Dim total As Integer
Dim i As Integer
For i = 1 To 50000000
  total = total + (i Mod 7) * 3 - (i \ 1000)
Next
Print Str(total)
