// Structures declared inside a class: its own members and methods use them
// by their bare names, code outside by the class's name where the scope
// word allows, and a subclass sees the public and protected ones as its
// own. A structure of the same name at the top keeps its own meaning
// outside the class.
Module Plane
  Structure Point
    X As Integer
    Y As Integer
    Z As Integer
  End Structure
End Module
Class Shape
  Structure Point
    X As Integer
    Y As Integer
  End Structure
  Public Structure Box
    TopLeft As Point
    BottomRight As Point
    Label As String * 6
  End Structure
  Private Structure Counter
    Hits As Integer
  End Structure
  Protected Structure Extent
    Width As Double
    Height As Double
  End Structure
  Origin As Point
  Bounds As Box
  Private mCount As Counter
  Shared Last As Point
  Sub MoveBy(d As Point)
    Origin.X = Origin.X + d.X
    Origin.Y = Origin.Y + d.Y
    mCount.Hits = mCount.Hits + 1
    Last = Origin
  End Sub
  Sub Reset(ByRef p As Point)
    p.X = 0
    p.Y = 0
  End Sub
  Function Corner() As Point
    Dim p As Point = Origin
    p.X = p.X + 10
    Return p
  End Function
  Function Hits() As Integer
    Dim copy As Counter = mCount
    Return copy.Hits
  End Function
  Function Size() As Extent
    Dim e As Extent
    e.Width = Bounds.BottomRight.X - Bounds.TopLeft.X
    e.Height = Bounds.BottomRight.Y - Bounds.TopLeft.Y
    Return e
  End Function
  Function PointBytes() As Integer
    Return Point.Size
  End Function
End Class
Class Square
  Inherits Shape
  Function Area() As Double
    Dim e As Extent = Size()
    Dim viaParent As Shape.Extent = e
    Return viaParent.Width * e.Height
  End Function
  Function Start() As Point
    Return Origin
  End Function
End Class
Function Describe(p As Shape.Point) As String
  Return Str(p.X) + "," + Str(p.Y)
End Function
Function Mirror(p As Shape.Point) As Shape.Point
  Dim m As Shape.Point
  m.X = p.Y
  m.Y = p.X
  Return m
End Function

Dim s As New Shape
Dim delta As Shape.Point
delta.X = 2
delta.Y = 3
s.MoveBy(delta)
s.MoveBy(delta)
Print Describe(s.Origin)                 // expect: 4,6
Print Describe(s.Corner)                 // expect: 14,6
Print Describe(Mirror(s.Corner))         // expect: 6,14
Print Str(s.Hits)                        // expect: 2
Print Describe(Shape.Last)               // expect: 4,6
// By value the method works on a copy; ByRef on the caller's.
s.MoveBy(delta)
Print Describe(delta)                     // expect: 2,3
s.Reset(delta)
Print Describe(delta)                     // expect: 0,0
// The sizes tell the nested Point from the module's.
Print Str(Shape.Point.Size)              // expect: 8
Print Str(s.PointBytes)                  // expect: 8
Print Str(Plane.Point.Size)              // expect: 12
Print Str(Shape.Box.Size)                // expect: 22
// Nested structures as fields, fixed strings, copies and arrays.
s.Bounds.TopLeft.X = 1
s.Bounds.BottomRight.X = 5
s.Bounds.BottomRight.Y = 3
s.Bounds.Label = "frame"
Dim b As Shape.Box = s.Bounds
b.Label = "copy"
Print s.Bounds.Label + " " + b.Label     // expect: frame copy
Dim row(2) As Shape.Point
row(2) = s.Origin
row(2).X = 99
Print Describe(row(2)) + " " + Describe(s.Origin)  // expect: 99,9 6,9
Dim q As New Square
q.Bounds = s.Bounds
q.MoveBy(row(2))
Print Str(q.Area)                        // expect: 12
Print Describe(q.Start)                  // expect: 99,9
Dim asPoint As Square.Point = q.Start
Print Str(asPoint.Y)                     // expect: 9
// A class in a module: code in the module names its structures through
// the class alone, code outside through the module too. A structure may
// hold one of the module's, and a property may take its type's name.
Module Geo
  Structure Pair
    A As Integer
    B As Integer
  End Structure
  Class Grid
    Private Structure Cell
      X As Integer
      Pair As Pair
    End Structure
    Public Structure Spot
      Row As Integer
    End Structure
    Dim Cell As Cell
    Dim Cells(2) As Cell
    Shared Function Make(x As Integer) As Integer
      Dim c As Grid.Cell
      c.X = x
      c.Pair.B = x * 2
      Return c.X + c.Pair.B
    End Function
  End Class
  Function Twice() As Integer
    Dim g As New Grid
    g.Cells(2).X = 21
    Dim s As Grid.Spot
    s.Row = g.Cells(2).X * 2
    Return s.Row
  End Function
End Module
Print Str(Geo.Grid.Make(5))              // expect: 15
Print Str(Geo.Twice)                     // expect: 42
Dim spot As Geo.Grid.Spot
spot.Row = 7
Print Str(spot.Row + Geo.Grid.Spot.Size) // expect: 11
