// Replacing or joining into a text longer than a string can be raises
// OutOfMemoryException before anything is allocated or written.
Dim t As String = "a"
Dim i As Integer
For i = 1 To 16
  t = t + t
Next
Try
  Print ReplaceAll(t, "a", t)
Catch
  Print "ReplaceAll caught"
End Try
Dim parts() As String
For i = 0 To 65536
  parts.Append(t)
Next
Try
  Print Join(parts, "")
Catch
  Print "Join caught"
End Try
Print Str(Len(ReplaceAll(t, "a", "bb")))
Print Str(Len(Join(parts, "")))
// expect: ReplaceAll caught
// expect: Join caught
// expect: 131072
// expect runtime error: OutOfMemoryException
