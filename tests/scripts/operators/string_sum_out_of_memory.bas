// A string sum the heap cannot hold raises OutOfMemoryException, which the
// script catches; the text it had is still there.
Dim s As String = "ab"
Dim doublings As Integer
Try
  While True
    s = s + s
    doublings = doublings + 1
  Wend
Catch
  Print "caught"
End Try
If Len(s) = 2 * 2 ^ doublings And doublings > 20 Then Print "kept"
s = ""
// expect: caught
// expect: kept
