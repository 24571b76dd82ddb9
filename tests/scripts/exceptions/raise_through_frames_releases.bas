// An exception crosses three frames that each hold a string, an array and
// an object; every frame releases them on the way. Run many times, the
// process stays the same size and nothing leaks (run it under
// AddressSanitizer to see the latter).
Class Payload
  Dim text As String
  Dim numbers() As Integer
End Class
Class Bounce
  Inherits RuntimeException
End Class

Sub Third(n As Integer)
  Dim s As String = "third " + Str(n)
  Dim a(3) As String
  a(1) = s + "!"
  Dim p As New Payload
  p.text = s
  p.numbers.Append(n)
  Dim e As New Bounce
  e.Message = s
  Raise e
End Sub
Sub Second(n As Integer)
  Dim s As String = "second " + Str(n)
  Dim a(2) As Payload
  a(0) = New Payload
  Third(n)
End Sub
Sub First(n As Integer)
  Dim s As String = "first " + Str(n)
  Dim o As New Payload
  o.numbers.Append(n)
  Second(n)
End Sub

Dim caught As Integer
Dim i As Integer
For i = 1 To 100000
  Try
    First(i)
  Catch e As Bounce
    caught = caught + 1
  End Try
Next
Print Str(caught) + " caught"
// expect: 100000 caught
