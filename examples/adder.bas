// Reads numbers from standard input until an empty line and prints
// their sum and mean: Input, Val, a Do loop with Exit Do.
Dim total As Double
Dim count As Integer
Do
  Dim line As String = Trim(Input("number? "))
  If line = "" Then Exit Do
  total = total + Val(line)
  count = count + 1
Loop
Print ""
If count = 0 Then
  Print "no numbers"
Else
  Print Str(count) + " numbers, sum " + Str(total) + ", mean " + Format(total / count, "0.00")
End If
