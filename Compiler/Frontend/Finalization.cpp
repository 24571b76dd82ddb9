#include "Compiler/Frontend/Finalization.h"

#include "Compiler/Frontend/SrcContext.h"
#include "Compiler/SemBase.h"
#include "Compiler/SymbolTable/LocalSymbolTable.h"
#include "Universal/Assertion.h"

namespace {

void Release(TacAddr const* place, SemBase* code) {
  code->AddLine(kTacUnlock, place, nilTacAddr, nilTacAddr);
}

// Properties with accessors of their own have no storage to release.
bool HasCountedStorage(PropertySymbol* property) {
  return !property->HasCustomAccessors() && property->GetType().RefCounted();
}

}  // namespace

void FinalizeVariable(VariableSymbol* var, SemBase* code) {
  QASSERT(var);
  QASSERT(code);
  if (var->FinalizationAllowed() && var->GetType().RefCounted())
    Release(var->GetAddr(), code);
}

void FinalizeSymbols(LocalSymbolTable* table, SemBase* code) {
  if (!table) return;
  LocalVariableIterator it(table);
  while (it.Next()) FinalizeVariable(it.Value(), code);
}

void FinalizeInstanceProperty(PropertySymbol* property, SemBase* code) {
  QASSERT(property);
  QASSERT(code);
  QASSERT(gContext);
  if (!HasCountedStorage(property)) return;
  Release(gContext->GetObjectSymbolAddr(property->GetType(),
                                        property->GetLinkName(),
                                        property->GetStorageOffset()),
          code);
}

void FinalizeStaticProperty(PropertySymbol* property, SemBase* code) {
  QASSERT(property);
  QASSERT(code);
  QASSERT(gContext);
  if (!HasCountedStorage(property)) return;
  Release(gContext->GetStaticSymbolAddr(property->GetType(),
                                        property->GetLinkName()),
          code);
}

void FinalizeClassProperties(ClassSymbol* owner, SemBase* code) {
  QASSERT(owner);
  PropertySymbolIterator it = owner->IterateProperties();
  while (it.Next())
    if (!it.Value()->IsShared()) FinalizeInstanceProperty(it.Value(), code);
}
