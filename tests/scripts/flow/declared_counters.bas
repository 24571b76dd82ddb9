// A For loop may declare its own counter, with To and DownTo, in a method
// and in the main body; the counter lives only in the loop, so two loops
// may declare the same name.
Sub Run()
  Dim s As String
  For j As Integer = 0 To 10 Step 5
    s = s + Str(j) + ";"
  Next
  For j As Integer = 3 DownTo 1
    s = s + Str(j)
  Next j
  For x As Double = 0.5 To 1.5 Step 0.5
    s = s + " " + Str(x)
  Next
  Print s
End Sub
Run()     // expect: 0;5;10;321 0.5 1 1.5
Dim total As Integer
For k As Integer = 1 To 4
  total = total + k
Next k
For k As Integer = 10 DownTo 8
  total = total + k
  If total > 100 Then Exit For k
Next
Print Str(total)      // expect: 37
For outer As Integer = 1 To 2
  For inner As Integer = 1 To 2
    Print Str(outer * 10 + inner)
  Next
Next
// expect: 11
// expect: 12
// expect: 21
// expect: 22
