// Faults of structure fields: the member names Size and StringValue are
// taken in any case (22), as is a name used twice; a String needs a size
// (110); nothing counted may live in raw bytes (111); an array field has
// one bound (112); a size must be at least 1 (116) and only strings have
// one (117); a structure may not hold itself, not even through an array or
// another structure (118).
Module Faults
  Structure Names
    SIZE As Integer
    stringvalue As Integer
    Twice As Integer
    Twice As Integer
  End Structure
  Structure Kinds
    Plain As String
    Thing As Object
    Many(3) As String
    Empty As String * 0
    Counted As Integer * 4
    Wide As WString * 8
  End Structure
  Structure SelfArray
    Items(2) As SelfArray
  End Structure
  Structure Outer
    Middle As Inner
  End Structure
  Structure Inner
    Back(1) As Outer
  End Structure
End Module
Dim n As Faults.Names
n.Missing = 1
// expect error 9 22
// expect error 10 22
// expect error 12 22
// expect error 15 110
// expect error 16 111
// expect error 17 110
// expect error 18 116
// expect error 19 117
// expect error 23 118
// expect error 26 118
// expect error 29 118
// expect error 33 11
