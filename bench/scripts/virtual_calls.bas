// Virtual calls: twenty million calls of an overridden method through a
// base-class reference, over objects of four subclasses in turn.
Class Shape
  Function Weight(n As Integer) As Integer
    Return 0
  End Function
End Class
Class Circle
  Inherits Shape
  Function Weight(n As Integer) As Integer
    Return n + 1
  End Function
End Class
Class Square
  Inherits Shape
  Function Weight(n As Integer) As Integer
    Return n * 2
  End Function
End Class
Class Triangle
  Inherits Shape
  Function Weight(n As Integer) As Integer
    Return n - 3
  End Function
End Class
Class Hexagon
  Inherits Shape
  Function Weight(n As Integer) As Integer
    Return n \ 2
  End Function
End Class

Dim shapes(3) As Shape
shapes(0) = New Circle
shapes(1) = New Square
shapes(2) = New Triangle
shapes(3) = New Hexagon
Dim total As Integer = 0
For i As Integer = 0 To 19999999
  Dim s As Shape = shapes(i Mod 4)
  total = (total + s.Weight(i Mod 1000)) Mod 1000000007
Next
Print Str(total)
