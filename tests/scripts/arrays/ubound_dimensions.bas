// UBound with a dimension, as a function and as a method, on arrays of one
// to three dimensions; -1 asks for the number of dimensions.
Dim grid(3, 5) As Integer
Print Str(UBound(grid, 1)) + " " + Str(UBound(grid, 2))             // expect: 3 5
Print Str(grid.UBound(1)) + " " + Str(grid.UBound(2)) + " " + Str(grid.UBound)   // expect: 3 5 3
Dim cube(1, 2, 4) As String
Print Str(cube.UBound(3)) + " " + Str(UBound(cube, 3)) + " " + Str(cube.UBound(-1))   // expect: 4 4 3
Redim grid(7, 1)
Print Str(grid.UBound(1)) + " " + Str(grid.UBound(2))              // expect: 7 1
Dim d As Integer = 2
Print Str(grid.UBound(d)) + " " + Str(UBound(grid, d - 1))          // expect: 1 7
Dim flat() As Double = Array(1.5, 2.5)
Print Str(flat.UBound(1)) + " " + Str(flat.UBound(-1))             // expect: 1 1
// A dimension the array does not have raises in both forms.
Try
  Print Str(grid.UBound(3))
Catch
  Print "method form raised"                                       // expect: method form raised
End Try
Try
  Print Str(UBound(flat, 0))
Catch
  Print "function form raised"                                     // expect: function form raised
End Try
