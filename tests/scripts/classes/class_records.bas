// Class records as values, a user's own field initialiser, and a custom
// allocator: a New inside a class that has a __New calls it with the class
// record and takes the object it gives.
Class Animal
End Class
Class Dog
  Inherits Animal
End Class
Dim a As Animal = New Dog
Dim c As Class = Class Of a
Print c.Name
Dim d As Class = Class Animal
Print d.Name
Class Pool
  Dim spare As Pool
  Dim label As String
  Private Sub __Init()
    label = "fresh"
  End Sub
  Function __New(cls As Class) As Pool
    Print "allocating a " + cls.Name
    Return spare
  End Function
  Function Make() As Pool
    Return New Pool
  End Function
End Class
Dim first As New Pool
Print first.label
Dim keep As New Pool
keep.label = "kept"
first.spare = keep
Dim second As Pool = first.Make()
If second Is keep Then Print "reused " + second.label
// expect: Dog
// expect: Animal
// expect: fresh
// expect: allocating a Pool
// expect: reused kept
