// Enumerations: the head, each value and the end of an Enum block, and
// `E.Name` in expressions. The scanner has made the enum and computed its
// values; these actions check that the grammar saw what the scanner saw.
#ifndef COMPILER_FRONTEND_ENUMS_H
#define COMPILER_FRONTEND_ENUMS_H

#include "Compiler/Frontend/FunctionResultMode.h"

class SemBase;

// enum_def: the enum-start marker. Enters the enum's block; a base type
// must be an integer type of no declaration (compile errors 113, 114).
SemBase* CompileEnum(SemBase* ident, SemBase* type);
// enum_value: IDENT opt_enum_init EOL. A written value must be an integer
// (compile error 113).
SemBase* CompileEnumValue(SemBase* ident, SemBase* value);
// enum_def: Enum IDENT opt_enum_base EOL [enum-start] opt_enum_values End
// Enum EOL
SemBase* CompileEndEnum(SemBase* ident);

// `E.Name`, where `expr` is a namespace or a typed identifier of the enum:
// the value as a constant of the enum's type. An unknown name is 11,
// arguments 6, an assignment 115, a value standing as a statement 15.
SemBase* EnumScopeLookup(SemBase* expr, SemBase* ident, SemBase* args,
                         SemBase* assignValue, FunctionResultMode mode);

#endif
