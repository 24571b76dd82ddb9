// Method bodies: the head and end of a Sub or Function, parameters,
// Return, and the implicit self and me.
//
// STAND-INS FOR NOW: each action returns a harmless value (usually code
// of the null type) so that the whole language parses; the issues of
// these actions fill the bodies in.
#ifndef COMPILER_FRONTEND_FUNCTIONS_H
#define COMPILER_FRONTEND_FUNCTIONS_H

class SemBase;

// sub_def / func_def: the sub-start and func-start markers
void CompileFunction(SemBase* name, SemBase* alias, SemBase* params,
                     SemBase* returnType, SemBase* handles, SemBase* shared);
// sub_def: ... End Sub EOL; func_def: ... End Function EOL
SemBase* CompileEndFunction(SemBase* unused1, SemBase* name, SemBase* params,
                            SemBase* unused2, SemBase* body);
// parameter: param_modifiers declared_name param_type opt_param_default
SemBase* CompileParameter(SemBase* modifiers, SemBase* ident, SemBase* type,
                          SemBase* defaultValue);
// return_statement: Return opt_expr
SemBase* CompileReturn(SemBase* value);
// declared_name: Me
SemBase* CompileMeParam();
// the sub-scope and func-scope markers: self for an instance method
void AddSelfParameter(SemBase* shared);

#endif
