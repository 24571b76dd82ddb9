// A structure may not pass 16 MB: a fixed string or an array field that
// takes it past is error 116, where it used to wrap the 32-bit size.
Module Wire
  Structure Huge
    P As String * 2147483647
    Tail As UInt8
  End Structure
  Structure Many
    Head As Int32
    Cells(100000000) As Int64
  End Structure
  Structure Fine
    Cells(1000) As Int64
  End Structure
End Module
// expect error 5 116
// expect error 10 116
