// The built-in methods: Append, Insert, Remove, Pop, IndexOf, Sort,
// SortWith, Shuffle and UBound.
Function Listed(a() As Integer) As String
  Dim text As String
  For Each n As Integer In a
    text = text + Str(n) + " "
  Next
  Return Trim(text)
End Function
Dim a() As Integer
a.Append(5)
a.Append(3)
a.Insert(0, 9)
Print Listed(a)                                   // expect: 9 5 3
a.Remove(1)
Print Listed(a) + " / " + Str(a.UBound)           // expect: 9 3 / 1
Print Str(a.Pop) + " " + Str(a.UBound)            // expect: 3 0
a = Array(4, 1, 3, 1, 2)
Print Str(a.IndexOf(1)) + " " + Str(a.IndexOf(1, 2)) + " " + Str(a.IndexOf(7))   // expect: 1 3 -1
a.Sort
Print Listed(a)                                   // expect: 1 1 2 3 4
Dim keys() As String = Array("pear", "Apple", "fig")
Dim sizes() As Integer = Array(4, 5, 3)
keys.SortWith(sizes)
Print keys(0) + " " + keys(1) + " " + keys(2) + " " + Str(sizes(0)) + Str(sizes(1)) + Str(sizes(2))   // expect: Apple fig pear 534
Dim many() As Integer
For i As Integer = 1 To 40
  many.Append(41 - i)
Next
many.Sort
Print Str(many(0)) + " " + Str(many(39))          // expect: 1 40
many.Shuffle
many.Sort
Print Str(many(0)) + " " + Str(many(39)) + " " + Str(many.UBound)   // expect: 1 40 39
Dim letters() As String = Split("c,a,b", ",")
letters.Sort
Print Join(letters, ";")                          // expect: a;b;c
