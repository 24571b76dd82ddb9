// A Catch type must be a class derived from RuntimeException, and Raise
// takes only such objects.
Interface Shape
  Sub Draw()
End Interface
Class Plain
End Class
Try
Catch e As Object
End Try
Try
Catch e As Shape
End Try
Try
Catch e As Plain
End Try
Dim p As New Plain
Raise p
Raise Nil
// expect error 9 35
// expect error 12 35
// expect error 15 35
// expect error 18 2
