// A class record variable that holds none yet: reading its Name raises
// NilObjectException, which a Catch takes like any other; so does asking
// the class of a Nil object.
Class Animal
End Class
Dim unset As Class
Try
  Print unset.Name
Catch e As NilObjectException
  Print "nil record caught"
End Try
Dim nobody As Animal
Try
  unset = Class Of nobody
Catch e As NilObjectException
  Print "class of nil caught"
End Try
unset = Class Animal
Print unset.Name
Dim never As Class
Print never.Name
// expect: nil record caught
// expect: class of nil caught
// expect: Animal
// expect runtime error 21: NilObjectException: An object was used that is Nil
