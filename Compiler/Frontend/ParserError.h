// Reporting compile errors from the grammar's actions. An action reports
// through Error(), returns a harmless value and parsing goes on; the
// context's error flag keeps the compilation from reaching the back end.
#ifndef COMPILER_FRONTEND_PARSERERROR_H
#define COMPILER_FRONTEND_PARSERERROR_H

#include "Compiler/CompileError.h"
#include "Compiler/SourceLocation.h"
#include "Universal/SimpleVector.h"
#include "Universal/ustring.h"

class IRDataType;

// Reports an error at a place: sets the compilation's error flag and hands a
// CompileError to the delegate, if there is one. Asserts that a compilation
// is under way.
void Error(CompileErrorCode code, SourceLocation const& where);
// The same at the lexer's current line.
void Error(CompileErrorCode code);
// The same with text arguments, first converted to the system encoding.
void Error(CompileErrorCode code, SourceLocation const& where,
           SimpleVector<string> const& arguments);
// An error whose arguments are the two types' texts.
void TypeMismatchError(CompileErrorCode code, SourceLocation const& where,
                       IRDataType const& have, IRDataType const& want);
void TypeMismatchError(SourceLocation const& where, IRDataType const& have,
                       IRDataType const& want);

#endif
