// Recursion, direct and mutual, with Integer, Double and String results.
Function Fact(n As Integer) As Int64
  If n <= 1 Then Return 1
  Return n * Fact(n - 1)
End Function
Function Fib(n As Integer) As Integer
  If n < 2 Then Return n
  Return Fib(n - 1) + Fib(n - 2)
End Function
Function IsEven(n As Integer) As Boolean
  If n = 0 Then Return True
  Return IsOdd(n - 1)
End Function
Function IsOdd(n As Integer) As Boolean
  If n = 0 Then Return False
  Return IsEven(n - 1)
End Function
Function Reverse(s As String) As String
  If Len(s) <= 1 Then Return s
  Return Reverse(Mid(s, 2)) + Left(s, 1)
End Function
Function Power(x As Double, n As Integer) As Double
  If n = 0 Then Return 1
  Return x * Power(x, n - 1)
End Function
Print Str(Fact(15))            // expect: 1307674368000
Print Str(Fib(20))             // expect: 6765
If IsEven(10) And IsOdd(7) Then Print "parity"   // expect: parity
Print Reverse("recursion")     // expect: noisrucer
Print Str(Power(1.5, 3))       // expect: 3.375
