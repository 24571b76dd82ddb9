// A destructor that stores its object elsewhere keeps it alive: the
// fields stay as they were, and the object dies when that reference goes.
Dim saved As Phoenix
Class Phoenix
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
// expect: after second
