// Comparisons of objects beyond equality: an Operator_Compare that
// answers a Double is compared with 0.0; without any method the references
// themselves are ordered, so exactly one of a < b and b < a holds.
Class Reading
  Dim value As Double
  Sub Constructor(v As Double)
    value = v
  End Sub
  Function Operator_Compare(other As Reading) As Double
    Return value - other.value
  End Function
End Class
Class Token
End Class

Dim low As New Reading(0.25)
Dim high As New Reading(0.75)
If low < high Then Print "0.25 < 0.75"
If high > low And high >= low And low <= high Then Print "ordered"
If Not (low = high) And low <> high Then Print "different"
If low = New Reading(0.25) Then Print "equal by value"
// expect: 0.25 < 0.75
// expect: ordered
// expect: different
// expect: equal by value

Dim a As New Token
Dim b As New Token
Dim before As Boolean = a < b
Dim after As Boolean = b < a
If before <> after Then Print "addresses order the objects"
If a <= a And a >= a And Not (a < a) Then Print "an object against itself"
// expect: addresses order the objects
// expect: an object against itself
