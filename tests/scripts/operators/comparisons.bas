// The six comparisons on integers, doubles, mixed numbers and strings;
// strings compare without regard to case.
Function B(v As Boolean) As String
  If v Then Return "T"
  Return "F"
End Function
Dim i As Integer = 3
Dim j As Integer = 5
Print B(i < j) + B(i > j) + B(i <= 3) + B(i >= 4) + B(i = 3) + B(i <> 3)   // expect: TFTFTF
Dim d As Double = 3.5
Print B(d > i) + B(d < j) + B(i = 3.0) + B(d <> 3.5)     // expect: TTTF
Dim s As String = "apple"
Print B(s < "banana") + B(s > "Apple") + B(s = "APPLE") + B(s <> "pear")  // expect: TFTT
Print B("a" < "B") + B("Zebra" > "apple")                 // expect: TT
Print B("abc" < "abd") + B("ab" < "abc") + B("" = "")      // expect: TTT
Print B(1 < 2) + B(2.5 >= 2.5) + B(3 <> 3)                 // expect: TTF
