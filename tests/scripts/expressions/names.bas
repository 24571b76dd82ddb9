// Names that are not declared anywhere are compile error 11 at their line;
// a type name cannot stand as a statement.
Dim total As Integer
total = undeclaredThing + 1     // expect error 4 11
Integer                         // expect error 5 31
total = Self                    // expect error 6 32
