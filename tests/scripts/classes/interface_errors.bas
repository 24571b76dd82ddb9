// A class that names an interface must implement each of its methods,
// itself or through a parent (29, at the Implements line); only an
// interface can be implemented (27).
Interface Walker
  Sub Walk()
  Function Legs() As Integer
End Interface
Class Table
  Implements Walker
  Function Legs() As Integer
    Return 4
  End Function
End Class
Class Robot
  Sub Walk()
  End Sub
End Class
Class Android
  Inherits Robot
  Implements Walker
  Function Legs() As Integer
    Return 2
  End Function
End Class
Class Odd
  Implements Robot
End Class
// expect error 9 29
// expect error 26 27
