// Calls: the arguments pushed after all of them are evaluated, and the
// call emitted the way the method's dispatch demands. Also calls as
// statements and events raised by name.
#ifndef COMPILER_FRONTEND_FUNCTIONCALLS_H
#define COMPILER_FRONTEND_FUNCTIONCALLS_H

#include "Compiler/Frontend/FunctionResultMode.h"
#include "Compiler/datatypes.h"

class MethodSymbol;
class SemBase;

// Code whose result is the call's value (none for a Sub), by the target's
// dispatch: direct, vtable or interface, event, weak link, selector
// message, delegate.
SemBase* CompileCall(MethodSymbol* target, SemBase* base, SemBase* args);
// A direct call of a Normal or Virtual method: `Super.Method` bypasses the
// vtable this way.
SemBase* CompileStaticCall(MethodSymbol* target, SemBase* base, SemBase* args);
// One argument as the parameter wants it: converted, or for ByRef the
// address of a variable (compile error 21 for anything else).
SemBase* PushOneArgument(IRDataType const& paramType, SemBase* arg,
                         SemBase* code);
// Every argument evaluated left to right, defaults and a ParamArray filled
// in, then one PutParam per parameter, `self` or `Extends` first.
void PushAllArguments(MethodSymbol* target, SemBase* base, SemBase* args,
                      SemBase* code);

// simple_statement: explicit_call (Call name args). A bare value is no
// call: compile error 15.
SemBase* FilterCallTargets(SemBase* expr);
// raise_event_statement: RaiseEvent IDENT opt_expr_list;
// raise_event_expr: RaiseEvent IDENT opt_paren_args
SemBase* CompileRaiseEvent(SemBase* ident, SemBase* args,
                           FunctionResultMode mode);

#endif
