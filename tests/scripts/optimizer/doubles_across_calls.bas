// Double variables of loops stay right across calls that change them or
// return Doubles, across ByRef, negation, narrowing to Single and raises.
Dim scale As Double = 1.5
Function Half(x As Double) As Double
  scale = scale + 0.25
  Return x / 2.0
End Function
Sub Grow(ByRef x As Double)
  x = x * 3.0
End Sub
Dim sum As Double
Dim y As Double = 1.0
For i As Integer = 1 To 4
  sum = sum + Half(y) * scale
  y = -y + 0.5
  Grow(y)
Next
Print Str(sum) + " " + Str(y) + " " + Str(scale)   // expect: -14.5 51 2.5
Dim s As Single
Dim d As Double = 0.1
For i As Integer = 1 To 3
  s = d * i
  d = s + d
Next
Print Str(d)                                        // expect: 2.40000007897615
Dim values(2) As Double
Dim t As Double
For i As Integer = 0 To 4
  Try
    t = t + 1.0
    values(i) = t
  Catch
    t = t * 10.0
  End Try
Next
Print Str(t) + " " + Str(values(2))                 // expect: 410 3
