// Arrays: Split a line into words, sort them, count them, and keep a
// table of numbers that grows as it is filled.
Dim words() As String = Split("pear fig Apple banana fig cherry", " ")
words.Sort
Print Join(words, ", ")

Dim counts() As Integer
Dim distinct() As String
For Each w As String In words
  Dim at As Integer = distinct.IndexOf(w)
  If at < 0 Then
    distinct.Append(w)
    counts.Append(1)
  Else
    counts(at) = counts(at) + 1
  End If
Next
For i As Integer = 0 To distinct.UBound
  Print distinct(i) + ": " + Str(counts(i))
Next

Dim squares(4) As Double
For i As Integer = 0 To 4
  squares(i) = i * i / 2
Next
Print "largest " + Str(Max(squares(1), squares(2), squares(3), squares(4))) + ", smallest " + Str(Min(squares(0), squares(4)))
