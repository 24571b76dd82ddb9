// Frames name methods by class and method; a recursion shows each of its
// frames, and a Nil object used deep in it is reported where it was used.
Class Node
  Dim mNext As Node
  Dim mValue As Integer
  Function Sum(depth As Integer) As Integer
    If depth = 0 Then Return mNext.mValue
    Return mValue + Sum(depth - 1)
  End Function
End Class

Function Walk() As Integer
  Dim n As New Node
  n.mValue = 1
  Return n.Sum(2)
End Function

Print Str(Walk())
// expect runtime error: NilObjectException
// expect frame: Node.Sum 7
// expect frame: Node.Sum 8
// expect frame: Node.Sum 8
// expect frame: Walk 15
// expect frame: <main> 18
