// Faults of flow statements: Case outside a Select, Exit of a block that
// is not open, Next with the wrong name.
Sub Work()
  Dim i As Integer
  While i < 3
    Exit For            // expect error 6 104
    i = i + 1
  Wend
  For i = 1 To 2
  Next j                // expect error 10 47
End Sub
