// For loops: To, DownTo, positive and negative Step, a declared loop
// variable, an empty range, and the variable one step past the bound.
Dim i As Integer
Dim s As String
For i = 1 To 5
  s = s + Str(i)
Next
Print s             // expect: 12345
Print Str(i)        // expect: 6
s = ""
For i = 10 To 1 Step -3
  s = s + Str(i) + " "
Next i
Print s             // expect: 10 7 4 1 
s = ""
For i = 5 DownTo 1
  s = s + Str(i)
Next
Print s             // expect: 54321
s = ""
For i = 10 DownTo 1 Step 4
  s = s + Str(i) + " "
Next
Print s             // expect: 10 6 2 
s = "none"
For i = 5 To 1
  s = "ran"
Next
Print s             // expect: none
Dim x, total As Double
For x = 1.0 To 2.0 Step 0.5
  total = total + x
Next
Print Str(total)    // expect: 4.5
Dim stepBy As Integer = -2
s = ""
For i = 6 To 1 Step stepBy
  s = s + Str(i)
Next
Print s             // expect: 642
