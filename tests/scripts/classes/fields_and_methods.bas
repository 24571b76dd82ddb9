// A class with fields, initialisers, methods and functions; objects made
// with New and Dim As New; Me and Self and bare member names inside.
Class Counter
  Dim count As Integer
  Dim stride As Integer = 2
  Dim label As String = "counter"
  Sub Bump()
    count = count + stride
  End Sub
  Sub BumpTwice()
    Bump
    Me.Bump
  End Sub
  Function Describe() As String
    Return Self.label + " at " + Str(count)
  End Function
  Function Twin() As Counter
    Dim other As New Counter
    other.count = count
    other.label = label + "'"
    Return other
  End Function
End Class
Dim c As New Counter
c.Bump
Print c.Describe
c.BumpTwice
Print c.Describe
c.stride = 10
c.Bump
Print c.Describe()
Dim d As Counter = c.Twin
d.Bump
Print d.Describe + " / " + c.Describe
Dim e As Counter
e = New Counter
e.label = "third"
Print e.Describe
// expect: counter at 2
// expect: counter at 6
// expect: counter at 16
// expect: counter' at 18 / counter at 16
// expect: third at 0
