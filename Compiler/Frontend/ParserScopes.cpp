#include "Compiler/Frontend/ParserScopes.h"

#include "Compiler/Frontend/Functions.h"
#include "Compiler/Frontend/SrcContext.h"
#include "Compiler/Frontend/SymbolUtilities.h"
#include "Compiler/Frontend/TypeNames.h"
#include "Compiler/SemBase.h"
#include "Compiler/SymbolTable/LocalSymbolTable.h"
#include "Universal/Assertion.h"

namespace {

SemBase* TableIndexValue(unsigned long index) {
  return SemValue::New(gContext->GetLiteral((long long)index, kSInt32Type),
                       nullptr);
}

}  // namespace

// The index travels to CompileEndFunction, which puts it on the Enter line:
// the back end finds the method's frame layout through it.
SemBase* OpenMethodScope(SemBase* name, SemBase* shared) {
  QASSERT(name);
  QASSERT(gContext);
  unsigned long index = PushSymTable(new MethodSymbolTable(name->toString()));
  SemBase* value = TableIndexValue(index);
  AddSelfParameter(shared);
  return value;
}

void OpenSignatureScope(SemBase* name) {
  QASSERT(name);
  PushSymTable(new MethodSymbolTable(name->toString()));
}

SemBase* OpenInterfaceScope(SemBase* name) {
  QASSERT(name);
  return TableIndexValue(PushSymTable(new ObjectSymbolTable(name->toString())));
}

void OpenBlockScope() { PushSymTable(new BlockSymbolTable); }

SemBase* OpenCatchScope(SemBase* var, SemBase* type) {
  QASSERT(var);
  PushSymTable(new BlockSymbolTable);
  IRDataType declared =
      type ? type->GetType()
           : CompileType(SemIdentifier::New("RuntimeException"))->GetType();
  var->SetType(declared);
  return AddDeclaredName(var);
}

void CloseScope() { PopSymTable(); }

void EnterStaticStorageMode() {
  QASSERT(gContext);
  gContext->mSymbols->StaticStorageMode();
}

void EnterWeakDeclarationMode() {
  QASSERT(gContext);
  gContext->mSymbols->WeakDeclarationMode();
}
