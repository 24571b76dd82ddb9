// Name and scope lookup: every use of a name, with or without a dot, for
// reading, calling, indexing and assigning.
//
// STAND-INS FOR NOW: lookups return code of the null type, except that a
// bare read of a target constant ("TargetLinux", "TargetX86"...) gives its
// Boolean value, which conditional compilation needs before the constants
// are declared in the global table. The lookup issue fills the bodies in.
#ifndef COMPILER_FRONTEND_NAMESPACES_H
#define COMPILER_FRONTEND_NAMESPACES_H

#include "Compiler/Frontend/FunctionResultMode.h"
#include "Compiler/Frontend/ParserError.h"

class SemBase;

// object_ref: IDENT opt_paren_args; assignment: IDENT opt_paren_args ASSIGN
// expr; call_statement: IDENT opt_expr_list; explicit_call: Call IDENT
// opt_expr_list; redim_statement: Redim IDENT paren_args
SemBase* CompileLookup(SemBase* ident, SemBase* args, SemBase* assignValue,
                       FunctionResultMode mode, CompileErrorCode failureCode,
                       bool typeLike);
// object_ref: object_ref . IDENT opt_paren_args; assignment, call_statement,
// explicit_call and redim_statement with object_ref . IDENT
SemBase* CompileScopeLookup(SemBase* expr, SemBase* ident, SemBase* args,
                            SemBase* assignValue, FunctionResultMode mode);
// const_value: IDENT
SemBase* CompileConstVal(SemBase* value);

#endif
