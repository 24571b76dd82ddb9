// A Finally that calls its own function again runs once more for every
// overflow, each time a frame deeper, below the stack limit. Past a depth
// the overflow ends the run instead of the process.
Function Down(n As Integer) As Integer
Finally
  Return Down(n + 1) + 1
End Function
Try
  Dim k As Integer = Down(1)
End Try
// expect runtime error 4: StackOverflowException: The stack overflowed: calls were nested too deeply
