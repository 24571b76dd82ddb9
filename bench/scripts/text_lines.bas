// Text: two hundred thousand lines split into words, the words compared,
// each line joined again, searched and rewritten with ReplaceAll; then one
// big join of all the lines and a split of it.
Dim words() As String = Array("alpha", "beta", "gamma", "delta", "epsilon", "zeta", "eta", "theta")
Dim lines() As String
Dim i As Integer
For i = 0 To 199999
  lines.Append(words(i Mod 8) + " " + words((i * 3) Mod 8) + " " + words((i * 5 + 1) Mod 8) + " " + Str(i))
Next
Dim ordered As Integer
Dim found As Integer
Dim parts() As String
Dim line As String
For i = 0 To UBound(lines)
  parts = Split(lines(i), " ")
  If parts(0) < parts(1) Then ordered = ordered + 1
  line = Join(parts, "-")
  If InStr(line, "-eta-") > 0 Then found = found + 1
  lines(i) = ReplaceAll(line, "-", " ")
Next
Dim all As String = Join(lines, Chr(10))
Dim again() As String = Split(all, Chr(10))
Print Str(ordered) + " " + Str(found) + " " + Str(UBound(again) + 1) + " " + Str(Len(all))
