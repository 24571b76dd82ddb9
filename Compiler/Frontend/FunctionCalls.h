// Calls as statements and events raised by name.
//
// STAND-INS FOR NOW: each action returns a harmless value (usually code
// of the null type) so that the whole language parses; the issues of
// these actions fill the bodies in.
#ifndef COMPILER_FRONTEND_FUNCTIONCALLS_H
#define COMPILER_FRONTEND_FUNCTIONCALLS_H

#include "Compiler/Frontend/FunctionResultMode.h"

class SemBase;

// simple_statement: explicit_call (Call name args)
SemBase* FilterCallTargets(SemBase* expr);
// raise_event_statement: RaiseEvent IDENT opt_expr_list;
// raise_event_expr: RaiseEvent IDENT opt_paren_args
SemBase* CompileRaiseEvent(SemBase* ident, SemBase* args,
                           FunctionResultMode mode);

#endif
