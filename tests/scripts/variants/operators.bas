// Operators between two variants go through the runtime; the result takes
// the widest type of the two.
Dim a As Variant = 7
Dim b As Variant = 2
Print (a + b) + " " + (a - b) + " " + (a * b) + " " + (a / b)
Print (a \ b) + " " + (a Mod b) + " " + (a ^ b) + " " + (-a)
Dim r As Variant = 0.5
Dim big As Int64 = 10000000000
Dim l As Variant = big
Dim m As Variant = 1.25
Dim cy As Currency = 1.25
Dim money As Variant = cy
Print (a + r) + " " + Str(VarType(a + r)) + " " + (a + l) + " " + Str(VarType(a + l))
Print (money + money) + " " + Str(VarType(money * a)) + " " + Str(VarType(money + m))
Print Str(VarType(a / b)) + " " + Str(VarType(a \ r)) + " " + Str(VarType(a \ l))
// expect: 9 5 14 3.5
// expect: 3 1 49 -7
// expect: 7.5 5 10000000007 3
// expect: 2.5 6 5
// expect: 5 3 3

// Two strings concatenate; a string with a number counts as its number.
Dim s As Variant = "ab"
Dim t As Variant = "12"
Print (s + s) + " " + (t + a) + " " + (t * b)
// expect: abab 19 24

// Integer results wrap and integer division by zero gives 0, as on plain
// integers.
Dim top As Variant = 2147483647
Dim zero As Variant = 0
Dim one As Variant = 1
Dim lowest As Variant = top + one
Dim minusOne As Variant = -1
Print lowest + " " + (lowest \ minusOne) + " " + (a \ zero) + " " + (a Mod zero)
// expect: -2147483648 -2147483648 0 0

// Comparisons call the runtime once and test its answer.
If a > b Then Print "7 > 2"
If b < a Then Print "2 < 7"
If a >= a And a <= a Then Print "7 >= 7 and 7 <= 7"
If a <> b Then Print "7 <> 2"
If t > a Then Print "text 12 > 7 as numbers"
Dim lower As Variant = "apple"
Dim upper As Variant = "APPLE"
Dim pear As Variant = "Pear"
If lower = upper And lower < pear Then Print "text compares without case"
Dim n As Variant
If n = Nil And n < zero And Not (zero = n) Then Print "nil equals only nil"
// expect: 7 > 2
// expect: 2 < 7
// expect: 7 >= 7 and 7 <= 7
// expect: 7 <> 2
// expect: text 12 > 7 as numbers
// expect: text compares without case
// expect: nil equals only nil

// A variant mixed with a plain value takes the plain value's type.
Dim sum As Integer = a + 1
Dim text As String = a + "!"
Dim half As Double = b * 0.25
Print Str(sum) + " " + text + " " + Str(half)
// expect: 8 7! 0.5

// And, Or, Not and negation: logical on Booleans, bitwise otherwise.
Dim yes As Variant = True
Dim no As Variant = False
Print (yes And no) + " " + (yes Or no) + " " + (Not yes) + " " + (yes Xor no)
Print (a And b) + " " + (a Or b) + " " + (Not a) + " " + (-r) + " " + (-money)
// expect: False True False True
// expect: 2 7 -8 -0.5 -1.25
