// Arithmetic on objects calls the class's Operator_ methods: the left
// operand's method when it has one that takes the right operand, else the
// right operand's ...Right method with the left operand, so `2 * m` works.
// Methods are chosen among overloads by the other operand, and inherited.
Class Money
  Dim cents As Integer
  Sub Constructor(amount As Integer)
    cents = amount
  End Sub
  Function Text() As String
    Return Str(cents) + "c"
  End Function
  Function Operator_Add(other As Money) As Money
    Return New Money(cents + other.cents)
  End Function
  Function Operator_Add(amount As Integer) As Money
    Return New Money(cents + amount)
  End Function
  Function Operator_AddRight(amount As Integer) As Money
    Return New Money(amount + cents)
  End Function
  Function Operator_Subtract(other As Money) As Money
    Return New Money(cents - other.cents)
  End Function
  Function Operator_SubtractRight(amount As Integer) As Money
    Return New Money(amount - cents)
  End Function
  Function Operator_Multiply(factor As Integer) As Money
    Return New Money(cents * factor)
  End Function
  Function Operator_MultiplyRight(factor As Integer) As Money
    Return New Money(factor * cents)
  End Function
  Function Operator_Divide(parts As Integer) As Double
    Return cents / parts
  End Function
  Function Operator_DivideRight(total As Integer) As Double
    Return total / cents
  End Function
  Function Operator_IntegerDivide(parts As Integer) As Money
    Return New Money(cents \ parts)
  End Function
  Function Operator_IntegerDivideRight(total As Integer) As Integer
    Return total \ cents
  End Function
  Function Operator_Modulo(parts As Integer) As Integer
    Return cents Mod parts
  End Function
  Function Operator_ModuloRight(total As Integer) As Integer
    Return total Mod cents
  End Function
  Function Operator_Power(n As Integer) As String
    Return Str(cents) + "^" + Str(n)
  End Function
  Function Operator_PowerRight(n As Integer) As String
    Return Str(n) + "^" + Str(cents)
  End Function
  Function Operator_Negate() As Money
    Return New Money(-cents)
  End Function
End Class
Class Coupon
  Inherits Money
  Sub Constructor()
    Super.Constructor(50)
  End Sub
End Class

Dim a As New Money(250)
Dim b As New Money(100)
Dim sum As Money = a + b
Print sum.Text
sum = a + 1
Print sum.Text
sum = 2 + a
Print sum.Text
sum = a - b
Print sum.Text
sum = 1000 - a
Print sum.Text
sum = a * 3
Print sum.Text
sum = 4 * a
Print sum.Text
Print Str(a / 4) + " " + Str(1000 / a)
sum = a \ 3
Print sum.Text + " " + Str(1000 \ a)
Print Str(a Mod 7) + " " + Str(1001 Mod a)
Print a ^ 2
Print 2 ^ a
sum = -a
Print sum.Text
sum = -(a + b) * 2
Print sum.Text
// expect: 350c
// expect: 251c
// expect: 252c
// expect: 150c
// expect: 750c
// expect: 750c
// expect: 1000c
// expect: 62.5 4
// expect: 83c 4
// expect: 5 1
// expect: 250^2
// expect: 2^250
// expect: -250c
// expect: -700c

// An inherited method serves a subclass, on either side.
Dim c As New Coupon
sum = c + a
Print sum.Text
sum = 10 + c
Print sum.Text
// expect: 300c
// expect: 60c

// The operand whose method is called must not be nil.
Dim missing As Money
Try
  sum = missing + 1
Catch e As NilObjectException
  Print "nil left operand"
End Try
Try
  sum = 1 + missing
Catch e As NilObjectException
  Print "nil right operand"
End Try
// expect: nil left operand
// expect: nil right operand
