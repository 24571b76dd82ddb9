// Events: RaiseEvent with and without a result, handled by a subclass's
// methods declared with Handles, also further down the chain; an event
// nobody handles does nothing and gives the zero value; where two classes
// of a chain handle one event, the one nearer the event's class stands.
Class Button
  Event Clicked(times As Integer)
  Event Validate(text As String) As Boolean
  Sub Click(n As Integer)
    RaiseEvent Clicked(n)
  End Sub
  Function Check(s As String) As Boolean
    Return RaiseEvent Validate(s)
  End Function
End Class
Class OkButton
  Inherits Button
  Sub OnClick(times As Integer) Handles Clicked
    Print "clicked " + Str(times)
  End Sub
  Function Validate(text As String) As Boolean Handles Validate
    Return text = "ok"
  End Function
End Class
Dim b As Button = New OkButton
b.Click(3)
If b.Check("ok") Then Print "valid"
If Not b.Check("no") Then Print "invalid"
Dim plain As New Button
plain.Click(1)
If Not plain.Check("ok") Then Print "no handler"
Class Source
  Event Ping(n As Integer)
  Sub Fire(n As Integer)
    RaiseEvent Ping(n)
  End Sub
End Class
Class Middle
  Inherits Source
  Sub Heard(n As Integer) Handles Ping
    Print "middle heard " + Str(n)
  End Sub
End Class
Class Leaf
  Inherits Middle
End Class
Class Other
  Inherits Source
End Class
Class Grand
  Inherits Other
  Sub Got(n As Integer) Handles Ping
    Print "grand got " + Str(n)
  End Sub
End Class
Class Deaf
  Inherits Middle
  Sub Ignored(n As Integer) Handles Ping
    Print "not called"
  End Sub
End Class
Dim s As Source = New Leaf
s.Fire(1)
s = New Grand
s.Fire(2)
s = New Deaf
s.Fire(3)
// expect: clicked 3
// expect: valid
// expect: invalid
// expect: no handler
// expect: middle heard 1
// expect: grand got 2
// expect: middle heard 3
