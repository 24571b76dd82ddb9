// An exception raised in a method called through a delegate reaches the
// handler around the call, and so does one of a call through nil.
Module Ops
  Delegate Function Fn(n As Integer) As Integer
  Function Boom(n As Integer) As Integer
    Dim a() As Integer
    Return a(n)
  End Function
End Module
Dim f As Ops.Fn = AddressOf Ops.Boom
Try
  Print Str(f.Invoke(3))
Catch e
  Print "caught through the delegate"
End Try
Dim g As Ops.Fn
Try
  Print Str(g.Invoke(1))
Catch e2
  Print "nil delegate caught"
End Try
// expect: caught through the delegate
// expect: nil delegate caught
