// Interfaces: a class's vtable for each interface it implements, filled
// with the nearest implementation (a parent's method fills a slot, an
// override in a subclass replaces it); IsA, casts and Is on objects.
Interface Speaker
  Function Speak() As String
  Sub Shout(times As Integer)
End Interface
Interface Named
  Function Name() As String
End Interface
Class Base
  Function Speak() As String
    Return "base"
  End Function
  Sub Shout(times As Integer)
    Print "shout x" + Str(times) + " " + Speak()
  End Sub
End Class
Class Child
  Inherits Base
  Implements Speaker
  Implements Named
  Function Name() As String
    Return "child"
  End Function
End Class
Class GrandChild
  Inherits Child
  Function Speak() As String
    Return "grandchild"
  End Function
End Class
Dim s As Speaker = New Child
Print s.Speak
s.Shout(2)
s = New GrandChild
Print s.Speak
s.Shout(1)
Dim o As Object = s
If o IsA Named Then Print "named " + Named(o).Name
If o IsA Base Then Print "a base"
If o IsA Speaker Then Print "speaker"
Dim b As Base = New Base
Dim o2 As Object = b
If Not (o2 IsA Speaker) Then Print "base is no speaker"
Dim g As GrandChild = GrandChild(o)
Print g.Speak
If g Is o Then Print "same"
Try
  Dim c As Child = Child(o2)
Catch
  Print "bad cast"
End Try
Dim n As Named = Named(o)
Print n.Name
Interface Base2
  Sub Hello()
End Interface
Interface Derived2
  Inherits Base2
  Sub Bye()
End Interface
Class Greeter
  Implements Derived2
  Sub Hello()
    Print "hello"
  End Sub
  Sub Bye()
    Print "bye"
  End Sub
End Class
Dim greets As Object = New Greeter
If greets IsA Base2 Then Print "inherited interface"
Derived2(greets).Bye
Dim none As Speaker
Try
  none.Shout(1)
Catch
  Print "nil interface"
End Try
// expect: base
// expect: shout x2 base
// expect: grandchild
// expect: shout x1 grandchild
// expect: named child
// expect: a base
// expect: speaker
// expect: base is no speaker
// expect: grandchild
// expect: same
// expect: bad cast
// expect: child
// expect: inherited interface
// expect: bye
// expect: nil interface
