// String concatenation with + of literals, variables and function results,
// in a loop (temporaries are reused), and the empty string.
Function Wrap(s As String) As String
  Return "[" + s + "]"
End Function
Dim s As String
Print "con" + "cat"                // expect: concat
s = "a"
s = s + s + s
Print s                            // expect: aaa
Print Wrap(s + "b") + Wrap("")     // expect: [aaab][]
Dim i As Integer
Dim t As String
For i = 1 To 3
  t = Wrap(t)
Next
Print t                            // expect: [[[]]]
Print "tab" + Chr(9) + "end"       // expect: tab	end
Print "quote""inside"              // expect: quote"inside
