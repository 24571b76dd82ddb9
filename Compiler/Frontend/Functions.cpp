#include "Compiler/Frontend/Functions.h"

#include "Compiler/Frontend/Pragmas.h"
#include "Compiler/SemBase.h"

// sub_def / func_def: the sub-start and func-start markers
void CompileFunction(SemBase* name, SemBase* alias, SemBase* params,
                     SemBase* returnType, SemBase* handles, SemBase* shared) {
  PushPragmas();
}

// sub_def: ... End Sub EOL; func_def: ... End Function EOL
SemBase* CompileEndFunction(SemBase* unused1, SemBase* name, SemBase* params,
                            SemBase* unused2, SemBase* body) {
  PopPragmas();
  return SemCode::New(IRDataType(), nullptr);
}

// parameter: param_modifiers declared_name param_type opt_param_default
SemBase* CompileParameter(SemBase* modifiers, SemBase* ident, SemBase* type,
                          SemBase* defaultValue) {
  return ident;
}

// return_statement: Return opt_expr
SemBase* CompileReturn(SemBase* value) {
  return SemCode::New(IRDataType(), nullptr);
}

// declared_name: Me
SemBase* CompileMeParam() { return SemIdentifier::New("me"); }

// the sub-scope and func-scope markers: self for an instance method
void AddSelfParameter(SemBase* shared) {}
