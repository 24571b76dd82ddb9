// Functions of the script library that take or make arrays, served to
// scripts under these C names:
//   Split(source As String, delimiter As String=) As String()
//   Join(fields() As String, delimiter As String=) As String
//   Max / Min(val1 As Double, val2 As Double, ParamArray others As Double)
// String arguments are borrowed; a string or array result carries one
// reference, which the caller owns.
#ifndef COMMON_ARRAYS_ARRAYLIBRARY_H
#define COMMON_ARRAYS_ARRAYLIBRARY_H

#include "Common/ObjectModel/RuntimeObjectFoundation.h"
#include "Universal/ustring.h"

extern "C" {

// The fields of `source` between occurrences of `delimiter`, found without
// regard to case; an empty delimiter gives each character as a field.
// Consecutive delimiters give empty fields; an empty source gives an empty
// array. The array is made once, at its final size.
RuntimeObject* StringSplit(stringStorage* source, stringStorage* delimiter);
// The elements of a one-dimensional String array with the delimiter between
// them (nothing, when it is empty), made with one allocation of the final
// size. Nil raises the nil-object exception and gives the empty string.
stringStorage* StringJoin(RuntimeObject* fields, stringStorage* delimiter);
// The greatest and least of the two values and the elements of `others`, a
// Double array that may be empty or nil.
double RuntimeMax(double a, double b, RuntimeObject* others);
double RuntimeMin(double a, double b, RuntimeObject* others);

}  // extern "C"

#endif
