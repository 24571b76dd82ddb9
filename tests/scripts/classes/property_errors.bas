// Compile errors of properties: an accessor named neither Get nor Set
// (91), an End that names the other accessor (92), a property declared
// twice (128), a read-only property assigned to (70), and instance members
// used where no instance is at hand (105, 106, 107).
Class Gauge
  Dim level As Integer
  Dim level As Integer
  Property Reading As Integer
    Fetch
    End Fetch
    Get
      Return level
    End Set
  End Property
  Shared Function Peek() As Integer
    Return level
  End Function
  Shared Sub Poke()
    Reset
  End Sub
  Sub Reset()
    level = 0
  End Sub
  Shared Property Overall As Integer
    Get
      Return level
    End Get
  End Property
End Class
Dim g As New Gauge
g.Reading = 1
// expect error 6 128
// expect error 9 91
// expect error 13 92
// expect error 16 105
// expect error 19 106
// expect error 26 107
// expect error 31 70
