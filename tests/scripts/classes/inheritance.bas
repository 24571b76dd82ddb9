// Inheritance: overrides chosen at run time through a base-class
// reference, the nearest override winning; Super reaching the parent's
// method past the vtable; constructors of both forms; destructors from the
// object's own class up to the root; protected members used in a subclass.
Class Animal
  Dim name As String
  Sub Constructor(n As String)
    name = n
    Print "animal " + n
  End Sub
  Function Speak() As String
    Return "..."
  End Function
  Function Intro() As String
    Return name + " says " + Speak()
  End Function
  Protected Function Kind() As String
    Return "animal"
  End Function
  Sub Destructor()
    Print "animal gone " + name
  End Sub
End Class
Class Dog
  Inherits Animal
  Sub Constructor(n As String)
    Super.Constructor(n)
    Print "dog " + n
  End Sub
  Function Speak() As String
    Return "woof"
  End Function
  Function Describe() As String
    Return name + " is an " + Kind()
  End Function
  Sub Destructor()
    Print "dog gone " + name
  End Sub
End Class
Class Puppy
  Inherits Dog
  Function Speak() As String
    Return "yip (" + Super.Speak() + ")"
  End Function
End Class
Dim a As Animal = New Dog("rex")
Print a.Intro
a = New Puppy("bit")
Print a.Intro
Dim d As Dog = New Dog("max")
Print d.Describe
d = Nil
a = Nil
// The old form: a constructor named after the class; a subclass without
// one of its own is built by its parent's, and the nearer class wins.
Class Shape
  Dim sides As Integer
  Sub Shape(n As Integer)
    sides = n
  End Sub
End Class
Class Square
  Inherits Shape
End Class
Class Triangle
  Inherits Shape
  Sub Triangle(n As Integer)
    sides = n + 100
  End Sub
End Class
Dim s As New Square(4)
Dim t As New Triangle(3)
Print Str(s.sides) + " " + Str(t.sides)
// expect: animal rex
// expect: dog rex
// expect: rex says woof
// expect: animal bit
// expect: dog bit
// expect: dog gone rex
// expect: animal gone rex
// expect: bit says yip (woof)
// expect: animal max
// expect: dog max
// expect: max is an animal
// expect: dog gone max
// expect: animal gone max
// expect: dog gone bit
// expect: animal gone bit
// expect: 4 103
