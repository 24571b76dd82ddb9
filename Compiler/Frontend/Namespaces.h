// Name and scope lookup: every use of a name, with or without a dot, for
// reading, calling, indexing and assigning.
//
// A bare name is searched in a fixed order: the method's locals, constants
// and methods; the class's properties, constants and methods; the module's
// properties, constants and methods; then types, modules and UBound. The
// first step that yields a value ends the search; a step that fails keeps
// its reason, which is what is reported when nothing is found.
#ifndef COMPILER_FRONTEND_NAMESPACES_H
#define COMPILER_FRONTEND_NAMESPACES_H

#include "Compiler/Frontend/FunctionResultMode.h"
#include "Compiler/Frontend/ParserError.h"
#include "Compiler/datatypes.h"

class ClassSymbol;
class SemBase;

// object_ref: IDENT opt_paren_args; assignment: IDENT opt_paren_args ASSIGN
// expr; call_statement: IDENT opt_expr_list; explicit_call: Call IDENT
// opt_expr_list; redim_statement: Redim IDENT paren_args.
// `failureCode` is reported when the name is not found; `typeLike` refuses
// a type or module standing alone (compile error 89).
SemBase* CompileLookup(SemBase* ident, SemBase* args, SemBase* assignValue,
                       FunctionResultMode mode, CompileErrorCode failureCode,
                       bool typeLike);
// object_ref: object_ref . IDENT opt_paren_args; assignment, call_statement,
// explicit_call and redim_statement with object_ref . IDENT
SemBase* CompileScopeLookup(SemBase* expr, SemBase* ident, SemBase* args,
                            SemBase* assignValue, FunctionResultMode mode);
// const_value: IDENT. The value, which must be a constant (compile error
// 126 otherwise).
SemBase* CompileConstVal(SemBase* value);

// The forms of `expr.name` by what `expr` is.
SemBase* ExtensionLookup(SemBase* expr, SemBase* ident, SemBase* args,
                         SemBase* assignValue, FunctionResultMode mode,
                         CompileErrorCode failureCode);
SemBase* InstanceScopeLookup(SemBase* expr, SemBase* ident, SemBase* args,
                             SemBase* assignValue, FunctionResultMode mode);
SemBase* StaticClassScopeLookup(SemBase* expr, SemBase* ident, SemBase* args,
                                SemBase* assignValue, FunctionResultMode mode);
SemBase* ModuleScopeLookup(SemBase* expr, SemBase* ident, SemBase* args,
                           SemBase* assignValue, FunctionResultMode mode);
SemBase* IntrinsicScopeLookup(SemBase* expr, SemBase* ident, SemBase* args,
                              SemBase* assignValue, FunctionResultMode mode);

// Whether the code being compiled has a Self: an instance method, or a
// class body outside the accessors of a shared property.
bool CanAccessInstanceItems();
// Self in an instance method of `cls` or of a descendant, where
// `Super.Method` and `Ancestor.Method` name a method of `cls` to take on
// Self past the vtable; null elsewhere.
SemBase* InheritedSelf(ClassSymbol* cls);
// Whether `args` subscript something of `type` that is no array.
bool SubscriptNonArray(SemBase* args, IRDataType const& type);

// The value `ConcatList(args, assignValue)` that a call receives; `args`
// is cloned when both are present, so that the caller's list stays whole.
SemBase* CallArguments(SemBase* args, SemBase* assignValue);
// What a lookup gives after reporting that it found nothing: code of no
// type where no result is wanted, else a value that draws no further
// report.
SemBase* FailedLookupValue(SourceLocation const& where,
                           FunctionResultMode mode);

#endif
