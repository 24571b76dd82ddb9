#include "Compiler/Frontend/Declarations.h"

#include "Compiler/SemBase.h"
#include "Universal/Assertion.h"

SemBase* CompileConst(SemBase* name, SemBase* value) {
  QASSERT(name);
  return nullptr;
}

SemBase* CompileDeclaration(SemBase* names, SemBase* type, SemBase* initial) {
  QASSERT_TEXT(names, "declnames");
  QASSERT_TEXT(type, "vartype");
  return SemCode::New(IRDataType(), nullptr);
}

SemBase* CompileNewObjectDeclaration(SemBase* names, SemBase* type,
                                     SemBase* arguments) {
  return CompileDeclaration(names, type, nullptr);
}

SemBase* CompileStaticDeclaration(SemBase* code) {
  QASSERT(code);
  return SemCode::New(IRDataType(), nullptr);
}
