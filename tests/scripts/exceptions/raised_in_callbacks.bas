// An exception raised in a destructor or in an event handler goes up to
// the code that caused the call: the release or the RaiseEvent.
Class Failure
  Inherits RuntimeException
End Class
Class Fragile
  Sub Destructor()
    Print "destructor runs"
    Dim e As New Failure
    e.Message = "from the destructor"
    Raise e
  End Sub
End Class
Class Button
  Event Clicked(times As Integer)
  Sub Click()
    RaiseEvent Clicked(2)
    Print "not reached"
  End Sub
End Class
Class Panel
  Inherits Button
  Sub OnClick(times As Integer) Handles Clicked
    Dim e As New Failure
    e.Message = "from the handler, " + Str(times)
    Raise e
  End Sub
End Class

Sub Release()
  Dim f As New Fragile
  f = Nil
  Print "not reached"
End Sub
Try
  Release()
Catch e As Failure
  Print "caught " + e.Message
End Try
// expect: destructor runs
// expect: caught from the destructor

Dim p As New Panel
Try
  p.Click()
Catch e As Failure
  Print "caught " + e.Message
End Try
// expect: caught from the handler, 2
