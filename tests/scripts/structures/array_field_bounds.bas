// An array field has a fixed bound: an index past it raises, like an
// index past any array's bound, and the handler sees the field unchanged.
Module Store
  Structure Shelf
    Slots(2) As Integer
    After As Integer
  End Structure
End Module
Dim s As Store.Shelf
s.Slots(2) = 5
Try
  s.Slots(3) = 9
Catch
  Print "caught"                         // expect: caught
End Try
Print Str(s.After) + " " + Str(s.Slots(2))  // expect: 0 5
Dim i As Integer = -1
Print Str(s.Slots(i))
// expect runtime error: OutOfBoundsException
