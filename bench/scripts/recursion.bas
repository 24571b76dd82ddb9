// Recursive calls: the naive Fibonacci number of 34.
Function Fib(n As Integer) As Integer
  If n < 2 Then
    Return n
  End If
  Return Fib(n - 1) + Fib(n - 2)
End Function

Print Str(Fib(34))
