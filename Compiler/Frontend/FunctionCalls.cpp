#include "Compiler/Frontend/FunctionCalls.h"

#include "Compiler/SemBase.h"

// simple_statement: explicit_call (Call name args)
SemBase* FilterCallTargets(SemBase* expr) {
  return expr ? expr : SemCode::New(IRDataType(), nullptr);
}

// raise_event_statement: RaiseEvent IDENT opt_expr_list;
// raise_event_expr: RaiseEvent IDENT opt_paren_args
SemBase* CompileRaiseEvent(SemBase* ident, SemBase* args,
                           FunctionResultMode mode) {
  return SemCode::New(IRDataType(), nullptr);
}
