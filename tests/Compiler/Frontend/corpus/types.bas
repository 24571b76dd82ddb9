' Classes, interfaces, modules, structures, enums, delegates.
Interface Drawable
  Sub Draw(g As Graphics)
  Function Area() As Double
  Function Corners() As Point()
  Sub Property(v As Integer)
  Inherits Base.Shape
End Interface

Interface Empty
End Interface

Class Widget
  Inherits Control
  Implements Drawable
  Implements Util.Printable
  Dim count As Integer
  Private name As String = "w"
  Public Shared instances As Integer = 0
  Protected grid(3, 3) As Integer
  Global total As Double
  size As Integer
  Const kMax = 100
  Public Const kMin = 0
  Event Changed(value As Integer)
  Event Query() As Boolean
  Sub Constructor(n As String)
    name = n
  End Sub
  Private Function Area() As Double
    Return 0
  End Function
  Shared Sub Count()
  End Sub
  Sub Draw(g As Graphics)
  End Sub
  Property Width As Integer
    Get
      Return mWidth
    End Get
    Set
      mWidth = value
    End Set
  End Property
  Shared Property Default As Widget
    Get
    End Get
  End Property
  Declare Sub Native Lib "libc" ()
  Sub Destructor()
  End Sub
End Class

Class EmptyClass
End Class

Module Shapes
  Const kPi = 3.14159
  Private Const kSecret = "s"
  Dim origin As Integer
  Global Property Scale As Double
    Get
      Return 1.0
    End Get
  End Property
  Structure Point
    x As Integer
    y As Integer
    name(16) As Byte
    code As String * 4
    tag(8) As String * 2
  End Structure
  Structure EmptyStructure
  End Structure
  Enum Direction
    North
    East = 2
    South = -3
    West = kValue
  End Enum
  Enum Flags As UInt8
    A = &h01
    B = &h02
  End Enum
  Enum EmptyEnum
  End Enum
  Delegate Sub Callback(x As Integer)
  Delegate Function Transform(x As Double) As Double
  Class Circle
    Dim radius As Double
  End Class
  Interface Shape
  End Interface
  Module Inner
    Sub Nested()
    End Sub
  End Module
  Private Module Hidden
  End Module
  Protected Sub Helper()
  End Sub
  Function Make() As Point
  End Function
  Declare Function Abs Lib "libm" Alias "fabs" (x As Double) As Double
End Module

Module EmptyModule
End Module
