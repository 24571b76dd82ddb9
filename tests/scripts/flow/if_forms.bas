// If, ElseIf and Else pick exactly one branch; the one-line form takes a
// simple statement on each side; a false If without Else does nothing.
Sub Classify(n As Integer)
  If n < 0 Then
    Print "negative"
  ElseIf n = 0 Then
    Print "zero"
  ElseIf n < 10 Then
    Print "small"
  Else
    Print "large"
  End If
End Sub
Classify(-5)          // expect: negative
Classify(0)           // expect: zero
Classify(7)           // expect: small
Classify(70)          // expect: large
Dim x As Integer = 3
If x = 3 Then Print "inline then"        // expect: inline then
If x = 4 Then Print "no" Else Print "inline else"   // expect: inline else
If x > 100 Then
  Print "never"
End If
If x > 1 Then
  If x > 2 Then
    Print "nested"    // expect: nested
  End If
End If
