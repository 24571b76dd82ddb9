// Text processing with the string library: fields, case, search and
// replacement, called as functions and as methods of a String.
Const kText = "the quick brown fox jumps over the lazy dog"

Function Longest(text As String) As String
  Dim best As String
  For i As Integer = 1 To CountFields(text, " ")
    Dim word As String = NthField(text, " ", i)
    If Len(word) > Len(best) Then best = word
  Next
  Return best
End Function

Dim text As String = kText
Print Titlecase(text)
Print Str(text.CountFields(" ")) + " words, " + Str(Len(text)) + " characters"
Print "longest word: " + Longest(text)
Print "first 'the' at " + Str(InStr(text, "THE")) + ", second at " + Str(InStr(2, text, "the"))
Print text.ReplaceAll("the", "a").Uppercase
