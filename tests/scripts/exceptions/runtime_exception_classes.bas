// Each failure of the runtime reaches a script's Catch as an object of its
// own class, derived from RuntimeException, with a message that says what
// happened.
Class Animal
End Class
Class Dog
  Inherits Animal
  Dim name As String
  Sub Speak()
    Print "woof"
  End Sub
End Class
Class Cat
  Inherits Animal
End Class

Sub Report(e As RuntimeException)
  Dim kind As String = "RuntimeException"
  If e IsA OutOfBoundsException Then kind = "OutOfBoundsException"
  If e IsA NilObjectException Then kind = "NilObjectException"
  If e IsA IllegalCastException Then kind = "IllegalCastException"
  If e IsA OutOfMemoryException Then kind = "OutOfMemoryException"
  If e IsA StackOverflowException Then kind = "StackOverflowException"
  Print kind + ": " + e.Message
End Sub

Function Deeper(n As Integer) As Integer
  Return Deeper(n + 1) + 1
End Function

Dim a(2) As Integer
Dim grid(1, 1) As String
Dim nothing As Dog
Dim pet As Animal = New Cat
Dim stage As Integer
For stage = 1 To 11
  Try
    Select Case stage
    Case 1
      a(3) = 1
    Case 2
      Print Str(a(-1))
    Case 3
      grid(0, 2) = "x"
    Case 4
      a.Insert(5, 1)
    Case 5
      a.Remove(3)
    Case 6
      Redim a(-2)
    Case 7
      Print nothing.name
    Case 8
      nothing.Speak()
    Case 9
      Dim d As Dog = Dog(pet)
    Case 10
      Redim a(2147483647)
    Case 11
      Print Str(Deeper(1))
    End Select
    Print "no exception at step " + Str(stage)
  Catch e As RuntimeException
    Report(e)
  End Try
Next
// expect: OutOfBoundsException: Index 3 is outside the bounds 0 to 2
// expect: OutOfBoundsException: Index -1 is outside the bounds 0 to 2
// expect: OutOfBoundsException: Index 2 is outside the bounds 0 to 1
// expect: OutOfBoundsException: Index 5 is outside the bounds 0 to 3
// expect: OutOfBoundsException: Index 3 is outside the bounds 0 to 2
// expect: OutOfBoundsException: An index was outside the bounds of the array
// expect: NilObjectException: An object was used that is Nil
// expect: NilObjectException: An object was used that is Nil
// expect: IllegalCastException: An object was cast to a class it does not belong to
// expect: OutOfMemoryException: There was not enough memory for the operation
// expect: StackOverflowException: The stack overflowed: calls were nested too deeply

// Caught by their own classes, the first matching handler wins.
Try
  a(9) = 0
Catch e As NilObjectException
  Print "wrong handler"
Catch e As OutOfBoundsException
  Print "out of bounds, by class"
End Try
// expect: out of bounds, by class

// The array library's own checks raise the same classes.
Dim dogs(1) As Dog
Dim keys(3) As Integer
Try
  Print Str(grid.UBound(3))
Catch e As OutOfBoundsException
  Print "UBound of a third dimension"
End Try
Try
  Print Str(a.IndexOf(1, 7))
Catch e As OutOfBoundsException
  Print "IndexOf from past the end"
End Try
Try
  a.SortWith(keys)
Catch e As OutOfBoundsException
  Print "SortWith keys of another length"
End Try
Dim animals() As Animal = dogs
Try
  animals(0) = New Cat
Catch e As IllegalCastException
  Print "a Cat into an array of Dogs"
End Try
// expect: UBound of a third dimension
// expect: IndexOf from past the end
// expect: SortWith keys of another length
// expect: a Cat into an array of Dogs

// A variant that cannot become the type asked for.
Dim boxed As Variant = New Dog
Try
  Dim n As Integer = boxed
Catch e As TypeMismatchException
  Print "TypeMismatchException: " + e.Message
End Try
// expect: TypeMismatchException: A value could not be converted to the type needed
