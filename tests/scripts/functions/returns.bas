// Return must fit its method; two bodies may not share one signature.
Sub Quiet()
  Return 1            // expect error 3 34
End Sub
Function Loud() As Integer
  Return              // expect error 6 73
End Function
Function Fine() As Integer
  Dim n As Integer = 2
  If n > 1 Then Return n
End Function
Sub Twice(a As Integer)   // expect error 12 93
End Sub
Sub Twice(b As Integer)   // expect error 14 93
End Sub
Sub Shadow()
  Dim x As Integer
  If True Then
    Dim x As String     // expect error 19 22
  End If
End Sub
