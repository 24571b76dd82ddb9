// Assignments between numeric types: integers widen exactly, narrow
// integers wrap, floating point truncates toward zero into integers,
// and a Single keeps only its own precision when widened back.
Dim i8 As Int8
Dim u8 As UInt8
Dim i16 As Int16
Dim u16 As UInt16
Dim i As Integer = 300
Dim u32 As UInt32
Dim i64 As Int64
Dim d As Double
Dim sg As Single
u8 = i
Print Str(u8)                 // expect: 44
i8 = 200
Print Str(i8)                 // expect: -56
i16 = 70000
Print Str(i16)                // expect: 4464
u16 = -1
Print Str(u16)                // expect: 65535
u32 = -1
Print Str(u32)                // expect: 4294967295
i64 = i
Print Str(i64 * 10000000)     // expect: 3000000000
d = i
Print Str(d / 7)              // expect: 42.8571428571429
d = 3.99
i = d
Print Str(i)                  // expect: 3
d = -3.99
i = d
Print Str(i)                  // expect: -3
sg = 1.0 / 3.0
Print Str(sg)                 // expect: 0.333333343267441
d = sg
If d * 3 > 0.99 And d <> 1.0 / 3.0 Then Print "single precision"  // expect: single precision
