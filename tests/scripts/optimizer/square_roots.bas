// Sqrt in line gives the correctly rounded root of C: the same digits for
// exact and inexact roots, NaN below zero, infinity kept, and the root of
// a value kept in a register across a loop.
Dim x As Double = -1
Print Str(Sqrt(x)) + " " + Str(Sqrt(0.0)) + " " + Str(Sqrt(1e308 * 10))   // expect: NaN 0 INF
Print Str(Sqrt(2.0)) + " " + Str(Sqrt(1.0 / 3)) + " " + Str(Sqrt(6.25))     // expect: 1.4142135623731 0.577350269189626 2.5
Dim total As Double
For i As Integer = 1 To 100
  total = total + Sqrt(i) * Sqrt(i)
Next
If total = 5050 Then Print "exact"                    // expect: exact
Print Str(total)                                      // expect: 5050
