// Operator_Convert converts both ways: a method with a result turns the
// object into that type, a Sub with one parameter makes a new object of
// the class from a value (without running a constructor). Operator_Lookup
// takes member names the class does not declare, with the name as text.
Class Celsius
  Dim degrees As Double
  Function Operator_Convert() As Double
    Return degrees
  End Function
  Function Operator_Convert() As String
    Return Str(degrees) + " C"
  End Function
  Sub Operator_Convert(value As Double)
    degrees = value
  End Sub
End Class
Sub Report(text As String)
  Print "report: " + text
End Sub
Dim warm As Celsius = 21.5
Print Str(warm.degrees)
Dim d As Double = warm
Print Str(d + 1)
Dim s As String = warm
Print s
Report(warm)
// expect: 21.5
// expect: 22.5
// expect: 21.5 C
// expect: report: 21.5 C

Class Settings
  Dim log As String
  Function Operator_Lookup(name As String) As String
    Return "value of " + name
  End Function
  Function Operator_Lookup(name As String, index As Integer) As String
    Return name + "(" + Str(index) + ")"
  End Function
  Sub Operator_Lookup(name As String, Assigns value As Integer)
    log = log + "[" + name + "=" + Str(value) + "]"
  End Sub
  Function Declared() As String
    Return "declared members come first"
  End Function
End Class
Dim config As New Settings
Print config.colour
Print config.slot(3)
config.width = 640
config.height = 480
Print config.log
Print config.Declared
// expect: value of colour
// expect: slot(3)
// expect: [width=640][height=480]
// expect: declared members come first
