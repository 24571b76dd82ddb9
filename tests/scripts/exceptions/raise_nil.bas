// Raising nil does nothing: execution goes on after the Raise, and no
// handler is entered.
Dim nothing As RuntimeException
Try
  Raise nothing
  Print "after raise"
Catch
  Print "not reached"
End Try
Raise Nil
Print "end"
// expect: after raise
// expect: end
