// The runtime's own exceptions, uncaught, report their class and message.
Class Node
  Dim value As Integer
End Class
Dim n As Node
Print "before"
Print Str(n.value)
// expect: before
// expect runtime error 7: NilObjectException: An object was used that is Nil
