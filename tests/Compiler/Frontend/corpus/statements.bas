' Top-level statements: declarations, assignments, calls, labels.
Dim b, c As Double = 1.5
Dim d(), e(3) As Integer
Dim f(2, 3) As String, g As Boolean = True
Dim h As New Widget
Dim k As New Widget(1, "two")
Dim m As Outer.Shapes.Circle
Static counter As Integer = 0
Const kLimit = 10
Const kRed = &cFF0000
Const kAlias = kLimit
Const kNothing = Nil
a = b = c
a(x = 1) = 2
Me.x = 1
a.b(2).c = 1
Self.Value = 3
Super.Reset
x = obj Is Nil Or obj IsA Widget
x = New Widget
x = New Widget(1, 2)
x = Array(1, 2, 3)
x = Class Widget
x = Class Of obj
x = AddressOf Handler
x = AddressOf obj.Handler
x = RaiseEvent Changed(1)
x = &hFF + &o17 + &b101 + .5 + 1e3
x = "quoted ""word""" + \"escaped\tline\n"
x = &c00FF00
x = ()
x = (a, b)
Print("hello")
DoIt
obj.Method 1, 2
obj.Method(1)
Call Finish
Call obj.Finish(1)
RaiseEvent Changed 1, 2
Redim d(10)
Redim obj.items(5, 5)
Raise New RuntimeException
Return
Declare Sub Beep Lib "libc"
Declare Function Ticks Lib "libc" Alias "ticks" () As Integer
Declare Function Puts Lib LibName (s As CString) As Integer Inline68k("0000")
Soft Declare Sub Maybe Lib "libm" (ByVal x As Double)
Dim total As Integer = _
  1 + _  ' a comment after the continuation
  2
