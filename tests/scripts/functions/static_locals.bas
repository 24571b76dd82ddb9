// A Static local keeps its value across calls, and its initial value is
// assigned once; each method has its own.
Function NextId() As Integer
  Static id As Integer = 100
  id = id + 1
  Return id
End Function
Function Other() As Integer
  Static id As Integer
  id = id + 10
  Return id
End Function
Sub Remember(s As String)
  Static all As String
  all = all + s
  Print all
End Sub
Print Str(NextId())    // expect: 101
Print Str(NextId())    // expect: 102
Print Str(Other())     // expect: 10
Print Str(NextId())    // expect: 103
Print Str(Other())     // expect: 20
Remember("a")          // expect: a
Remember("b")          // expect: ab
