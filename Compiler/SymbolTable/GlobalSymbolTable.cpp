// The root of the declaration tree: lookups that see the public members of
// top-level modules, the merging of units, and the dependency record.
#include "Compiler/SymbolTable/GlobalSymbolTable.h"

GlobalSymbolTable::GlobalSymbolTable()
    : ModuleSymbol(""), mDependencies(nullptr) {}

GlobalSymbolTable::~GlobalSymbolTable() {
  while (mDependencies) {
    SourceUnitDependencyLink* next = mDependencies->Next();
    delete mDependencies;
    mDependencies = next;
  }
}

GlobalSymbol* GlobalSymbolTable::Clone(SourceUnitDependencyLink* link) const {
  QFAIL("the global table is never cloned");
}

string GlobalSymbolTable::MakePrototype(GlobalSymbol* container) const {
  QFAIL("the global table prints its contents, not itself");
}

void GlobalSymbolTable::AddModule(ModuleSymbol* it) {
  ModuleSymbol::AddModule(it);
  mModules.push_back(it);
}

// Only a public member counts: a protected one is reached through its
// module's name, and nothing descends into nested modules.
Symbol* GlobalSymbolTable::FindInModules(string const& name, int kind) const {
  for (unsigned long i = 0; i < mModules.size(); i++) {
    Symbol* hit = mModules[i]->FindOwn(name, kind);
    if (hit && static_cast<MemberSymbol*>(hit)->GetScope() == kPublic)
      return hit;
  }
  return nullptr;
}

PropertySymbol* GlobalSymbolTable::LookupProperty(string const& name) const {
  Symbol* hit = FindOwn(name, kProperty);
  if (!hit) hit = FindInModules(name, kProperty);
  return static_cast<PropertySymbol*>(hit);
}

ConstantSymbol* GlobalSymbolTable::LookupConstant(string const& name) const {
  Symbol* hit = FindOwn(name, kConstant);
  if (!hit) hit = FindInModules(name, kConstant);
  return static_cast<ConstantSymbol*>(hit);
}

TypeSymbol* GlobalSymbolTable::LookupType(string const& name) const {
  Symbol* hit = FindOwn(name, kType);
  if (!hit) hit = FindInModules(name, kType);
  return static_cast<TypeSymbol*>(hit);
}

MethodList GlobalSymbolTable::LookupMethodsRecursive(
    string const& name, MethodFilter filter) const {
  MethodList out = LookupMethods(name, filter);
  for (unsigned long i = 0; i < mModules.size(); i++) {
    MethodList found = mModules[i]->LookupMethods(name, filter);
    if (!found) continue;
    for (unsigned long k = 0; k < found->size(); k++) {
      if ((*found)[k]->GetScope() != kPublic) continue;
      if (!out) out.BindNewObject(new SimpleVector<MethodSymbol*>);
      out->push_back((*found)[k]);
    }
  }
  return out;
}

void GlobalSymbolTable::MergeUnitSymbols(UnitSymbolTable* it,
                                         string const& second) {
  QASSERT_TEXT(it, "it");
  SourceUnitDependencyLink* link = nullptr;
  if (it->Name().Length()) {
    link = new SourceUnitDependencyLink(it->Name(), second, mDependencies);
    mDependencies = link;
  }
  {
    PropertySymbolIterator from = it->IterateProperties();
    while (from.Next())
      AddProperty(static_cast<PropertySymbol*>(from.Value()->Clone(link)));
  }
  {
    ConstantSymbolIterator from = it->IterateConstants();
    while (from.Next())
      AddConstant(static_cast<ConstantSymbol*>(from.Value()->Clone(link)));
  }
  CloneMethods(*it, this, link);
  {
    TypeSymbolIterator from = it->IterateTypes();
    while (from.Next())
      AddType(static_cast<TypeSymbol*>(from.Value()->Clone(link)));
  }
  ModuleSymbolIterator from = it->IterateModules();
  while (from.Next())
    AddModule(static_cast<ModuleSymbol*>(from.Value()->Clone(link)));
}

void GlobalSymbolTable::CopyDependencyList(StringMap<string>* target) {
  QASSERT_TEXT(target, "target");
  target->DeleteAll();
  for (SourceUnitDependencyLink* link = mDependencies; link;
       link = link->Next()) {
    if (!link->Touched()) continue;
    target->AddEntry(link->UnitID(), link->Second());
    link->ClearTouched();
  }
}
