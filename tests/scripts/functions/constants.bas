// Const at the top level and inside methods; constants fold into
// expressions of every type.
Const kLimit = 10
Const kName = "quorl"
Const kRatio = 2.5
Const kNegative = -3
Function Scaled(n As Integer) As Double
  Return n * kRatio
End Function
Sub Local()
  Const kInner = 7
  Print Str(kInner * kLimit)
End Sub
Print Str(kLimit + 1)           // expect: 11
Print kName + "!"               // expect: quorl!
Print Str(Scaled(kLimit))       // expect: 25
Print Str(Scaled(2))            // expect: 5
Print Str(kNegative * kLimit)   // expect: -30
Local()                         // expect: 70
