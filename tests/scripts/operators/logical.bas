// And/Or short-circuit on Booleans (the right side runs only when needed),
// Xor evaluates both, Not; on integers the same words are bitwise.
Dim calls As Integer
Function Yes() As Boolean
  calls = calls + 1
  Return True
End Function
Function No() As Boolean
  calls = calls + 1
  Return False
End Function
If No() And Yes() Then Print "wrong"
Print Str(calls)                       // expect: 1
If Yes() Or No() Then Print "or"       // expect: or
Print Str(calls)                       // expect: 2
If Yes() Xor No() Then Print "xor"     // expect: xor
Print Str(calls)                       // expect: 4
If Not No() Then Print "not"           // expect: not
If Yes() And Yes() Then Print "both"   // expect: both
If No() Or No() Then Print "wrong" Else Print "neither"   // expect: neither
If True Xor True Then Print "wrong" Else Print "equal xor"   // expect: equal xor
Dim m As Integer = 12
Dim n As Integer = 10
Print Str(m And n) + " " + Str(m Or n) + " " + Str(m Xor n)   // expect: 8 14 6
Print Str(Not m)                       // expect: -13
Print Str(12 And 10) + " " + Str(12 Or 3)                      // expect: 8 15
