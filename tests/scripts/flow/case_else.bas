// Case Else ends the list of cases: any Case after it is reported, once.
Sub Pick(n As Integer)
  Dim s As String
  Select Case n
  Case 1
    s = "one"
  Case Else
    s = "many"
  Case 2              // expect error 9 90
    s = "two"
  Else                // expect error 11 90
  End Select
End Sub
