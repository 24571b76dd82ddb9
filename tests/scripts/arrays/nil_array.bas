// An array variable that holds no array raises NilObjectException when
// used.
Function Nothing() As Integer()
End Function
Dim a() As Integer = Nothing()
Try
  a(0) = 1
Catch
  Print "caught"
End Try
Print Str(UBound(a))
// expect: caught
// expect runtime error: NilObjectException
