// A field whose type does not read is a syntax error; swapping the bytes
// of a structure that holds it, earlier in the file, reports that error
// and no other.
p.EndianSwap
Module Wire
  Structure Header
    Length As Do
  End Structure
  Structure Packet
    Head As Header
  End Structure
End Module
Dim p As Wire.Packet
// expect error 7 1
