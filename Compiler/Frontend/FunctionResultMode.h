// What a name lookup or a call must produce.
#ifndef COMPILER_FRONTEND_FUNCTIONRESULTMODE_H
#define COMPILER_FRONTEND_FUNCTIONRESULTMODE_H

// 0: a result is required (an expression); 1: none may be produced (a
// statement, or an assignment when a value is given); 2: an explicit Call.
// Values other than 1 accept both.
typedef long FunctionResultMode;
enum : long {
  kRequireFunctionResult = 0,
  kProhibitFunctionResult = 1,
  kExplicitCall = 2,
};

#endif
