// An array variable that holds no array raises NilObjectException when
// used: elements, Redim, methods and UBound alike.
Function Nothing() As Integer()
End Function
Dim a() As Integer = Nothing()
Try
  a(0) = 1
Catch
  Print "caught element"
End Try
Try
  Redim a(3)
Catch
  Print "caught redim"
End Try
Try
  a.Append(1)
Catch
  Print "caught method"
End Try
Print Str(UBound(a))
// expect: caught element
// expect: caught redim
// expect: caught method
// expect runtime error: NilObjectException
