// An array field whose type does not read is a syntax error; assigning to
// one of its elements earlier in the file is a type mismatch, not a fault.
n.Ps(1) = "ok"
Module Wire
  Structure Names
    Ps(1) A
  End Structure
End Module
Dim n As Wire.Names
// expect error 3 2
// expect error 6 1
