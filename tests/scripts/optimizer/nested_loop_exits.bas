// Exit and Continue out of nested loops keep every counter right.
Dim pairs As Integer
Dim last As Integer
For i As Integer = 1 To 20
  For j As Integer = 1 To 20
    If j > i Then Continue For i
    If i * j > 150 Then Exit For i
    pairs = pairs + 1
    last = i * 100 + j
  Next
Next
Print Str(pairs) + " " + Str(last)             // expect: 89 1311
Dim k As Integer
Dim found As Integer = -1
Do
  k = k + 1
  Dim m As Integer = 0
  While m < k
    m = m + 1
    If m * k = 42 Then
      found = k
      Exit Do
    End If
  Wend
Loop
Print Str(found) + " " + Str(k)                // expect: 7 7
