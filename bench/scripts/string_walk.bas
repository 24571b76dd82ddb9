// Strings: a million short pieces built into lines with +, the lines
// appended to an array and joined, then the text walked field by field with
// InStr, Mid and Val.
Dim lines() As String
Dim line As String
Dim i As Integer
For i = 1 To 1000000
  line = line + Str(i Mod 1000) + ","
  If i Mod 10 = 0 Then
    lines.Append(line)
    line = ""
  End If
Next
Dim text As String = Join(lines, "")
Dim total As Double
Dim count As Integer
Dim at As Integer = 1
Dim comma As Integer = InStr(at, text, ",")
While comma > 0
  total = total + Val(Mid(text, at, comma - at))
  count = count + 1
  at = comma + 1
  comma = InStr(at, text, ",")
Wend
Print Str(count) + " " + Str(total)
