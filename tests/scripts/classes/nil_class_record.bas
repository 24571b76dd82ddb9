// A class record variable that holds none yet: reading its Name raises
// NilObjectException, which a Catch takes like any other.
Class Animal
End Class
Dim unset As Class
Try
  Print unset.Name
Catch e As NilObjectException
  Print "nil record caught"
End Try
unset = Class Animal
Print unset.Name
Dim never As Class
Print never.Name
// expect: nil record caught
// expect: Animal
// expect runtime error 14: NilObjectException: An object was used that is Nil
