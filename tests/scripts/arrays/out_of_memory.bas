// A buffer larger than the heap can give raises OutOfMemoryException and
// leaves the array as it was; uncaught, it ends the run.
Dim b(1) As Integer
b(1) = 42
Try
  Redim b(2000000000)
Catch
  Print "caught"
End Try
Print Str(UBound(b)) + " " + Str(b(1))
Dim huge(30000, 30000, 30000) As String
Print "not reached"
// expect: caught
// expect: 1 42
// expect runtime error: OutOfMemoryException
