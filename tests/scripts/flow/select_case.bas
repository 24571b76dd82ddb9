// Select Case: value lists, ranges, every Is comparison and Case Else; the
// first matching case wins and the selector is evaluated once.
Dim calls As Integer
Function Selector(n As Integer) As Integer
  calls = calls + 1
  Return n
End Function
Sub Pick(n As Integer)
  Select Case Selector(n)
  Case 1, 2
    Print "one or two"
  Case 3 To 5
    Print "three to five"
  Case Is < 0
    Print "negative"
  Case Is >= 100
    Print "hundreds"
  Case Is > 50
    Print "over fifty"
  Case Is = 42
    Print "answer"
  Case Is <= 6
    Print "six"
  Case Is <> 7
    Print "not seven"
  Case Else
    Print "seven"
  End Select
End Sub
Pick(2)         // expect: one or two
Pick(4)         // expect: three to five
Pick(-1)        // expect: negative
Pick(150)       // expect: hundreds
Pick(60)        // expect: over fifty
Pick(42)        // expect: answer
Pick(6)         // expect: six
Pick(8)         // expect: not seven
Pick(7)         // expect: seven
Print Str(calls)  // expect: 9
Dim s As String = "pear"
Select Case s
Case "apple"
  Print "apple"
Case "banana", "pear"
  Print "fruit"   // expect: fruit
End Select
Select Case 3
Case 1
  Print "no match and no Else"
End Select
Print "after"     // expect: after
