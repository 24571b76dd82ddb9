// Not-a-number is unequal to everything, itself included; less-than is
// false both ways, less-or-equal is kept true, as the x87 path has it.
Function T(b As Boolean) As String
  If b Then
    Return "T"
  End If
  Return "F"
End Function
Dim zero As Double
Dim nan As Double = zero / zero
Dim one As Double = 1.0
Print T(nan = nan) + T(nan <> nan) + T(nan = one) + T(one <> nan)  // expect: FTFT
Print T(nan < one) + T(one < nan) + T(nan > one) + T(one > nan)    // expect: FFFF
Print T(nan <= one) + T(one <= nan) + T(nan >= one)                // expect: TTT
Print T(one < 2.0) + T(one <= 1.0) + T(one = 1.0) + T(one <> 1.0)  // expect: TTTF
Dim hits As Integer
For i As Integer = 1 To 3
  If nan = nan Then hits = hits + 100
  If nan <> nan Then hits = hits + 1
  If nan < one Then hits = hits + 1000
  If one <= nan Then hits = hits + 10
Next
Print Str(hits)                                                    // expect: 33
