// A structure that holds an array of itself is error 118; swapping the
// bytes of a structure around it reports that error and no other.
Module Wire
  Structure Header
    Headers(5) As Header
  End Structure
  Structure Table
    Head As Header
  End Structure
End Module
Dim t As Wire.Table
t.EndianSwap
// expect error 5 118
