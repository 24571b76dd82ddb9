// Not on a variable of every integer width is the complement of all its
// bits, and agrees with the folded constant.
Dim i8 As Int8 = 5
Dim u8 As UInt8 = 5
Dim i16 As Int16 = 5
Dim u16 As UInt16 = 5
Dim i32 As Integer = 5
Dim u32 As UInt32 = 5
Print Str(Not i8) + " " + Str(Not u8)            // expect: -6 250
Print Str(Not i16) + " " + Str(Not u16)          // expect: -6 65530
Print Str(Not i32) + " " + Str(Not u32)          // expect: -6 4294967290
Print Str(Not 5)                                 // expect: -6
Dim m As Int64 = 5000000000
Print Str(Not m) + " " + Str(Not 5000000000)     // expect: -5000000001 -5000000001
Dim n As Int64 = -1
Print Str(Not n) + " " + Str(Not Not m)          // expect: 0 5000000000
Dim u64 As UInt64 = 4294967296
Dim high As UInt64 = Not u64
Print Str(high \ u64) + " " + Str(high Mod u64) // expect: 4294967294 4294967295
