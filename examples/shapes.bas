// Classes: a family of shapes behind one interface, each computing its
// own area; a base class with a constructor, overrides chosen at run time,
// and an event that a subclass handles.
Interface Measurable
  Function Area() As Double
End Interface

Class Shape
  Implements Measurable
  Dim name As String
  Event Measured(area As Double)
  Sub Constructor(n As String)
    name = n
  End Sub
  Function Area() As Double
    Return 0
  End Function
  Function Report() As String
    Dim a As Double = Area()
    RaiseEvent Measured(a)
    Return name + ": " + Str(a)
  End Function
End Class

Class Rectangle
  Inherits Shape
  Dim width As Double
  Dim height As Double
  Sub Constructor(w As Double, h As Double)
    Super.Constructor("rectangle")
    width = w
    height = h
  End Sub
  Function Area() As Double
    Return width * height
  End Function
End Class

Class Circle
  Inherits Shape
  Dim radius As Double
  Sub Constructor(r As Double)
    Super.Constructor("circle")
    radius = r
  End Sub
  Function Area() As Double
    Return 3.14159 * radius * radius
  End Function
  Sub Big(area As Double) Handles Measured
    If area > 10 Then Print "(a big one)"
  End Sub
End Class

Dim shapes(2) As Shape
shapes(0) = New Rectangle(3, 4)
shapes(1) = New Circle(1)
shapes(2) = New Circle(2)
Dim total As Double
For Each s As Shape In shapes
  Print s.Report
  Dim m As Measurable = s
  total = total + m.Area
Next
Print "total: " + Str(total)
