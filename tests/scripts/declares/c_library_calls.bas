// Real C functions of the C and maths libraries, through the external
// string types, numbers, and a structure filled through ByRef.
Module CLib
  Declare Function strlen Lib "libc.so.6" (s As CString) As Integer
  Declare Function abs Lib "libc.so.6" (n As Integer) As Integer
  Declare Function setenv Lib "libc.so.6" (name As CString, value As CString, overwrite As Integer) As Integer
  Declare Function getenv Lib "libc.so.6" (name As CString) As CString
  Declare Function cos Lib "libm.so.6" (x As Double) As Double
  Declare Function pow Lib "libm.so.6" (x As Double, y As Double) As Double
  Declare Function cosf Lib "libm.so.6" (x As Single) As Single
  Declare Function llabs Lib "libc.so.6" (n As Int64) As Int64
  Declare Function LongestPrefix Lib "libc.so.6" Alias "strspn" (s As CString, accept As CString) As Integer
  Structure TimeValue
    Seconds As Int32
    Micros As Int32
  End Structure
  Declare Function gettimeofday Lib "libc.so.6" (ByRef tv As TimeValue, zone As Ptr) As Integer
  // An IPv4 address crosses into C as a structure passed by value, its
  // bytes in network order whatever the target's byte order.
  Structure Address
    A As UInt8
    B As UInt8
    C As UInt8
    D As UInt8
  End Structure
  Structure Endpoint
    Port As UInt16
    Host As Address
  End Structure
  Declare Function inet_ntoa Lib "libc.so.6" (ByVal a As Address) As CString
  Const kMaths = "libm.so.6"
  Declare Function sqrt Lib kMaths (x As Double) As Double
End Module
Print Str(CLib.strlen("hello"))                       // expect: 5
Print Str(CLib.strlen(""))                            // expect: 0
Print Str(CLib.abs(-42))                              // expect: 42
Print Str(CLib.setenv("QUORL_GOLDEN_VALUE", "from C", 1))  // expect: 0
Print CLib.getenv("QUORL_GOLDEN_VALUE")               // expect: from C
Print "[" + CLib.getenv("QUORL_GOLDEN_SURELY_UNSET") + "]"  // expect: []
Print Str(CLib.cos(0))                                // expect: 1
Print Str(CLib.pow(2, 10))                            // expect: 1024
Print Str(CLib.cosf(0)) + " " + Str(CLib.llabs(-5000000000))  // expect: 1 5000000000
Print Str(CLib.sqrt(16))                              // expect: 4
Print Str(CLib.LongestPrefix("aabbc", "ab"))          // expect: 4
Dim now As CLib.TimeValue
Print Str(CLib.gettimeofday(now, Nil))                // expect: 0
If now.Seconds > 1700000000 And now.Micros >= 0 And now.Micros < 1000000 Then Print "the time"  // expect: the time

// By value from a variable, a field and an array element; the C side sees
// a copy, never the address.
Dim home As CLib.Address
home.A = 127
home.D = 1
Dim peer As CLib.Endpoint
peer.Port = 8080
peer.Host.A = 10
peer.Host.B = 20
peer.Host.C = 30
peer.Host.D = 40
Dim row(1) As CLib.Address
row(1).A = 192
row(1).B = 168
row(1).D = 255
Print CLib.inet_ntoa(home)                            // expect: 127.0.0.1
Print CLib.inet_ntoa(peer.Host) + " " + CLib.inet_ntoa(row(1))  // expect: 10.20.30.40 192.168.0.255

// A Declare in a method is the method's own; one at the top level is
// seen from there on. Soft ones are looked up at each call.
Function Distance(n As Integer) As Integer
  Declare Function labs Lib "libc.so.6" (n As Integer) As Integer
  Return labs(n)
End Function
Soft Declare Function atoi Lib "libc.so.6" (s As CString) As Integer
Print Str(Distance(-7) + atoi("35"))                  // expect: 42
