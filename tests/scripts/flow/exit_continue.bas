// Exit and Continue in all their forms, including named For loops, a bare
// Exit/Continue meaning the innermost loop, and Exit Sub / Exit Function.
Dim s As String
Dim i, j As Integer
For i = 1 To 10
  If i Mod 2 = 0 Then Continue For
  If i > 7 Then Exit For
  s = s + Str(i)
Next
Print s                 // expect: 1357
s = ""
For i = 1 To 3
  For j = 1 To 3
    If j = 2 Then Continue For i
    If i = 3 Then Exit For i
    s = s + Str(i) + Str(j) + " "
  Next
Next
Print s                 // expect: 11 21 
s = ""
i = 0
While i < 6
  i = i + 1
  If i = 2 Then Continue While
  If i = 5 Then Exit While
  s = s + Str(i)
Wend
Print s                 // expect: 134
s = ""
i = 0
Do
  i = i + 1
  If i < 3 Then Continue Do
  s = s + Str(i)
  If i >= 4 Then Exit Do
Loop
Print s                 // expect: 34
s = ""
For i = 1 To 5
  If i = 2 Then Continue
  If i = 4 Then Exit
  s = s + Str(i)
Next
Print s                 // expect: 13
Sub Early(n As Integer)
  If n > 0 Then Exit Sub
  Print "not positive"
End Sub
Function Half(n As Integer) As Integer
  If n Mod 2 = 1 Then Exit Function
  Return n \ 2
End Function
Early(1)
Early(0)                // expect: not positive
Print Str(Half(8))      // expect: 4
Print Str(Half(3))      // expect: 0
