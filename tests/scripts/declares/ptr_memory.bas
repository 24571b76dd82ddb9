// Reading and writing memory through a Ptr at an offset, by type name:
// every width, floats, C and Pascal strings and a structure seen in place.
Module Mem
  Declare Function malloc Lib "libc.so.6" (n As Integer) As Ptr
  Declare Function calloc Lib "libc.so.6" (count As Integer, size As Integer) As Ptr
  Declare Sub free Lib "libc.so.6" (p As Ptr)
  Structure Pair
    A As Int32
    B As Int32
  End Structure
End Module
Dim p As Ptr = Mem.calloc(8, 8)
p.Int32 = 77
p.Int32(4) = 1234
p.Int16(8) = -2
p.UInt8(10) = 255
p.Int8(11) = -1
p.Double(16) = 2.5
p.Single(24) = 0.25
p.Int64(32) = -5000000000
Print Str(p.Int32) + " " + Str(p.Int32(0)) + " " + Str(p.Int32(4))  // expect: 77 77 1234
Print Str(p.Int16(8)) + " " + Str(p.UInt16(8)) + " " + Str(p.UInt8(10)) + " " + Str(p.Int8(11))  // expect: -2 65534 255 -1
Print Str(p.Double(16)) + " " + Str(p.Single(24)) + " " + Str(p.Int64(32))  // expect: 2.5 0.25 -5000000000
// A structure is not copied: it is the memory itself.
Dim copy As Mem.Pair = p.Pair(0)
Print Str(copy.A) + " " + Str(copy.B)                // expect: 77 1234
p.Pair(0).B = 99
Print Str(p.Int32(4)) + " " + Str(copy.B)           // expect: 99 1234
// A CString in memory is a pointer to the text.
p.CString(40) = "hello"
Print p.CString(40)                                  // expect: hello
Dim text As Ptr = Mem.malloc(16)
text.UInt8(0) = 104
text.UInt8(1) = 105
text.UInt8(2) = 0
p.Ptr(48) = text
Print p.CString(48)                                  // expect: hi
// A PString in memory is a pointer to a length byte and the text.
text.UInt8(0) = 1
p.Ptr(56) = text
Print "[" + p.PString(56) + "]"                      // expect: [i]
p.PString(56) = "pascal"
Print p.PString(56)                                  // expect: pascal
Mem.free(text)
Mem.free(p)
// Reading or writing through a Nil Ptr raises instead of touching page zero.
Dim nowhere As Ptr
Try
  nowhere.UInt8(2) = 0
Catch e As NilObjectException
  Print "write through Nil"                          // expect: write through Nil
End Try
Try
  Print Str(nowhere.Int32(0))
Catch e As NilObjectException
  Print "read through Nil"                           // expect: read through Nil
End Try
