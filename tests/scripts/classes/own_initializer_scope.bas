// A class's own __Init stands for its field initialisers whatever its
// scope word: without Private it still runs once on each new object.
Class Counter
  Dim label As String
  Sub __Init()
    label = "fresh"
  End Sub
End Class
Dim c As New Counter
Print c.label
// expect: fresh
