// What cannot cross into C: a String (51), an object or a variant (50),
// an array, ByRef or not (49); a library must be a string or a string
// constant (64); a plug-in's functions take any type. In a class a
// Declare may not take a property's name (22). A Ptr method takes one
// offset at most (6).
Const kNumber = 3
Declare Function TakesString Lib "libx.so" (s As String) As Integer
Declare Sub PluginTakesString Lib "plugin:x" (s As String)
Declare Function GivesObject Lib "libx.so" () As Object
Declare Sub TakesArray Lib "libx.so" (ByRef a() As Integer)
Declare Sub TakesVariant Lib "libx.so" (v As Variant)
Declare Function NumberLibrary Lib kNumber () As Integer
Declare Function UnknownLibrary Lib kNowhere () As Integer
Class Widget
  Dim Width As Integer
  Declare Function Width Lib "libx.so" () As Integer
End Class
Dim p As Ptr
Print Str(p.Int32(4, 8))
// expect error 7 51
// expect error 9 50
// expect error 10 49
// expect error 11 50
// expect error 12 64
// expect error 13 64
// expect error 16 22
// expect error 19 6
