// Structures as parameters and results: by value the callee works on its
// own copy, ByRef on the caller's; a result is a fresh value.
Module Geometry
  Structure Point
    X As Integer
    Y As Integer
  End Structure
End Module
Sub MoveCopy(p As Geometry.Point)
  p.X = p.X + 100
  Print "callee sees " + Str(p.X)
End Sub
Sub MoveInPlace(ByRef p As Geometry.Point)
  p.X = p.X + 100
End Sub
Sub ReplaceCopy(p As Geometry.Point)
  Dim other As Geometry.Point
  other.X = -1
  p = other
End Sub
Sub ReplaceInPlace(ByRef p As Geometry.Point)
  Dim other As Geometry.Point
  other.X = -2
  p = other
End Sub
Function MakePoint(x As Integer, y As Integer) As Geometry.Point
  Dim p As Geometry.Point
  p.X = x
  p.Y = y
  Return p
End Function
Function Sum(p As Geometry.Point) As Integer
  Return p.X + p.Y
End Function
Dim p As Geometry.Point
p.X = 1
MoveCopy(p)                           // expect: callee sees 101
Print Str(p.X)                        // expect: 1
MoveInPlace(p)
Print Str(p.X)                        // expect: 101
Dim q As Geometry.Point = MakePoint(5, 6)
Print Str(q.X) + "," + Str(q.Y)       // expect: 5,6
Print Str(MakePoint(8, 9).Y)          // expect: 9
Print Str(Sum(MakePoint(2, 3)))       // expect: 5
q = MakePoint(7, 7)
Print Str(Sum(q))                     // expect: 14
// A whole new value assigned in the callee: only ByRef reaches the caller.
ReplaceCopy(q)
Print Str(q.X)                        // expect: 7
ReplaceInPlace(q)
Print Str(q.X)                        // expect: -2
Dim row(1) As Geometry.Point
row(1).X = 3
ReplaceCopy(row(1))
Print Str(row(1).X)                   // expect: 3
