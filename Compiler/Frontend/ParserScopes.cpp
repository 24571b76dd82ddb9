#include "Compiler/Frontend/ParserScopes.h"

#include "Compiler/Frontend/Functions.h"
#include "Compiler/Frontend/Lexer.h"
#include "Compiler/Frontend/TacLiteralPool.h"
#include "Compiler/Frontend/TypeNames.h"
#include "Compiler/SemBase.h"
#include "Universal/Assertion.h"

namespace {

SemBase* TableIndexValue(long index) {
  return SemValue::New(CurrentTLP()->GetLiteral(index, kSInt32Type), nullptr);
}

}  // namespace

SemBase* OpenMethodScope(SemBase* name, SemBase* shared) {
  QASSERT(name);
  SemBase* index = TableIndexValue(0);
  AddSelfParameter(shared);
  return index;
}

void OpenSignatureScope(SemBase* name) { QASSERT(name); }

SemBase* OpenInterfaceScope(SemBase* name) {
  QASSERT(name);
  return TableIndexValue(0);
}

void OpenBlockScope() {}

SemBase* OpenCatchScope(SemBase* var, SemBase* type) {
  QASSERT(var);
  IRDataType declared =
      type ? type->GetType() : ResolveType("RuntimeException");
  var->SetType(declared);
  return var;
}

void CloseScope() {}
void EnterStaticStorageMode() {}
void EnterWeakDeclarationMode() {}
