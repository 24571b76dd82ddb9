// What code may not do with a structure declared in a class: name a
// private one from outside the class, or a protected one from outside the
// class and its subclasses, with or without the class's name; reach a
// private one of a superclass by its bare name; name a nested structure
// without its class from outside; go through a private class; declare
// one twice; name anything inside a structure. Field faults are
// reported inside a class as anywhere.
Class Shape
  Private Structure Secret
    Code As Integer
  End Structure
  Protected Structure Extent
    Width As Integer
  End Structure
  Structure Point
    X As Integer
  End Structure
  Structure Point
    Y As Integer
  End Structure
  Structure Faulty
    Size As Integer
    Name As String * 0
  End Structure
  Hidden As Secret
End Class
Class Circle
  Inherits Shape
  Function Peek() As Integer
    Dim s As Secret
    Dim e As Extent
    Return e.Width
  End Function
End Class
Class Stranger
  Sub Look()
    Dim e As Shape.Extent
    Dim s As Shape.Secret
  End Sub
End Class
Sub Leak(s As Shape.Secret)
End Sub
Dim p As Point
Dim e As Shape.Extent
Print Str(Shape.Secret.Size)
Dim m As Shape.Missing
Dim ok As Shape.Point
Module Geo
  Private Class Hidden
    Structure Inner
      V As Integer
    End Structure
  End Class
End Module
Dim z As Geo.Hidden.Inner
Dim y As Shape.Point.Q
// expect error 18 22
// expect error 22 22
// expect error 23 116
// expect error 30 63
// expect error 37 121
// expect error 38 121
// expect error 41 121
// expect error 43 63
// expect error 44 121
// expect error 45 121
// expect error 46 63
// expect error 55 121
// expect error 56 11
