// Size on a value and on the type name, StringValue read and written
// (the raw bytes, little-endian here), and EndianSwap through nested
// structures and array fields; bytes and strings stay as they are.
Module Wire
  Structure Header
    Kind As UInt8
    Length As Int16
    Id As Int32
  End Structure
  Structure Table
    Values(9) As Int32
    Headers(5) As Header
    Tail As Int16
  End Structure
  Structure Packet
    Head As Header
    Codes(1) As UInt16
    Label As String * 3
    Stamp As Int64
  End Structure
End Module
Dim h As Wire.Header
Print Str(h.Size) + " " + Str(Wire.Header.Size) + " " + Str(Wire.Packet.Size)  // expect: 7 7 22
h.Kind = 65
h.Length = 258
h.Id = 16909060
Dim bytes As String = h.StringValue
Print Str(Len(bytes))                                        // expect: 7
Print Str(Asc(Mid(bytes, 1, 1))) + " " + Str(Asc(Mid(bytes, 2, 1))) + " " + Str(Asc(Mid(bytes, 3, 1))) + " " + Str(Asc(Mid(bytes, 4, 1)))  // expect: 65 2 1 4
Dim back As Wire.Header
back.StringValue = bytes
Print Str(back.Kind) + " " + Str(back.Length) + " " + Str(back.Id)  // expect: 65 258 16909060
// A shorter string fills the front; the rest becomes zero.
back.StringValue = "B"
Print Str(back.Kind) + " " + Str(back.Length) + " " + Str(back.Id)  // expect: 66 0 0

Dim p As Wire.Packet
p.Head = h
p.Codes(0) = 1
p.Codes(1) = 513
p.Label = "abc"
p.Stamp = 1
p.EndianSwap
Print Str(p.Head.Kind) + " " + Hex(p.Head.Length) + " " + Hex(p.Head.Id)  // expect: 65 201 4030201
Print Str(p.Codes(0)) + " " + Str(p.Codes(1)) + " " + p.Label            // expect: 256 258 abc
If p.Stamp = 72057594037927936 Then Print "stamp swapped"                // expect: stamp swapped
p.EndianSwap
Print Str(p.Head.Length) + " " + Str(p.Codes(1)) + " " + Str(p.Stamp)    // expect: 258 513 1

// Long array fields, of numbers and of structures, are swapped whole.
Dim t As Wire.Table
For i As Integer = 0 To 9
  t.Values(i) = i + 256
Next
For i As Integer = 0 To 5
  t.Headers(i).Kind = i
  t.Headers(i).Length = i + 1
  t.Headers(i).Id = 16777216 * (i + 1)
Next
t.Tail = 2
t.EndianSwap
Print Str(t.Values(0)) + " " + Str(t.Values(9)) + " " + Str(t.Tail)     // expect: 65536 151060480 512
Print Str(t.Headers(5).Kind) + " " + Str(t.Headers(5).Length) + " " + Str(t.Headers(5).Id)  // expect: 5 1536 6
t.EndianSwap
Print Str(t.Values(9)) + " " + Str(t.Headers(0).Length) + " " + Str(t.Headers(5).Id)  // expect: 265 1 100663296
