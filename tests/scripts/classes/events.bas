// Events: RaiseEvent with and without a result, handled by a subclass's
// methods declared with Handles; an event nobody handles does nothing and
// gives the zero value.
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
// expect: clicked 3
// expect: valid
// expect: invalid
// expect: no handler
