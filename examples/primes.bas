// Prime numbers below 60 by trial division, with Exit For, Continue,
// recursion for the greatest common divisor, and Right for the columns.
Function IsPrime(n As Integer) As Boolean
  If n < 2 Then Return False
  Dim d As Integer = 2
  While d * d <= n
    If n Mod d = 0 Then Return False
    d = d + 1
  Wend
  Return True
End Function

Function Gcd(a As Integer, b As Integer) As Integer
  If b = 0 Then Return a
  Return Gcd(b, a Mod b)
End Function

Function Column(n As Integer) As String
  Return Right("    " + Str(n), 4)
End Function

Dim row As String
Dim count As Integer
For n As Integer = 1 To 60
  If Not IsPrime(n) Then Continue
  count = count + 1
  row = row + Column(n)
  If count Mod 6 = 0 Then
    Print row
    row = ""
  End If
Next
If row <> "" Then Print row
Print Str(count) + " primes; gcd(84, 36) = " + Str(Gcd(84, 36))
