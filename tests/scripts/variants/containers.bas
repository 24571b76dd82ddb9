// Variants as parameters, results, array elements, properties and
// ParamArray arguments.
// A nil variant's Type is 1, not Variant.TypeNil (0): IsNull tells nil.
Function Describe(v As Variant) As String
  If v.IsNull Then Return "nil"
  Select Case v.Type
  Case Variant.TypeString
    Return "text " + v
  Case Variant.TypeObject
    Return "an object"
  Else
    Return "number " + v.StringValue
  End Select
End Function
Function Larger(a As Variant, b As Variant) As Variant
  If a > b Then Return a
  Return b
End Function
Sub Bump(ByRef v As Variant)
  Dim one As Variant = 1
  v = v + one
End Sub
Print Describe(3) + ", " + Describe("x") + ", " + Describe(Nil) + ", " + Describe(2.5)
Print Larger(3, 10) + " " + Larger("pear", "Apple")
Dim counter As Variant = 41
Bump(counter)
Print counter
// expect: number 3, text x, nil, number 2.5
// expect: 10 pear
// expect: 42

// ParamArray of Variant takes values of any type.
Function Total(ParamArray items As Variant) As Double
  Dim sum As Double
  For Each item As Variant In items
    If item.IsNumeric Then sum = sum + item
  Next
  Return sum
End Function
Print Str(Total(1, 2.5, "skipped", True, 4))
// expect: 7.5

// Array elements, and an Array(...) of mixed values, which is of Variant.
Dim mixed() As Variant = Array(1, "two", 3.5)
mixed.Append(Nil)
For Each item As Variant In mixed
  Print Describe(item)
Next
Print Str(mixed.UBound) + " " + mixed(1)
// expect: number 1
// expect: text two
// expect: number 3.5
// expect: nil
// expect: 3 two

// Stored, computed and shared properties of type Variant.
Class Setting
  Dim stored As Variant
  Shared Count As Variant = 0
  Property Doubled As Variant
    Get
      Return stored + stored
    End Get
    Set
      stored = value
      Dim one As Variant = 1
      Count = Count + one
    End Set
  End Property
End Class
Dim s As New Setting
s.stored = "ab"
Print s.Doubled
s.Doubled = 21
Print s.Doubled + " " + s.stored + " " + Setting.Count
// expect: abab
// expect: 42 21 1

// A name a variant does not have may be an extension method.
Function Shout(Extends v As Variant) As String
  Return Uppercase(v.StringValue) + "!"
End Function
Dim greeting As Variant = "hey"
Print greeting.Shout + " " + counter.Shout()
// expect: HEY! 42!
