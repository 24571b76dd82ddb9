// Objects live exactly as long as their last reference: the destructor
// runs when it goes, once, whether the reference was a variable, a field,
// a temporary or a parameter. At the end the globals go in the order of
// their declaration.
Class Tracked
  Dim name As String
  Dim partner As Tracked
  Sub Destructor()
    Print "bye " + name
  End Sub
End Class
Function Make(n As String) As Tracked
  Dim t As New Tracked
  t.name = n
  Return t
End Function
Sub Use(t As Tracked)
  Print "using " + t.name
End Sub
Dim a As Tracked = Make("a")
a = Nil
Print "after a"
Dim b As Tracked = Make("b")
Dim b2 As Tracked = b
b = Nil
Print "b still held"
b2 = Make("b-next")
Print "after b"
Use(Make("temp"))
Print "after temp"
Dim outer As Tracked = Make("outer")
outer.partner = Make("inner")
outer = Nil
Print "after chain"
Sub Scoped()
  Dim local As Tracked = Make("local")
  Print "in scope"
End Sub
Scoped
Print "after scope"
Dim last As Tracked = Make("last")
// expect: bye a
// expect: after a
// expect: b still held
// expect: bye b
// expect: after b
// expect: using temp
// expect: bye temp
// expect: after temp
// expect: bye outer
// expect: bye inner
// expect: after chain
// expect: in scope
// expect: bye local
// expect: after scope
// expect: bye b-next
// expect: bye last
