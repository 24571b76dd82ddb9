' Every loop and its terminators, If forms, Select Case, Try.
Sub Flow()
  For i = 1 To 10
    If i = 5 Then Continue
    If i = 9 Then Exit For
  Next
  For j = 10 DownTo 1 Step 2
  Next j
  For k As Integer = 1 To 3 Step 1
    Exit For k
  Next k
  For n As Integer = 5 DownTo 1
  Next
  For Each item In items
    Continue For
  Next
  For Each s As String In names
    Continue For s
  Next s
  While a < 10
    a = a + 1
    Exit While
    Continue While
  Wend
  Do
    Exit Do
    Continue Do
  Loop
  Do Until a > 3
    a = a + 1
  Loop
  Do
    a = a - 1
  Loop Until a = 0
  If a = 1 Then
    b = 1
  ElseIf a = 2 Then
    b = 2
  ElseIf a = 3 Then
    b = 3
  Else
    b = 4
  End If
  If a Then b = 1 Else b = 2
  If a Then Print "one"
  If a Then Exit Sub
  If a Then
  End If
  Select Case a
  Case 1
    b = 1
  Case 2, 3, 4
    b = 2
  Case 5 To 9
    b = 3
  Case Is > 100
    b = 4
  Case Is < 0, Is = -1, Is >= 50, Is <= 60, Is <> 7
    b = 5
  Case Else
    b = 6
  End Select
  Select Case s
  Case "a"
  Else
  End Select
  Select Case x
  End Select
  Try
    Raise New RuntimeException
  Catch e As RuntimeException
    Print "caught"
  Catch
    Print "any"
  Finally
    Print "finally"
  End Try
  Try
  Exception
  End Try
  Try
  Finally
  End Try
retry:
  GoTo retry
  Exit
  Exit Function
  Exit Sub
End Sub
