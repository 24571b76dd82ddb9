// Text splitting and joining: a line of 2,000 words split and joined
// again, 300 times.
Dim words() As String
For i As Integer = 1 To 2000
  words.Append("w" + Str(i Mod 97))
Next
Dim line As String = Join(words, ",")
Dim total As Integer
For pass As Integer = 1 To 300
  Dim parts() As String = Split(line, ",")
  total = total + UBound(parts) + Len(Join(parts, ";"))
Next
Print Str(total)
