// Element reads and writes of one-dimensional arrays of every plain kind,
// at the edges of their bounds, with the raise landing in the function
// itself, in a caller, and inside a loop that goes on.
Dim flags(3) As Boolean
Dim bytes(2) As UInt8
Dim words(2) As Integer
Dim reals(2) As Double
flags(3) = True
bytes(1) = 255
bytes(2) = bytes(1) + 1
words(0) = -2147483648
reals(2) = 0.1 + 0.2
If flags(3) And Not flags(0) Then Print "flags"                    // expect: flags
Print Str(bytes(1)) + " " + Str(bytes(2))               // expect: 255 0
Print Str(words(0) - 1) + " " + Str(reals(2) * 10)     // expect: 2147483647 3

Function ReadAt(values() As Double, at As Integer) As Double
  Return values(at) + 1
End Function

Dim caught As Integer
For at As Integer = -2 To 4
  Try
    Print Str(ReadAt(reals, at))
  Catch
    caught = caught + 1
  End Try
Next
// expect: 1
// expect: 1
// expect: 1.3
Print Str(caught)                                       // expect: 4

Sub WriteEach(values() As Integer, last As Integer)
  For k As Integer = 0 To last
    Try
      values(k) = k * 10
    Catch
      Print "stopped at " + Str(k)
      Exit Sub
    End Try
  Next
End Sub
WriteEach(words, 5)                                     // expect: stopped at 3
Print Str(words(0) + words(1) + words(2))               // expect: 30

Dim none() As Integer
Try
  none(0) = 1
Catch
  Print "empty array refuses index 0"                   // expect: empty array refuses index 0
End Try
Dim unset() As Integer
unset = Nil
Try
  Print Str(unset(0))
Catch
  Print "nil array"                                     // expect: nil array
End Try

// Indexes kept in registers across the raise of an element on a rare path.
Dim sum As Integer
Dim hits As Integer
For i As Integer = 0 To 9
  For j As Integer = 0 To 3
    Try
      sum = sum + words(j) + i
      hits = hits + 1
    Catch
      sum = sum - 1
    End Try
  Next
Next
Print Str(sum) + " " + Str(hits)                        // expect: 425 30
