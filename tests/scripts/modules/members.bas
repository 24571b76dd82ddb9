// A module's stored and computed properties, constants, methods, a class
// and a nested module, reached by the module's name and, for its public
// members, by their bare names from the main body.
Module Bank
  Private mBalance As Double = 10
  Dim Owner As String = "ann"
  Dim History(2) As String
  Protected Const Rate = 2
  Property Balance As Double
    Get
      Return mBalance
    End Get
    Set
      History(0) = "set " + Str(value)
      mBalance = value
    End Set
  End Property
  Class Account
    Dim Id As Integer
    Function Describe() As String
      Return Owner + " #" + Str(Id)
    End Function
  End Class
  Module Inner
    Private Function Twice(x As Integer) As Integer
      Return x * 2
    End Function
    Protected Function Quad(x As Integer) As Integer
      Return Twice(Twice(x))
    End Function
  End Module
  Function Interest() As Double
    Return mBalance * Rate
  End Function
End Module
Module Tools
  Global Function Shout(s As String) As String
    Return s + "!"
  End Function
End Module
Print Str(Bank.Balance)
Bank.Balance = 5
Print Str(Bank.Balance) + " " + Bank.History(0)
Print Str(Balance)
Print Owner
Owner = "bob"
Print Bank.Owner
Dim a As New Bank.Account
a.Id = 7
Print a.Describe
Print Str(Bank.Inner.Quad(3))
Print Str(Bank.Interest) + " " + Str(Bank.Rate)
Print Shout("hi") + Tools.Shout("ho")
// expect: 10
// expect: 5 set 5
// expect: 5
// expect: ann
// expect: bob
// expect: bob #7
// expect: 12
// expect: 10 2
// expect: hi!ho!
