// Calls with more argument words than registers: integers, doubles past
// the thirteenth, 64-bit and Currency values and Singles mixed, results of
// every kind, and an exception raised two calls down and caught above.
Function Weighted(a As Integer, b As Double, c As Integer, d As Double, e As Integer, f As Double, g As Integer, h As Double, i As Integer, j As Double) As Double
  Return a * b + c * d + e * f + g * h + i * j
End Function

Function SumOf14(d1 As Double, d2 As Double, d3 As Double, d4 As Double, d5 As Double, d6 As Double, d7 As Double, d8 As Double, d9 As Double, d10 As Double, d11 As Double, d12 As Double, d13 As Double, d14 As Double) As Double
  Return d1 + d2 + d3 + d4 + d5 + d6 + d7 + d8 + d9 + d10 + d11 + d12 + d13 * 100 + d14 * 1000
End Function

Function Wide(a As Int64, b As Integer, c As Int64, d As Currency, e As Single, f As Int64) As String
  Return Str(a + b + c + f) + " " + Str(d * 3) + " " + Str(e * 2)
End Function

Function Joined(a As String, b As Integer, c As String, d As Double, e As String, f As Integer, g As String, h As Integer, i As String) As String
  Return a + Str(b) + c + Str(d) + e + Str(f) + g + Str(h) + i
End Function

Sub Tenth(a As Integer, b As Integer, c As Integer, d As Integer, e As Integer, f As Integer, g As Integer, h As Integer, i As Integer, j As Integer)
  Print Str(a + b + c + d + e + f + g + h + i) + " " + Str(j)
End Sub

Function Deepest(n As Integer) As Integer
  Dim values(2) As Integer
  Return values(n)
End Function

Function Middle(n As Integer) As Integer
  Return Deepest(n) + 1
End Function

Print Str(Weighted(1, 0.5, 2, 1.5, 3, 2.5, 4, 3.5, 5, 4.5))   // expect: 47.5
Print Str(SumOf14(1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14))   // expect: 15378
Dim big As Int64 = 4000000000
Dim money As Currency = 2.5
Print Wide(big, 7, big, money, 1.5, -1)                        // expect: 8000000006 7.5 3
Print Joined("a", 1, "b", 2.5, "c", 3, "d", 4, "e")            // expect: a1b2.5c3d4e
Tenth(1, 2, 3, 4, 5, 6, 7, 8, 9, 10)                           // expect: 45 10
Try
  Print Str(Middle(1))                                         // expect: 1
  Print Str(Middle(5))
Catch
  Print "caught two calls down"                                // expect: caught two calls down
End Try
