// A loop variable that a call changes through ByRef: the loop must see
// the change at once.
Sub Skip(ByRef n As Integer)
  n = n + 2
End Sub
Dim seen As String
For i As Integer = 1 To 10
  seen = seen + Str(i) + " "
  If i Mod 3 = 0 Then Skip(i)
Next
Print seen                                     // expect: 1 2 3 6 9 

Function Walk() As String
  Dim text As String
  Dim j As Integer = 0
  While j < 8
    j = j + 1
    If j = 2 Then Skip(j)
    text = text + Str(j)
  Wend
  Return text
End Function
Print Walk()                                   // expect: 145678
