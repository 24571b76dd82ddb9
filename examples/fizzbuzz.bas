// FizzBuzz from 1 to 15: Select Case on a computed value, For loops and
// string building.
Function Word(n As Integer) As String
  Select Case n Mod 15
  Case 0
    Return "FizzBuzz"
  Case 3, 6, 9, 12
    Return "Fizz"
  Case 5, 10
    Return "Buzz"
  Case Else
    Return Str(n)
  End Select
End Function

Dim line As String
For n As Integer = 1 To 15
  If n > 1 Then line = line + " "
  line = line + Word(n)
Next
Print line
