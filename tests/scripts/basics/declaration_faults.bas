// Faults of declarations: a name declared twice in one scope, an unknown
// type, assignment to a constant, a reserved word as a name.
Sub Work()
  Dim a As Integer
  Dim a As Double          // expect error 5 22
  Dim b As NoSuchType      // expect error 6 63
  Const kFixed = 3
  kFixed = 4               // expect error 8 70
  Dim Each As Integer      // expect error 9 62
End Sub
