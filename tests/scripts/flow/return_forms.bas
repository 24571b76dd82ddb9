// Return with and without a value, falling off the end of a function (a
// zero result), and Return from the main body, which ends the program.
Function ByReturn() As Integer
  Return 5
  Print "unreached"
End Function
Function ByBranch(n As Integer) As String
  If n > 0 Then Return "positive"
  Return "other"
End Function
Function FallsOff() As Integer
End Function
Function Empty() As String
End Function
Sub Stops()
  Print "in sub"
  Return
  Print "unreached"
End Sub
Print Str(ByReturn())             // expect: 5
Print ByBranch(1)                 // expect: positive
Print ByBranch(0)                 // expect: other
Print Str(FallsOff())             // expect: 0
Print "[" + Empty() + "]"         // expect: []
Stops()                           // expect: in sub
Print "before return"             // expect: before return
Return
Print "after return"
