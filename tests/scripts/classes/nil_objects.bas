// A method called, or a field used, on Nil raises a NilObjectException that
// the script can catch; an uncaught one ends the run.
Class Box
  Dim content As Integer = 7
  Function Peek() As Integer
    Return content
  End Function
End Class
Dim b As Box
Try
  Print Str(b.Peek)
Catch err
  Print "caught call"
End Try
Try
  b.content = 1
Catch
  Print "caught field"
End Try
If b Is Nil Then Print "b is nil"
b = New Box
If Not (b Is Nil) Then Print "b holds " + Str(b.Peek)
b = Nil
Print Str(b.content)
// expect: caught call
// expect: caught field
// expect: b is nil
// expect: b holds 7
// expect runtime error: NilObjectException
