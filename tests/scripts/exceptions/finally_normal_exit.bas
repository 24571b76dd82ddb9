// Finally runs when the protected code ends normally, and the statement
// after the Try goes on; in a method its locals are still there.
Sub Tidy(name As String)
  Dim note As String = "done " + name
  Try
    Print "working " + name
  Finally
    Print note
  End Try
  Print "after " + name
End Sub
Try
  Print "body"
Finally
  Print "finally"
End Try
Print "after"
Tidy("a")
Tidy("b")
// expect: body
// expect: finally
// expect: after
// expect: working a
// expect: done a
// expect: after a
// expect: working b
// expect: done b
// expect: after b
