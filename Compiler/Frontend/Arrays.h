// Arrays in expressions and statements: allocation by Dim, Array(...) and
// the packing of ParamArray arguments, Redim, element reads and writes,
// UBound and the built-in array methods.
//
// Every access goes through the method table that each array object holds
// at kArrayMethodsOffset: the generated code reads a function pointer from the table
// and calls it, so one sequence serves every element type and dimension
// count. Only the entry's offset is known at compile time.
#ifndef COMPILER_FRONTEND_ARRAYS_H
#define COMPILER_FRONTEND_ARRAYS_H

#include "Common/Arrays/ArrayLayout.h"
#include "Compiler/Frontend/FunctionResultMode.h"
#include "Compiler/Frontend/ParserError.h"
#include "Compiler/datatypes.h"
#include "Universal/SimpleVector.h"

class SemBase;
class TacAddr;


// The element code CreateArray takes for an element type; compile error
// 129 and 0 for a type that has none.
int ElementCode(IRDataType const& element, SourceLocation const& where);
// Whether Sort and SortWith work on arrays of the type.
bool SortableDatatype(IRDataType const& element);

// False, with its compile error, for a Dim bound that is not an integer
// constant of at least -1.
bool ValidateArrayUbound(SemBase* bound);
// A new array of `typeIdent`'s type with the given upper bounds (none: one
// empty dimension).
SemBase* AllocateNewArray(SimpleVector<SemBase*>& bounds, SemBase* typeIdent);
// object_ref: Array paren_args. With a null `elementType` the elements'
// common type is the element type.
SemBase* CompileArrayFactory(SemBase* list, IRDataType const& elementType);
// redim_statement: Redim IDENT paren_args; Redim object_ref . IDENT paren_args
SemBase* CompileRedim(SemBase* array, SemBase* sizes);

SemBase* GetArrayElement(SemBase* array, SemBase* indexes);
void SetArrayElementValue(SemBase* array, SemBase* indexes, SemBase* value,
                          SemBase* code);
// UBound(array[, dimension]) as a function.
SemBase* HandleUbound(SemBase* args);

// Pointer temporary `entry` loaded with the table entry at `offset` of
// `array`.
void FetchArrayEntry(TacAddr const* array, ArrayTableEntry offset,
                     TacAddr const* entry, SemBase* code);
// Queues `leading`, then each index as an Int32, checking the count
// against the array's dimensions (compile errors 17 and 18).
void PushArrayArguments(SemBase* array,
                        SimpleVector<TacAddr const*> const& leading,
                        SemBase* indexes, SemBase* code);

// `a.Append(x)`, `a.Sort()` and the other built-in methods; null when none
// fits, with the reason in `whyFailed` unless an extension method serves.
SemBase* HandleArrayMethodCall(SemBase* array, SemBase* ident, SemBase* args,
                               FunctionResultMode mode);
bool IsPotentialArrayMethodName(string const& name);
// The element type of an array expression into `element`; false for what
// is no array.
bool FindArrayElementType(SemBase* array, IRDataType* element);

#endif
