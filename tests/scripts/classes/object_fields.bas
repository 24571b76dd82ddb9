// Objects in fields, in arrays of objects and in For Each; a method that
// gives back Me for chained calls; an object variable passed ByRef.
Class Node
  Dim value As Integer
  Dim children() As Node
  Dim tag As String = "n"
  Function Add(v As Integer) As Node
    Dim c As New Node
    c.value = v
    children.Append(c)
    Return Me
  End Function
  Function Sum() As Integer
    Dim total As Integer = value
    For Each c As Node In children
      total = total + c.Sum
    Next
    Return total
  End Function
End Class
Sub Replace(ByRef n As Node)
  n = New Node
  n.value = 99
End Sub
Dim root As New Node
root.value = 1
Call root.Add(2).Add(3).Add(4)
Print Str(root.Sum)
Dim r2 As Node = root
Replace(r2)
Print Str(r2.value) + " " + Str(root.value)
Try
  Dim empty As Node
  Print Str(empty.Sum)
Catch
  Print "caught"
End Try
// expect: 10
// expect: 99 1
// expect: caught
