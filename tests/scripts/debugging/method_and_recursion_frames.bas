// Frames name methods by class and method; a recursion shows each of its
// frames, and an index out of bounds deep in it is reported where it was
// used.
Class Node
  Dim mValues() As Integer
  Dim mValue As Integer
  Function Sum(depth As Integer) As Integer
    If depth = 0 Then Return mValues(3)
    Return mValue + Sum(depth - 1)
  End Function
End Class

Function Walk() As Integer
  Dim n As New Node
  n.mValue = 1
  Return n.Sum(2)
End Function

Print Str(Walk())
// expect runtime error: OutOfBoundsException
// expect frame: Node.Sum 8
// expect frame: Node.Sum 9
// expect frame: Node.Sum 9
// expect frame: Walk 16
// expect frame: <main> 19
