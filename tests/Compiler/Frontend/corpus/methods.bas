' Methods at the top level, interleaved with statements.
Sub Main()
  Dim i As Integer
  i = 1
  Return
End Sub

Print "between"

Function Twice(x As Integer) As Integer
  Return x * 2
End Function

Shared Sub Helper(ByRef a As Integer, ByVal b As String, Optional c As Double = 1.5, ParamArray rest() As Integer)
End Sub

Sub Extend(Extends s As String, Assigns v As Integer)
End Sub

Function Grid(rows As Integer, cols As Integer) As Integer(,)
End Function

Function Names() As String()
End Function

Sub Handler() Handles Event
End Sub

Sub Clicked() Handles Button1
End Sub

Sub Aliased Alias "other_name" ()
End Sub

Sub Property()
End Sub

Sub WithHandlers()
  Dim x As Integer
  x = 1
Exception err As RuntimeException
  Print "failed"
Catch other
  Print "other"
Catch
  Print "any"
Finally
  Print "done"
End Sub

Function Defaults(a As Integer = -1, b As Double = -0.5, c As Color = &c00FF00, d As String = "x", e As Boolean = False, f As Object = Nil, g As Integer = kLimit) As Integer
End Function

Sub Reserved(Me As Integer)
End Sub
