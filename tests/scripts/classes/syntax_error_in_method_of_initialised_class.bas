// A syntax error inside a method of a class whose fields have initialisers
// is reported; the initialiser function made at the end of the class does
// not trip over the method's table left open.
Class Node
  Dim tag As String = "n"
  Function Sum() As Integer
    Dim total As Integer = 1
    For Each c   Node In children
  End Function
End Class
// expect error 8 1
