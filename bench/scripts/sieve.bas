// A sieve of Eratosthenes over 5,000,000 Booleans, ten passes.
Const kLimit = 5000000
Dim composite(kLimit) As Boolean
Dim count As Integer
For pass As Integer = 1 To 10
  For i As Integer = 0 To kLimit
    composite(i) = False
  Next
  count = 0
  For i As Integer = 2 To kLimit
    If Not composite(i) Then
      count = count + 1
      For j As Integer = i + i To kLimit Step i
        composite(j) = True
      Next
    End If
  Next
Next
Print Str(count)
