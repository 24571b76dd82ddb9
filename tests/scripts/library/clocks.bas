// The clocks run forwards: Ticks and Microseconds never go back.
Dim t0 As Integer = Ticks()
Dim m0 As Double = Microseconds()
Dim i, n As Integer
For i = 1 To 100000
  n = n + 1
Next
If Microseconds() > m0 Then Print "microseconds advance"   // expect: microseconds advance
If Ticks() >= t0 And t0 >= 0 Then Print "ticks do not go back"  // expect: ticks do not go back
