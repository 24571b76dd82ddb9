// A bound whose element count does not fit 32 bits raises
// OutOfMemoryException and leaves the array as it was, in one dimension
// and in several.
Dim a(2) As Integer
a(2) = 5
Try
  Redim a(2147483647)
Catch
  Print "one dimension refused"         // expect: one dimension refused
End Try
Print Str(UBound(a)) + " " + Str(a(2))  // expect: 2 5
Dim g(1, 1) As Double
Try
  Redim g(65536, 65536)
Catch
  Print "two dimensions refused"        // expect: two dimensions refused
End Try
Print Str(UBound(g, 1)) + " " + Str(UBound(g, 2))   // expect: 1 1
Dim b() As Integer
Redim b(2147483647)
// expect runtime error: OutOfMemoryException
