// An exception nobody catches, raised four calls deep: quorl prints the
// error and below it the call stack, the raise first, then each call that
// led there, each with its function and line.
Function Four(items() As Integer, n As Integer) As Integer
  Dim label As String = "four"
  Return items(n)
End Function

Function Three(n As Integer) As Integer
  Dim items(2) As Integer
  Dim total As Integer = 1
  total = total + Four(items, n + 1)
  Return total
End Function

Sub Two(label As String)
  Print label
  Print Str(Three(5))
End Sub

Sub One()
  Two("going down")
End Sub

Print "start"
One
Print "not reached"
// expect: start
// expect: going down
// expect runtime error: OutOfBoundsException
// expect frame: Four 6
// expect frame: Three 12
// expect frame: Two 18
// expect frame: One 22
// expect frame: <main> 26
