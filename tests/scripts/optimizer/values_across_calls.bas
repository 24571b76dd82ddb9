// Loop variables held in registers stay right when a call in the loop body
// changes a global, reads it, or raises; a handler in the loop sees the
// values as they were when the raise left the loop body.
Dim counter As Integer
Dim total As Integer
Sub Bump()
  counter = counter + 10
End Sub
Function Peek() As Integer
  Return counter
End Function
For i As Integer = 1 To 5
  counter = counter + 1
  Bump()
  total = total + Peek()
Next
Print Str(counter) + " " + Str(total)          // expect: 55 165

Function Sum(n As Integer) As Integer
  Dim s As Integer
  Dim k As Integer
  For k = 1 To n
    s = s + k * Peek()
  Next
  Return s + k
End Function
counter = 2
Print Str(Sum(4))                              // expect: 25

// Each raise leaves the loop body in the middle; the counts stay exact.
Dim values(3) As Integer
Dim caught As Integer
Dim done As Integer
For i As Integer = 0 To 9
  Try
    values(i) = i
    done = done + 1
  Catch
    caught = caught + i
  End Try
Next
Print Str(done) + " " + Str(caught)            // expect: 4 39

Function Deep(n As Integer) As Integer
  Return Deep(n + 1) + 1
End Function
Dim rounds As Integer
For i As Integer = 1 To 3
  Try
    rounds = rounds + Deep(i)
  Catch
    rounds = rounds + 100 * i
  End Try
Next
Print Str(rounds)                              // expect: 600
