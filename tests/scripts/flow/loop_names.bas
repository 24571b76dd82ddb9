// A Next or an Exit For that names another variable than the loop's is
// reported where it stands; the rest of the method still compiles.
Sub Count()
  Dim i, j As Integer
  For i = 1 To 3
    For j = 1 To 3
      Exit For k      // expect error 7 104
      Exit For i
    Next i            // expect error 9 47
    Continue          // the loop of j is closed: this continues i's
  Next
End Sub
Continue              // expect error 13 104
Exit Sub              // expect error 14 104
