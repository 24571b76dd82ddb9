// The Mandelbrot set on a 1200 x 900 grid, at most 50 iterations a point:
// Double arithmetic in nested loops.
Dim inside As Integer
For py As Integer = 0 To 899
  Dim ci As Double = py * 2.0 / 900 - 1.0
  For px As Integer = 0 To 1199
    Dim cr As Double = px * 3.0 / 1200 - 2.0
    Dim zr As Double = 0.0
    Dim zi As Double = 0.0
    Dim n As Integer = 0
    While n < 50 And zr * zr + zi * zi <= 4.0
      Dim t As Double = zr * zr - zi * zi + cr
      zi = 2.0 * zr * zi + ci
      zr = t
      n = n + 1
    Wend
    If n = 50 Then
      inside = inside + 1
    End If
  Next
Next
Print Str(inside)
