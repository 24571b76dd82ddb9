// A script's exceptions derive from RuntimeException or from one of the
// runtime's own: they carry a Message and an ErrorNumber that the script
// sets and reads, fields of their own behind those, and a handler of any
// class on their chain takes them.
Class ValidationError
  Inherits RuntimeException
  Dim field As String
  Sub Constructor(fieldName As String, text As String)
    field = fieldName
    Message = text
    ErrorNumber = 422
  End Sub
End Class
Class IndexTooLarge
  Inherits OutOfBoundsException
End Class

Sub Validate(age As Integer)
  If age < 0 Then Raise New ValidationError("age", "must not be negative")
End Sub

Try
  Validate(-1)
Catch e As ValidationError
  Print e.field + ": " + e.Message + " (" + Str(e.ErrorNumber) + ")"
End Try
// expect: age: must not be negative (422)

Dim plain As New RuntimeException
Print "[" + plain.Message + "] " + Str(plain.ErrorNumber)
plain.Message = "set by hand"
plain.ErrorNumber = -7
Try
  Raise plain
Catch e
  Print e.Message + " " + Str(e.ErrorNumber)
End Try
// expect: [] 0
// expect: set by hand -7

Dim big As New IndexTooLarge
big.Message = "index 99"
Try
  Raise big
Catch e As OutOfBoundsException
  Print "as out of bounds: " + e.Message
  If e IsA IndexTooLarge Then Print "and it is an IndexTooLarge"
  If e IsA RuntimeException Then Print "and a RuntimeException"
End Try
// expect: as out of bounds: index 99
// expect: and it is an IndexTooLarge
// expect: and a RuntimeException

// The message survives a change made while the exception is in flight.
Try
  Try
    Raise New ValidationError("name", "empty")
  Catch e As ValidationError
    e.Message = e.Message + ", checked twice"
    Raise e
  End Try
Catch e As RuntimeException
  Print e.Message
End Try
// expect: empty, checked twice
