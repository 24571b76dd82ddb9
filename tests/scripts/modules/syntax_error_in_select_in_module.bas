// A syntax error inside a Select Case of a module's function, after an
// unknown name: both are reported, and the blocks the recovery leaves
// open do not reach the main body's assembly.
Module Colors
  Enum Shade
  End Enum
  Function Name(s As Shade) As String
    Select Case s
    Case Shade.Light
      Return "light"
For   Case Shade.Dark
    End Select
  End Function
End Module
// expect error 9 11
// expect error 11 1
