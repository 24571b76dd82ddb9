// The forms of expressions that belong to other themes of the front end
// (operator methods) and that expressions and lookups hand over to.
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

#endif
