// A delegate keeps the object it is bound to alive, and lets it go when
// the delegate itself goes; delegates of module methods hold nothing. Many
// delegates made and dropped in a loop leave nothing behind.
Module Ops
  Delegate Sub Tick()
  Delegate Function Pick(x As Double, s As String) As String
  Sub Nothing()
  End Sub
End Module
Class Counter
  Dim Count As Integer
  Dim Label As String
  Sub Bump()
    Count = Count + 1
  End Sub
  Function Describe(x As Double, s As String) As String
    Return Label + s + Str(x + Count)
  End Function
  Sub Destructor()
    Print "counter " + Label + " gone at " + Str(Count)
  End Sub
End Class
Function Hold() As Ops.Tick
  Dim c As New Counter
  c.Label = "A"
  Return AddressOf c.Bump
End Function
Dim t As Ops.Tick = Hold()
t.Invoke()
t.Invoke()
Print "A still here"
t = Nil
Print "after A"
Dim c2 As New Counter
c2.Label = "B"
Dim p As Ops.Pick = AddressOf c2.Describe
c2.Bump
c2 = Nil
Print p.Invoke(1.5, ":")
Print "B dropped by its variable"
Dim q As Ops.Pick = p
p = Nil
Print "B held by a copy"
q = Nil
Dim many As Ops.Tick
Dim c3 As New Counter
c3.Label = "C"
For i As Integer = 1 To 100000
  many = AddressOf Ops.Nothing
  many = AddressOf c3.Bump
  many.Invoke()
Next
c3 = Nil
Print "C held by its last delegate"
many = Nil
Print "end"
// expect: A still here
// expect: counter A gone at 2
// expect: after A
// expect: B:2.5
// expect: B dropped by its variable
// expect: B held by a copy
// expect: counter B gone at 1
// expect: C held by its last delegate
// expect: counter C gone at 100000
// expect: end
