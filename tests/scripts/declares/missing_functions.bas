// A library that does not load, or one without the symbol, raises where
// the call is made; a handler catches it and the program goes on. The
// forms that send messages to objects have no runtime here and raise the
// same way.
Declare Sub Nowhere Lib "libquorl_no_such_library.so" ()
Declare Function NotInC Lib "libc.so.6" Alias "quorl_no_such_symbol" () As Integer
Soft Declare Function AlsoNotInC Lib "libc.so.6" () As Integer
Declare Function NSClassFromString Lib "Foundation" (name As CString) As Ptr
Declare Function Describe Lib "Foundation" Selector "description" (receiver As Ptr) As Ptr
Try
  Nowhere
Catch
  Print "no library"                                 // expect: no library
End Try
Try
  Print Str(NotInC())
Catch
  Print "no symbol"                                  // expect: no symbol
End Try
Try
  Print Str(AlsoNotInC())
Catch
  Print "no soft symbol"                             // expect: no soft symbol
End Try
Try
  Dim cls As Ptr = NSClassFromString("NSObject")
Catch
  Print "no Foundation"                              // expect: no Foundation
End Try
Try
  Dim text As Ptr = Describe(Nil)
Catch
  Print "no selectors"                               // expect: no selectors
End Try
Print "still running"                                // expect: still running
Nowhere
Print "not reached"
// expect runtime error 36: FunctionNotFoundException: Could not load Nowhere from libquorl_no_such_library.so
