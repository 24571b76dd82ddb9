// Overloads are chosen by the arguments: exact types first, then by the
// number of arguments; a conversion is taken when only one overload fits.
Function Describe(n As Integer) As String
  Return "integer " + Str(n)
End Function
Function Describe(s As String) As String
  Return "string " + s
End Function
Function Describe(a As Integer, b As Integer) As String
  Return "pair " + Str(a + b)
End Function
Function Describe(d As Double) As String
  Return "double " + Str(d)
End Function
Sub Show(s As String)
  Print s
End Sub
Print Describe(3)            // expect: integer 3
Print Describe("x")          // expect: string x
Print Describe(1, 2)         // expect: pair 3
Print Describe(2.5)          // expect: double 2.5
Dim small As Int16 = 7
Function Only(d As Double) As String
  Return "only " + Str(d)
End Function
Print Only(small)            // expect: only 7
Show "no parentheses"        // expect: no parentheses
Show("with parentheses")     // expect: with parentheses
Call Show("with Call")       // expect: with Call
