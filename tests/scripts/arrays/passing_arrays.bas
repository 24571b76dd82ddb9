// Arrays as parameters (shared, so changes show), ByRef (the variable
// itself can be replaced), function results, ParamArray, and string
// elements that outlive the names that made them.
Function Sum(ParamArray values As Integer) As Integer
  Dim total As Integer
  For Each v As Integer In values
    total = total + v
  Next
  Return total
End Function
Sub Fill(a() As String, text As String)
  For i As Integer = 0 To a.UBound
    a(i) = text + Str(i)
  Next
End Sub
Sub Replace(ByRef a() As String)
  a = Array("new")
End Sub
Function Range(n As Integer) As Integer()
  Dim r() As Integer
  For i As Integer = 1 To n
    r.Append(i * i)
  Next
  Return r
End Function
Print Str(Sum()) + " " + Str(Sum(4)) + " " + Str(Sum(1, 2, 3, 4))   // expect: 0 4 10
Dim names(2) As String
Fill(names, "n")
Print names(0) + names(2)                                           // expect: n0n2
Replace(names)
Print Str(names.UBound) + " " + names(0)                            // expect: 0 new
Dim squares() As Integer = Range(5)
Print Str(squares(4)) + " " + Str(UBound(Range(3)))                 // expect: 25 2
Dim kept As String
For pass As Integer = 1 To 3
  Dim parts() As String = Split("a-b-" + Str(pass), "-")
  kept = kept + parts(2)
Next
Print kept                                                          // expect: 123
#pragma BoundsChecking False
Dim fast(1) As Integer
fast(1) = 7
Print Str(fast(1))                                                  // expect: 7
