// A class's own __Init or __Exit that the runtime could not call (it
// passes the object alone and takes no result) is error 142: one with a
// parameter, a Function, and two of one name.
Class Takes
  Private Sub __Init(n As Integer)
  End Sub
End Class
Class Gives
  Private Function __Init() As Integer
  End Function
End Class
Class Twice
  Private Sub __Exit()
  End Sub
  Private Sub __Exit(s As String)
  End Sub
End Class
// expect error 5 142
// expect error 9 142
// expect error 15 142
