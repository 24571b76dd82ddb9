// A Function opened inside another, whose End Function never comes, is one
// syntax error at the inner header: the statements gathered before it do
// not take the compiler down.
Module Talk
  Delegate Function Speaker(times As Integer) As String
End Module
Function Kind() As String
  Return "a"
  Function Myself() As Talk.Speaker   // expect error 9 1
  End Function
