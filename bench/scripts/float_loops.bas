// Floating-point arithmetic: the midpoint rule for the integral of
// 4 / (1 + x^2) from 0 to 1, which is pi.
Dim steps As Integer = 20000000
Dim width As Double = 1.0 / steps
Dim sum As Double
Dim i As Integer
For i = 0 To steps - 1
  Dim x As Double = (i + 0.5) * width
  sum = sum + 4.0 / (1.0 + x * x)
Next
Print Str(sum * width)
