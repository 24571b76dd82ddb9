// Objects compared: by reference when the class has no Operator_Compare
// (so `= Nil` tests for nil), through the method when it has one, also
// with the object on the right; an equality test against Nil never calls
// the method on a nil object.
Class Plain
End Class
Class Money
  Dim cents As Integer
  Function Operator_Compare(other As Money) As Integer
    If other Is Nil Then
      Return 1
    End If
    Return cents - other.cents
  End Function
  Function Operator_Compare(amount As Integer) As Integer
    Return cents - amount
  End Function
End Class
Dim p As Plain
If p = Nil Then Print "p is nil"
p = New Plain
Dim q As Plain = p
If p <> Nil And p = q Then Print "p is q"
q = New Plain
If p <> q Then Print "p is not q"
Dim cheap As New Money
cheap.cents = 5
Dim dear As New Money
dear.cents = 500
If cheap < dear Then Print "cheap < dear"
If dear >= cheap Then Print "dear >= cheap"
If 100 < dear Then Print "100 < dear"
If Not (cheap > 100) Then Print "cheap is not > 100"
Dim none As Money
If none = Nil Then Print "none = Nil without a call"
If cheap <> Nil Then Print "cheap <> Nil"
// expect: p is nil
// expect: p is q
// expect: p is not q
// expect: cheap < dear
// expect: dear >= cheap
// expect: 100 < dear
// expect: cheap is not > 100
// expect: none = Nil without a call
// expect: cheap <> Nil
