// An array field whose bound is the largest Int32: its element count is
// one past what an Int32 holds, so it is counted unsigned, and the field
// is too big for a structure (error 116).
Module Wire
  Structure Table
    Values(2147483647) As Int32
  End Structure
End Module
// expect error 6 116
