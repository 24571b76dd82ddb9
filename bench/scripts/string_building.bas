// String building: many small concatenations.
Dim text As String
Dim i As Integer
For i = 1 To 60000
  text = text + Str(i Mod 10)
Next
Print Str(Len(text))
