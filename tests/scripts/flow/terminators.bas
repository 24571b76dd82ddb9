// A block closed by the wrong terminator is reported at its opening line,
// and the parse goes on to the next fault.
Sub Main()
  Dim y, i As Integer
  For i = 1 To 3      // expect error 5 97
    y = i
  End If
  While y > 0         // expect error 8 98
    y = y - 1
  End Select
  Do                  // expect error 11 100
  End Try
  y = = 1             // expect error 13 1
End Sub
