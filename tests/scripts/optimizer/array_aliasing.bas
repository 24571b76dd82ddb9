// Two names for one array: a write through either is seen through the
// other in the same loop.
Dim a(5) As Integer
Dim b() As Integer = a
For i As Integer = 0 To 5
  a(i) = i
  b(i) = b(i) * 10 + a(i)
Next
Print Str(a(5)) + " " + Str(b(3))              // expect: 55 33
Dim total As Integer
For i As Integer = 1 To 5
  a(i) = a(i - 1) + b(i)
  total = total + a(i)
Next
Print Str(total)                               // expect: 385
Sub Fill(values() As Integer, v As Integer)
  For k As Integer = 0 To values.UBound
    values(k) = v
  Next
End Sub
Fill(b, 7)
Print Str(a(0) + a(5))                         // expect: 14
