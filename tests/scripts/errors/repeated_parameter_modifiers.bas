// A modifier written twice is reported once and the parameter still
// compiles as if written once: the body and the calls go on being checked.
Sub Twice(ByRef ByRef m As Integer)      // expect error 3 75
  m = m + 1
End Sub
Sub Unknown(ByRef ByRef m As Nonesuch)   // expect error 6 63
End Sub                                  // expect error 6 75
Dim k As Integer = 1
Twice(k)
Twice(2)                                 // expect error 10 21
