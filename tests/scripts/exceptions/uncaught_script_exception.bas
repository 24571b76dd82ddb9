// An exception nobody catches ends the run; the report names the line it
// was raised at, its class and its message, after the output before it.
Class QuotaExceeded
  Inherits RuntimeException
End Class
Sub Spend(amount As Integer)
  Dim e As New QuotaExceeded
  e.Message = "spent " + Str(amount) + " of 100"
  e.ErrorNumber = 3
  Raise e
End Sub
Print "spending"
Spend(150)
Print "not reached"
// expect: spending
// expect runtime error 10: QuotaExceeded: spent 150 of 100
