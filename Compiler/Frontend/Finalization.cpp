#include "Compiler/Frontend/Finalization.h"

#include "Compiler/Frontend/Exceptions.h"
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

// A global that a destructor run by its own release can still reach is
// cleared before its reference goes, as an assignment of Nil does: the
// destructor neither finds the dying object there nor, assigning to it,
// gives up that object's reference a second time.
void ReleaseGlobalPlace(TacAddr const* place, SemBase* code) {
  TacAddr const* held = ReleasePendingSlot(place->mType);
  code->AddLine(kTacStore, place, nilTacAddr, held);
  code->AddLine(kTacStore, gTacZero, nilTacAddr, place);
  code->AddLine(kTacUnlock, held, nilTacAddr, nilTacAddr);
}

void FinalizeVariable(VariableSymbol* var, SemBase* code) {
  QASSERT(var);
  QASSERT(code);
  if (var->FinalizationAllowed() && var->GetType().RefCounted())
    Release(var->GetAddr(), code);
}

// Gathered first: each release takes a slot in the current table, which
// must not grow while it is walked.
void FinalizeGlobalSymbols(LocalSymbolTable* table, SemBase* code) {
  if (!table) return;
  SimpleVector<TacAddr const*> places;
  LocalVariableIterator it(table);
  while (it.Next()) {
    VariableSymbol* var = it.Value();
    if (var->FinalizationAllowed() && var->GetType().RefCounted())
      places.push_back(var->GetAddr());
  }
  for (unsigned long i = 0; i < places.size(); i++)
    ReleaseGlobalPlace(places[i], code);
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
  ReleaseGlobalPlace(gContext->GetStaticSymbolAddr(property->GetType(),
                                        property->GetLinkName()),
          code);
}

void FinalizeClassProperties(ClassSymbol* owner, SemBase* code) {
  QASSERT(owner);
  PropertySymbolIterator it = owner->IterateProperties();
  while (it.Next())
    if (!it.Value()->IsShared()) FinalizeInstanceProperty(it.Value(), code);
}
