// Delegates of module methods, shared methods, instance methods, virtual
// ones (through a class or an interface, or past it with Super) and
// private ones, called through Invoke with values of several types, and
// compared, tested with IsA and cast; a cast to another shape is refused.
Module Ops
  Delegate Function BinOp(a As Integer, b As Integer) As Integer
  Delegate Sub Notify(msg As String)
  Delegate Function Mix(x As Double, s As String, n As Int64) As String
  Function Minus(a As Integer, b As Integer) As Integer
    Return a - b
  End Function
  Function Power(a As Integer, b As Integer) As Integer
    Return a ^ b
  End Function
  Sub Shout(msg As String)
    Print msg + "!"
  End Sub
  Function Join3(x As Double, s As String, n As Int64) As String
    Return Str(x) + s + Str(n)
  End Function
  Function Apply(op As BinOp, a As Integer, b As Integer) As Integer
    Return op.Invoke(a, b)
  End Function
End Module
Module Talk
  Delegate Function Speaker(times As Integer) As String
  Delegate Function Namer() As String
  Delegate Function Greeting(name As String) As String
End Module
Interface Greeter
  Function Greet(name As String) As String
End Interface
Class Polite
  Implements Greeter
  Function Greet(name As String) As String
    Return "hello " + name
  End Function
  Private Function Secret(name As String) As String
    Return "psst " + name
  End Function
  Function Whisper() As Talk.Greeting
    Return AddressOf Secret
  End Function
End Class
Class Loud
  Inherits Polite
  Function Greet(name As String) As String
    Return "HELLO " + name
  End Function
End Class
Class Animal
  Dim Name As String
  Function Speak(times As Integer) As String
    Return Name + " makes a sound"
  End Function
  Shared Function Kind() As String
    Return "animal"
  End Function
  Function Myself() As Talk.Speaker
    Return AddressOf Speak
  End Function
End Class
Class Dog
  Inherits Animal
  Function Speak(times As Integer) As String
    Return Name + " barks x" + Str(times)
  End Function
  Function Inherited() As Talk.Speaker
    Return AddressOf Super.Speak
  End Function
End Class
Dim f As Ops.BinOp = AddressOf Ops.Minus
Print Str(f.Invoke(7, 3)) + " " + Str(Ops.Apply(AddressOf Ops.Power, 2, 5))
f = AddressOf Ops.Power
Print Str(f.Invoke(3, 2))
Dim n As Ops.Notify = AddressOf Shout
n.Invoke("hello")
Dim m As Ops.Mix = AddressOf Ops.Join3
Print m.Invoke(1.5, "/", 5000000000)
Dim a As Animal = New Dog
a.Name = "rex"
Dim sp As Talk.Speaker = AddressOf a.Speak
Dim own As Talk.Speaker = a.Myself
a = New Animal
a.Name = "generic"
Print sp.Invoke(2) + ", " + own.Invoke(3)
Dim nm As Talk.Namer = AddressOf Animal.Kind
Print nm.Invoke()
Dim d As New Dog
d.Name = "fido"
Dim one As Talk.Speaker = AddressOf d.Speak
Dim two As Talk.Speaker = AddressOf d.Speak
If one = two Then Print "one bound method, equal"
If one <> sp Then Print "other object, different"
Dim none As Talk.Speaker
If none = Nil And one <> Nil Then Print "nil compares"
If sp IsA Talk.Speaker Then Print "is a speaker"
If Not (sp IsA Talk.Namer) Then Print "is no namer"
Dim o As Object = sp
Dim back As Talk.Speaker = Speaker(o)
Print back.Invoke(1)
Dim gr As Greeter = New Loud
Dim hi As Talk.Greeting = AddressOf gr.Greet
Dim courteous As New Polite
Print hi.Invoke("ann") + ", " + courteous.Whisper.Invoke("bob")
Print d.Inherited.Invoke(4)
Try
  Dim wrong As Talk.Namer = Namer(o)
  Print "cast passed"
Catch err
  Print "cast refused"
End Try
// expect: 4 32
// expect: 9
// expect: hello!
// expect: 1.5/5000000000
// expect: rex barks x2, rex barks x3
// expect: animal
// expect: one bound method, equal
// expect: other object, different
// expect: nil compares
// expect: is a speaker
// expect: is no namer
// expect: rex barks x1
// expect: HELLO ann, psst bob
// expect: fido makes a sound
// expect: cast refused
