// Hello from QuorlScript: a greeting framed in a box, drawn with string
// functions and a loop, compiled to machine code and run.
Function Repeat(s As String, count As Integer) As String
  Dim result As String
  For i As Integer = 1 To count
    result = result + s
  Next
  Return result
End Function

Sub Framed(text As String)
  Dim border As String = "+" + Repeat("-", Len(text) + 2) + "+"
  Print border
  Print "| " + text + " |"
  Print border
End Sub

Framed("Hello from QuorlScript!")
Print "Compiled to IA-32 machine code " + "in memory, run on " + Uppercase("your") + " thread."
