// A conversion that cannot be made raises TypeMismatchException, which a
// script can catch; uncaught, it ends the run.
Class Thing
End Class
Dim holder As Variant = New Thing
Dim number As Variant = 5
Try
  Dim n As Integer = holder
  Print "not reached"
Catch
  Print "an object is no Integer"
End Try
Try
  Print holder.StringValue
Catch
  Print "an object has no text"
End Try
Try
  Dim o As Object = number
Catch
  Print "a number is no object"
End Try
Try
  Dim sum As Variant = holder + number
Catch
  Print "no arithmetic on objects"
End Try
Try
  If holder < number Then Print "not reached"
Catch
  Print "an object does not compare with a number"
End Try
Try
  Dim t As Thing = Thing(number)
Catch
  Print "a number does not cast to a class"
End Try
Dim b As Boolean = holder
Print "not reached"
// expect: an object is no Integer
// expect: an object has no text
// expect: a number is no object
// expect: no arithmetic on objects
// expect: an object does not compare with a number
// expect: a number does not cast to a class
// expect runtime error: TypeMismatchException
