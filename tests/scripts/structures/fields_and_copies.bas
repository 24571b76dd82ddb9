// Structure fields of every kind, read and written in place; a structure
// value is copied whole on assignment, wherever it lives.
Module Records
  Structure Inner
    Tag As Int16
    Weight As Double
  End Structure
  Structure Everything
    B As Boolean
    I8 As Int8
    U8 As UInt8
    I16 As Int16
    U16 As UInt16
    I32 As Int32
    U32 As UInt32
    I64 As Int64
    U64 As UInt64
    S As Single
    D As Double
    C As Color
    P As Ptr
    Name As String * 5
    Small(2) As Int16
    Words(1) As String * 3
    Nested As Inner
    Pairs(1) As Inner
  End Structure
  Dim Common As Everything
End Module
Dim e As Records.Everything
e.B = True
e.I8 = -100
e.U8 = 200
e.I16 = -30000
e.U16 = 60000
e.I32 = -2000000000
e.U32 = 4000000000
e.I64 = -9000000000000
e.U64 = 9000000000000
e.S = 1.5
e.D = -2.25
e.C = &c102030
e.Name = "truncated"
e.Small(0) = 7
e.Small(2) = -7
e.Words(0) = "ab"
e.Words(1) = "cdef"
e.Nested.Tag = 11
e.Nested.Weight = 0.5
e.Pairs(1).Tag = 12
If e.B Then Print "boolean"                                 // expect: boolean
Print Str(e.I8) + " " + Str(e.U8)                           // expect: -100 200
Print Str(e.I16) + " " + Str(e.U16)                         // expect: -30000 60000
Print Str(e.I32) + " " + Str(e.U32)                         // expect: -2000000000 4000000000
Print Str(e.I64) + " " + Str(e.U64)                         // expect: -9000000000000 9000000000000
Print Str(e.S) + " " + Str(e.D)                             // expect: 1.5 -2.25
Print Str(e.C.Green)                                        // expect: 32
Print e.Name + "|" + e.Words(0) + "|" + e.Words(1)          // expect: trunc|ab|cde
Print Str(e.Small(0)) + " " + Str(e.Small(1)) + " " + Str(e.Small(2))  // expect: 7 0 -7
Print Str(e.Nested.Tag) + " " + Str(e.Nested.Weight) + " " + Str(e.Pairs(1).Tag)  // expect: 11 0.5 12

// Assignment copies: changing the copy leaves the original alone.
Dim f As Records.Everything = e
f.I32 = 5
f.Name = "other"
f.Nested.Tag = 99
Print Str(e.I32) + " " + e.Name + " " + Str(e.Nested.Tag)   // expect: -2000000000 trunc 11
Print Str(f.I32) + " " + f.Name + " " + Str(f.Nested.Tag)   // expect: 5 other 99
Dim copied As Records.Inner = e.Nested
copied.Tag = 1
Print Str(e.Nested.Tag)                                     // expect: 11
e.Nested = copied
Print Str(e.Nested.Tag)                                     // expect: 1

// A module's structure, one held by an object, and array elements.
Records.Common.I32 = 42
Records.Common.Nested.Weight = 4.5
Print Str(Records.Common.I32) + " " + Str(Records.Common.Nested.Weight)  // expect: 42 4.5
Class Holder
  Dim Where As Records.Inner
End Class
Dim h As New Holder
h.Where.Tag = 77
Dim fromObject As Records.Inner = h.Where
fromObject.Tag = 78
Print Str(h.Where.Tag) + " " + Str(fromObject.Tag)          // expect: 77 78
Dim list(2) As Records.Inner
list(1).Tag = 5
Dim element As Records.Inner = list(1)
element.Tag = 6
list(2) = element
Print Str(list(1).Tag) + " " + Str(list(2).Tag)             // expect: 5 6
