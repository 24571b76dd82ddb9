// ByRef parameters write through to the caller's variable, for numbers and
// strings; ByVal (the default) leaves it alone.
Sub Twice(ByRef n As Integer)
  n = n * 2
End Sub
Sub Append(ByRef s As String, tail As String)
  s = s + tail
End Sub
Sub Untouched(n As Integer)
  n = 99
End Sub
Sub Swap(ByRef a As Double, ByRef b As Double)
  Dim t As Double = a
  a = b
  b = t
End Sub
Dim k As Integer = 5
Twice(k)
Twice k
Print Str(k)                 // expect: 20
Untouched(k)
Print Str(k)                 // expect: 20
Dim s As String = "ab"
Append(s, "cd")
Append s, "ef"
Print s                      // expect: abcdef
Dim x As Double = 1.5
Dim y As Double = -2
Swap(x, y)
Print Str(x) + " " + Str(y)  // expect: -2 1.5
Sub Nested(ByRef m As Integer)
  Twice(m)
  m = m + 1
End Sub
Nested(k)
Print Str(k)                 // expect: 41
