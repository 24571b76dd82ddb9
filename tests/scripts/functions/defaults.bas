// Optional parameters and default values: missing arguments are taken
// from the last optional parameters; an Optional without a value gets zero.
Function Greet(name As String, greeting As String = "Hello") As String
  Return greeting + ", " + name
End Function
Function Sum3(a As Integer = 1, b As Integer = 2, c As Integer = 3) As Integer
  Return a * 100 + b * 10 + c
End Function
Function Opt(x As Integer, Optional y As Integer) As Integer
  Return x + y
End Function
Print Greet("Ann")                // expect: Hello, Ann
Print Greet("Bob", "Hi")          // expect: Hi, Bob
Print Str(Sum3())                 // expect: 123
Print Str(Sum3(9))                // expect: 923
Print Str(Sum3(9, 8))             // expect: 983
Print Str(Sum3(9, 8, 7))          // expect: 987
Print Str(Opt(5))                 // expect: 5
Print Str(Opt(5, 6))              // expect: 11
Function Scaled(x As Double, factor As Double = -0.5) As Double
  Return x * factor
End Function
Print Str(Scaled(4))              // expect: -2
