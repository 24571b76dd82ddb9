// Sums of many strings: each chain is one call of the runtime, with the
// pieces' own code (calls among them) run first, left to right.
Function Piece(n As Integer) As String
  Print "piece " + Str(n)
  Return Chr(64 + n)
End Function
Function Boom(n As Integer) As String
  Dim only() As String = Array("never")
  Return only(n)
End Function
Dim s As String = Piece(1) + "-" + Piece(2) + "-" + Piece(3)
// expect: piece 1
// expect: piece 2
// expect: piece 3
Print s                                               // expect: A-B-C
Dim none As String
Print "[" + none + none + "]" + none                  // expect: []
Print none + "alone" + none                           // expect: alone
Print "caf" + Chr(233) + " " + "déjà" + " " + Str(2) // expect: café déjà 2
Print "a" + ("b" + "c") + "d" + Mid("xyz", 2) + Str(Len("é" + "è" + "ê"))   // expect: abcdyz3
If "x" + s + "y" = "xA-B-C" + "y" Then Print "equal"  // expect: equal
Dim line As String
For i As Integer = 1 To 12
  line = line + Str(i Mod 10) + ","
Next
Print line                                            // expect: 1,2,3,4,5,6,7,8,9,0,1,2,
Try
  s = "before " + Boom(1) + " after"
Catch
  Print "raised, " + s + " kept"                      // expect: raised, A-B-C kept
End Try
Print "after " + Boom(0) + "!"                        // expect: after never!
