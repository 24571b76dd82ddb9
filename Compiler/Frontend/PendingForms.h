// The forms of expressions that belong to other themes of the front end
// (operator methods, structures, built-in members) and that expressions
// and lookups hand over to.
//
// STAND-INS FOR NOW: until its theme exists, each of these reports compile
// error 26 with the text of what was asked for, and gives a harmless value,
// so that a script using such a form gets one clear report and the parse
// goes on. Each stand-in goes away when its theme brings the real function
// of the same name.
#ifndef COMPILER_FRONTEND_PENDINGFORMS_H
#define COMPILER_FRONTEND_PENDINGFORMS_H

#include "Compiler/Frontend/FunctionResultMode.h"
#include "Compiler/Frontend/ParserError.h"
#include "Compiler/SymbolTable/GlobalSymbolTable.h"

class SemBase;

// Operators on objects, through methods named Operator_...
SemBase* ObjectBinop(SemBase* left, unsigned long op, SemBase* right);
SemBase* ObjectAnd(SemBase* left, SemBase* right);
SemBase* ObjectOr(SemBase* left, SemBase* right);
SemBase* ObjectNot(SemBase* operand);
SemBase* ObjectNegation(SemBase* operand);

// `expr.name` on the types that have lookups of their own. `expr` is a
// namespace or a typed identifier for the static forms.
SemBase* StructureScopeLookup(SemBase* expr, SemBase* ident, SemBase* args,
                              SemBase* assignValue, FunctionResultMode mode);
SemBase* StaticStructureScopeLookup(SemBase* expr, SemBase* ident,
                                    SemBase* args, SemBase* assignValue,
                                    FunctionResultMode mode);
// The built-in methods of Color and Ptr (`c.Red`, `p.Int32(0)`).
SemBase* BuiltInMemberLookup(SemBase* expr, SemBase* ident, SemBase* args,
                             SemBase* assignValue, FunctionResultMode mode);

#endif
