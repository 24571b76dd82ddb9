// A variant that holds an object keeps it alive, and lets it go when the
// variant lets go of it; the object stands for itself, so casts, IsA and
// ObjectValue give it back.
Class Pet
  Dim name As String
  Sub Destructor()
    Print "bye " + name
  End Sub
End Class
Class Cat
  Inherits Pet
End Class
Function Make(n As String) As Pet
  Dim p As New Cat
  p.name = n
  Return p
End Function
Dim v As Variant = Make("rex")
Print "held by the variant"
Dim back As Pet = Pet(v)
If v IsA Cat Then Print "a Cat: " + back.name
If v.Type = Variant.TypeObject Then Print "type object"
Dim o As Object = v.ObjectValue
Dim w As Variant = o
If v = w And v.Equals(w) Then Print "the same object"
back = Nil
o = Nil
w = Nil
Print "still held"
v = 1
Print "after v"
// expect: held by the variant
// expect: a Cat: rex
// expect: type object
// expect: the same object
// expect: still held
// expect: bye rex
// expect: after v

// Two objects compare by identity.
Dim first As Variant = Make("a")
Dim second As Variant = Make("b")
If first <> second And Not first.Equals(second) Then Print "different objects"
first = Nil
second = Nil
// expect: different objects
// expect: bye a
// expect: bye b

// Variants in an array, in a field and passed around release what they
// hold as well.
Class Box
  Dim content As Variant
End Class
Sub Keep(x As Variant)
  Dim b As New Box
  b.content = x
  Print "kept " + Pet(b.content).name
End Sub
Keep(Make("temp"))
Dim shelf(1) As Variant
shelf(0) = Make("shelved")
shelf(1) = shelf(0)
shelf(0) = Nil
Print "one left"
shelf(1) = "text"
Print "end"
// expect: kept temp
// expect: bye temp
// expect: one left
// expect: bye shelved
// expect: end
