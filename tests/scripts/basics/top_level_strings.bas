// Strings held in top-level variables: built, replaced, shared with
// methods and arrays, and released once when the program ends.
Dim greeting As String = "Hello"
Dim name As String
Dim line As String
Dim count As Integer

Function Decorated(s As String) As String
  Return "<" + s + ">"
End Function

Sub Append(piece As String)
  line = line + piece
  count = count + 1
End Sub

name = "W" + "orld" + Str(1)
line = greeting + ", " + name
Print line                                  // expect: Hello, World1

// Replacing a string many times releases the old text each time.
Dim built As String
For i As Integer = 1 To 50
  built = built + Str(i Mod 10)
Next
Print Str(Len(built)) + " " + Left(built, 12) // expect: 50 123456789012

// A method writes a top-level string; the program reads it after.
line = ""
Append("a")
Append(Decorated("b"))
Append(greeting)
Print line + " " + Str(count)               // expect: a<b>Hello 3

// Two variables share one text; changing one leaves the other.
Dim copy As String = line
line = line + "!"
Print copy + " | " + line                   // expect: a<b>Hello | a<b>Hello!
copy = copy
Print copy                                  // expect: a<b>Hello

// A string taken from a function result, and the result of a function
// that reads the globals.
Function Summary() As String
  Return greeting + "/" + name + "/" + copy
End Function
Dim joined As String = Summary()
Print joined                                // expect: Hello/World1/a<b>Hello
Dim kept As String = joined
joined = ""
Print kept + " " + Str(Len(joined))         // expect: Hello/World1/a<b>Hello 0

// Strings declared in a top-level block.
If count = 3 Then
  Dim inner As String = Uppercase(Mid(kept, 7, 5))
  Print inner + inner                       // expect: WORLDWORLD
End If

// Several names in one clause, each with its own copy of the value.
Dim left1, right1 As String = "x" + Str(7)
left1 = left1 + "a"
Print left1 + right1                        // expect: x7ax7

// The main body may end early; the strings are still released.
If Len(greeting) > 0 Then
  Print "done"                              // expect: done
  Return
End If
Print "not reached"
