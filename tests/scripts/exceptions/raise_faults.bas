// Raise takes only exceptions; a Catch type must be an exception class.
Raise 5
Raise "text"
Try
Catch e As Integer
End Try
// expect error 2 2
// expect error 3 2
// expect error 5 35
