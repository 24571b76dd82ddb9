// What delegates refuse: optional and ParamArray parameters, a second
// delegate of one name, AddressOf of an instance method without an
// instance (106, 108 in an accessor), of an overloaded or unknown name,
// of a method of another shape, New D(ptr) in a script, ordering, a
// member of something that has no methods, and members of a delegate type.
Module Ops
  Delegate Sub Tick()
  Delegate Sub WithDefault(Optional x As Integer = 1)
  Delegate Sub WithArray(ParamArray xs As Integer)
  Delegate Sub Tick()
  Sub Over(x As Integer)
  End Sub
  Sub Over(x As Double)
  End Sub
  Function Twice(x As Integer) As Integer
    Return x * 2
  End Function
End Module
Class Widget
  Sub Act()
  End Sub
  Shared Sub Make()
    Dim t As Ops.Tick = AddressOf Act
  End Sub
  Shared Property Handler As Ops.Tick
    Get
      Return AddressOf Act
    End Get
  End Property
End Class
Dim a As Ops.Tick = AddressOf Over
Dim b As Ops.Tick = AddressOf Missing
Dim c As Ops.Tick = AddressOf Ops.Twice
Dim p As Ptr
Dim d As Ops.Tick = New Ops.Tick(p)
Dim e As Ops.Tick
If a < e Then Print "ordered"
Dim x As Integer = 3
Dim f As Ops.Tick = AddressOf x.Foo
Print Ops.Tick.Combine
// expect error 8 130
// expect error 9 131
// expect error 10 22
// expect error 23 106
// expect error 27 108
// expect error 31 24
// expect error 32 11
// expect error 33 2
// expect error 35 134
// expect error 37 12
// expect error 39 1
// expect error 40 11
