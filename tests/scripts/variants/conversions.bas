// A Variant takes a value of every scalar type, a string, a colour, an
// object or Nil, and gives it back as any type the value reads as.
Dim v As Variant
Dim b As Boolean = True
Dim i8 As Int8 = -8
Dim u8 As UInt8 = 200
Dim i16 As Int16 = -1600
Dim u16 As UInt16 = 60000
Dim i32 As Integer = -2147483647
Dim u32 As UInt32 = 4000000000
Dim i64 As Int64 = -9000000000
Dim u64 As UInt64 = 18000000000000000000
Dim sg As Single = 1.5
Dim db As Double = 0.1
Dim cy As Currency = 12.25
Dim c As Color = &c102030
v = b
Print v + " " + Str(v.Type)
v = i8
Print v + " " + Str(v.Type)
v = u8
Print v + " " + Str(v.Type)
v = i16
Print v + " " + Str(v.Type)
v = u16
Print v + " " + Str(v.Type)
v = i32
Print v + " " + Str(v.Type)
v = u32
Print v + " " + Str(v.Type)
v = i64
Print v + " " + Str(v.Type)
v = u64
Print v + " " + Str(v.Type)
v = sg
Print v + " " + Str(v.Type)
v = db
Print v + " " + Str(v.Type)
v = cy
Print v + " " + Str(v.Type)
v = c
Print v + " " + Str(v.Type)
v = "text"
Print v + " " + Str(v.Type)
v = Nil
Print "[" + v + "] " + Str(v.Type)
// expect: True 11
// expect: -8 2
// expect: 200 2
// expect: -1600 2
// expect: 60000 2
// expect: -2147483647 2
// expect: 4000000000 2
// expect: -9000000000 3
// expect: 18000000000000000000 3
// expect: 1.5 4
// expect: 0.1 5
// expect: 12.25 6
// expect: &c102030 16
// expect: text 8
// expect: [] 1

// Back out, with the conversion each target needs; narrow targets narrow.
v = 300
i8 = v
u8 = v
Print Str(i8) + " " + Str(u8)
v = -1
u16 = v
u32 = v
Print Str(u16) + " " + Str(u32)
v = 2.75
i32 = v
i64 = v
cy = v
Print Str(i32) + " " + Str(i64) + " " + Str(cy)
v = "  42.5xyz"
db = v
sg = v
Print Str(db) + " " + Str(sg)
v = "&hFF"
i32 = v
Print Str(i32)
v = u64
u64 = v
If u64 = 18000000000000000000 Then Print "UInt64 kept"
v = True
c = v
i32 = v
v = c
Print v + " " + Str(i32)
v = 0.0
b = v
If Not b Then Print "0.0 is False"
v = "1"
b = v
If b Then Print "text 1 is True"
v = "yes"
b = v
If Not b Then Print "other text is False"
// expect: 44 44
// expect: 65535 4294967295
// expect: 2 2 2.75
// expect: 42.5 42.5
// expect: 255
// expect: UInt64 kept
// expect: &cFFFFFF 1
// expect: 0.0 is False
// expect: text 1 is True
// expect: other text is False

// A function that returns a Variant, and VarType in its function form.
Function Pick(n As Integer) As Variant
  If n = 0 Then Return "zero"
  If n = 1 Then Return 1.25
  Return Nil
End Function
Print Str(VarType(Pick(0))) + " " + Str(VarType(Pick(1))) + " " + Str(VarType(Pick(2)))
// expect: 8 5 1
