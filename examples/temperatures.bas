// A conversion table: overloaded functions, default and ByRef parameters,
// DownTo with Step, Format and Right for the columns.
Function Fahrenheit(celsius As Double) As Double
  Return celsius * 9 / 5 + 32
End Function

Function Fahrenheit(celsius As Integer) As Double
  Dim exact As Double = celsius
  Return Fahrenheit(exact)
End Function

Function Pad(text As String, width As Integer) As String
  Dim spaces As String = "          "
  Return Right(spaces + text, width)
End Function

Sub Track(value As Double, ByRef low As Double, ByRef high As Double)
  If value < low Then low = value
  If value > high Then high = value
End Sub

Function Row(c As Integer, f As Double, unit As String = "F") As String
  Return Pad(Str(c), 4) + " C =" + Pad(Format(f, "0.0"), 7) + " " + unit
End Function

Dim low As Double = 1000
Dim high As Double = -1000
For c As Integer = 100 DownTo -40 Step 35
  Dim f As Double = Fahrenheit(c)
  Track(f, low, high)
  Print Row(c, f)
Next
Print "range: " + Format(low, "0.0") + " to " + Format(high, "0.0") + " F"
