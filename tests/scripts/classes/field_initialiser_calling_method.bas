// A field's initialiser is a constant: calling a method of the class there
// is error 32 (there is no Self yet), not a fault of the compiler.
Class C
  Function Hold() As Integer
    Return 4
  End Function
  Dim t As Integer = Hold()
End Class
// expect error 7 32
// expect error 7 126
// expect error 7 1
