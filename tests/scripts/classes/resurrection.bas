// A destructor that stores its object elsewhere keeps it alive: the
// fields stay as they were, the parents' destructors are not called, and
// the object dies when that reference goes.
Dim saved As Phoenix
Class Bird
  Sub Destructor()
    Print "bird gone"
  End Sub
End Class
Class Phoenix
  Inherits Bird
  Dim lives As Integer = 2
  Dim tag As String = "phoenix"
  Sub Destructor()
    lives = lives - 1
    Print "burning, lives " + Str(lives)
    If lives > 0 Then saved = Self
  End Sub
End Class
Dim p As New Phoenix
p = Nil
Print "after first: " + saved.tag
saved = Nil
Print "after second"
// expect: burning, lives 1
// expect: after first: phoenix
// expect: burning, lives 0
// expect: bird gone
// expect: after second
