// A runtime function raises after the script has called a Function of
// its own: the called Function's frame is gone by then, and its handler
// must not take the exception.
Function F() As Integer
End Function
Dim b(2) As Integer
Dim c As Integer = F()
Print "before"
Print Str(b(5))
Print "not reached"
// expect: before
// expect runtime error: OutOfBoundsException
