// Arrays in expressions and statements: Array(...) and Redim.
//
// STAND-INS FOR NOW: each action returns a harmless value (usually code
// of the null type) so that the whole language parses; the issues of
// these actions fill the bodies in.
#ifndef COMPILER_FRONTEND_ARRAYS_H
#define COMPILER_FRONTEND_ARRAYS_H

#include "Compiler/datatypes.h"

class SemBase;

// object_ref: Array paren_args
SemBase* CompileArrayFactory(SemBase* list, IRDataType const& elementType);
// redim_statement: Redim IDENT paren_args; Redim object_ref . IDENT paren_args
SemBase* CompileRedim(SemBase* array, SemBase* sizes);

#endif
