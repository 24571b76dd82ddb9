// Method bodies: the head and end of a Sub or Function, parameters and
// their modifiers, the prolog and epilog, Return, and the implicit self
// and me.
#ifndef COMPILER_FRONTEND_FUNCTIONS_H
#define COMPILER_FRONTEND_FUNCTIONS_H

#include "Compiler/SourceLocation.h"
#include "Compiler/datatypes.h"

class MethodSymbol;
class SemBase;
class TacBlock;

// sub_def / func_def: the sub-start and func-start markers. Finds the
// method's declaration, enters it, declares `Return` for a function and
// saves the pragmas. A missing declaration is compile error 11.
void CompileFunction(SemBase* name, SemBase* alias, SemBase* params,
                     SemBase* returnType, SemBase* handles, SemBase* shared);
// sub_def: ... End Sub EOL; func_def: ... End Function EOL. `name` is the
// method table's index that the scope marker yielded. The whole function:
// Enter, prolog, body, exit label, release of the locals, Leave.
SemBase* CompileEndFunction(SemBase* unused1, SemBase* name, SemBase* params,
                            SemBase* unused2, SemBase* body);
// The parameters fetched in reverse order of declaration, the locals
// zeroed, reference-counted parameters locked or borrowed, the checks of
// the pragmas. Reports the faults of the parameter order (80 to 84).
SemBase* CompileFunctionProlog(SemBase* name, SemBase* params);
// return_statement: Return opt_expr
SemBase* CompileReturn(SemBase* value);
// declared_name: Me
SemBase* CompileMeParam();
// the sub-scope and func-scope markers: self for an instance method
void AddSelfParameter(SemBase* shared);
// Whether a block is a whole function: its first line is Enter.
bool BlockIsFunction(TacBlock* block);

// parameter: param_modifiers declared_name param_type opt_param_default.
// Declares the parameter; yields the modifiers, the default (if it stands)
// and the identifier as one flat list.
SemBase* CompileParameter(SemBase* modifiers, SemBase* ident, SemBase* type,
                          SemBase* defaultValue);
// Reports repeated modifiers (75), defaults that a modifier forbids (76 to
// 79) and modifiers that exclude each other (74, which makes the result
// false).
bool ValidateParameterModifiers(SemBase* modifiers, SemBase* defaultValue);

// Reports a return type that differs from the overridden method's (37) or
// the implemented interface method's (36).
void ValidateMethodReturnType(MethodSymbol* method,
                              SourceLocation const& where);
// Return types are covariant: an override may return a subclass, or a
// class implementing the interface, that the base returns.
bool CompareMethodReturnTypes(IRDataType const& base,
                              IRDataType const& override);

#endif
