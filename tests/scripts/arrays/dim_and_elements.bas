// Dim with bounds makes the array; elements of every kind are read and
// written through the array's own entries, and UBound follows Redim.
Dim counts(3) As Integer
counts(0) = 10
counts(3) = counts(0) + 5
Print Str(counts(0)) + " " + Str(counts(1)) + " " + Str(counts(3))   // expect: 10 0 15
Print Str(UBound(counts)) + " " + Str(counts.UBound)                 // expect: 3 3
Dim names() As String
Print Str(UBound(names))                                              // expect: -1
Redim names(1)
names(0) = "ada"
names(1) = names(0) + "line"
Print names(0) + "/" + names(1)                                       // expect: ada/adaline
Dim grid(1, 2) As Double
grid(1, 2) = 2.5
grid(0, 1) = grid(1, 2) * 2
Print Str(grid(0, 1)) + " " + Str(UBound(grid, 2))                    // expect: 5 2
Redim grid(2, 2)
Print Str(grid(0, 1)) + " " + Str(grid(1, 2))                         // expect: 5 2.5
Dim flags(1) As Boolean
flags(1) = True
If flags(1) And Not flags(0) Then Print "flags"                        // expect: flags
Dim big(0) As Int64
big(0) = 4294967296
Print Str(big(0) * 2)                                                 // expect: 8589934592
Dim bytes(2) As UInt8
bytes(2) = 255
Print Str(bytes(2))                                                   // expect: 255
Dim singles(0) As Single
singles(0) = 1.5
Print Str(singles(0))                                                 // expect: 1.5
Dim total As Integer
For i As Integer = 0 To UBound(counts)
  total = total + counts(i)
Next
Print Str(total)                                                      // expect: 25
Dim words() As String = Array("x", "y", "z")
Dim joined As String
For Each w As String In words
  joined = joined + w
Next
Print joined                                                          // expect: xyz
