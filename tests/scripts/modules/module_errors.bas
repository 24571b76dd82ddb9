// What a module refuses: reading a property without Get, writing one
// without Set, private members from outside, protected ones by their bare
// names, and a public member of a nested module.
Module Bank
  Private mBalance As Double = 10
  Protected Const Rate = 2
  Protected Sub Hidden()
  End Sub
  Property WriteOnly As Integer
    Set
      mBalance = value
    End Set
  End Property
  Property ReadOnly As Integer
    Get
      Return 1
    End Get
  End Property
  Module Inner
    Private Function Twice(x As Integer) As Integer
      Return x * 2
    End Function
    Public Sub Bad()
    End Sub
  End Module
  Module Inner
  End Module
End Module
Print Str(Bank.WriteOnly)
Bank.ReadOnly = 3
Print Str(Bank.mBalance)
Print Str(Bank.Inner.Twice(2))
Print Str(Rate)
Hidden
Print Str(mBalance)
// expect error 23 124
// expect error 26 22
// expect error 29 71
// expect error 30 70
// expect error 31 11
// expect error 32 11
// expect error 33 11
// expect error 34 11
// expect error 35 11
