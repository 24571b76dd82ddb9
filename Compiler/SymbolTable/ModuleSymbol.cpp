// Modules and units: one table for every kind of member, lookups that climb
// the enclosing modules, cloning and source text.
#include "Compiler/SymbolTable/GlobalSymbolTable.h"

ModuleSymbol::ModuleSymbol(string const& name)
    : MemberSymbol(name), MethodDeclarationListOwner(&mTable),
      mParent(nullptr) {}

ModuleSymbol::ModuleSymbol(ModuleSymbol const& original,
                           SourceUnitDependencyLink* link)
    : MemberSymbol(original, link), MethodDeclarationListOwner(&mTable),
      mLinkName(original.mLinkName), mParent(nullptr) {
  QASSERT_TEXT(not original.mParent, "not original.mParent");
  CloneContentsFrom(original, link);
}

GlobalSymbol* ModuleSymbol::Clone(SourceUnitDependencyLink* link) const {
  return new ModuleSymbol(*this, link);
}

// Methods come first, so that the accessors of computed properties can be
// found among the clones by their place in the declared order.
void ModuleSymbol::CloneContentsFrom(ModuleSymbol const& original,
                                     SourceUnitDependencyLink* link) {
  CloneMethods(original, this, link);
  {
    PropertySymbolIterator it = original.IterateProperties();
    while (it.Next())
      AddProperty(ClonePropertyWithAccessors(it.Value(), original, *this, link));
  }
  {
    TypeSymbolIterator it = original.IterateTypes();
    while (it.Next()) AddType(static_cast<TypeSymbol*>(it.Value()->Clone(link)));
  }
  {
    ModuleSymbolIterator it = original.IterateModules();
    while (it.Next())
      AddModule(static_cast<ModuleSymbol*>(it.Value()->Clone(link)));
  }
  ConstantSymbolIterator it = original.IterateConstants();
  while (it.Next())
    AddConstant(static_cast<ConstantSymbol*>(it.Value()->Clone(link)));
}

void ModuleSymbol::SetContainer(ModuleSymbol* it) {
  QASSERT_TEXT(not mParent or not it, "not mParent or not it");
  mParent = it;
}

// ------------------------------------------------------------ members

void ModuleSymbol::AddProperty(PropertySymbol* it) {
  QASSERT_TEXT(it, "it");
  mTable.Add(it);
}

void ModuleSymbol::AddType(TypeSymbol* it) {
  QASSERT_TEXT(it, "it");
  mTable.Add(it);
}

void ModuleSymbol::AddConstant(ConstantSymbol* it) {
  QASSERT_TEXT(it, "it");
  mTable.Add(it);
}

void ModuleSymbol::AddModule(ModuleSymbol* it) {
  QASSERT_TEXT(it, "it");
  mTable.Add(it);
}

// ------------------------------------------------------------ lookups

Symbol* ModuleSymbol::FindOwn(string const& name, int kind) const {
  LookupSet set = mTable.Lookup(name);
  while (set.Next())
    if (set.Value()->IsA(kind)) return set.Value();
  return nullptr;
}

PropertySymbol* ModuleSymbol::LookupProperty(string const& name) const {
  if (Symbol* own = FindOwn(name, kProperty))
    return static_cast<PropertySymbol*>(own);
  return mParent ? mParent->LookupProperty(name) : nullptr;
}

ConstantSymbol* ModuleSymbol::LookupConstant(string const& name) const {
  if (Symbol* own = FindOwn(name, kConstant))
    return static_cast<ConstantSymbol*>(own);
  return mParent ? mParent->LookupConstant(name) : nullptr;
}

TypeSymbol* ModuleSymbol::LookupType(string const& name) const {
  if (Symbol* own = FindOwn(name, kType)) return static_cast<TypeSymbol*>(own);
  return mParent ? mParent->LookupType(name) : nullptr;
}

ModuleSymbol* ModuleSymbol::LookupModule(string const& name) const {
  if (Symbol* own = FindOwn(name, kModule))
    return static_cast<ModuleSymbol*>(own);
  return mParent ? mParent->LookupModule(name) : nullptr;
}

MethodList ModuleSymbol::LookupMethodsRecursive(string const& name,
                                                MethodFilter filter) const {
  MethodList out = LookupMethods(name, filter);
  if (!mParent) return out;
  MethodList outer = mParent->LookupMethodsRecursive(name, filter);
  if (!outer) return out;
  if (!out) return outer;
  for (unsigned long i = 0; i < outer->size(); i++) out->push_back((*outer)[i]);
  return out;
}

Symbol* ModuleSymbol::LookupDeclaration(string const& name,
                                        string const& unitID,
                                        unsigned int line) const {
  return mTable.LookupDeclaration(name, unitID, line);
}

ConstantSymbolIterator ModuleSymbol::IterateConstants() const {
  return ConstantSymbolIterator(const_cast<SymbolTable*>(&mTable));
}

PropertySymbolIterator ModuleSymbol::IterateProperties() const {
  return PropertySymbolIterator(const_cast<SymbolTable*>(&mTable));
}

TypeSymbolIterator ModuleSymbol::IterateTypes() const {
  return TypeSymbolIterator(const_cast<SymbolTable*>(&mTable));
}

ModuleSymbolIterator ModuleSymbol::IterateModules() const {
  return ModuleSymbolIterator(const_cast<SymbolTable*>(&mTable));
}

// --------------------------------------------------------- source text

string ModuleSymbol::MakeContentsPrototype() const {
  GlobalSymbol* self = const_cast<ModuleSymbol*>(this);
  string text;
  {
    PropertySymbolIterator it = IterateProperties();
    while (it.Next()) text += it.Value()->MakePrototype(self);
  }
  {
    ConstantSymbolIterator it = IterateConstants();
    while (it.Next()) text += it.Value()->MakePrototype(self);
  }
  {
    MethodSymbolIterator it = IterateMethods();
    while (it.Next()) text += it.Value()->MakePrototype(self);
  }
  {
    TypeSymbolIterator it = IterateTypes();
    while (it.Next()) text += it.Value()->MakePrototype(self);
  }
  ModuleSymbolIterator it = IterateModules();
  while (it.Next()) text += it.Value()->MakePrototype(self);
  return text;
}

string ModuleSymbol::MakePrototype(GlobalSymbol* container) const {
  QASSERT_TEXT(Name().Length(), "Name().Length()");
  QASSERT_TEXT(container, "container");
  QASSERT_TEXT(container->IsA(Symbol::kModule),
               "container->IsA( Symbol::kModule )");
  return ScopePrototype(container, GetScope()) + "Module " + Name() + "\n" +
         MakeContentsPrototype() + "End Module\n";
}

// --------------------------------------------------------------- units

GlobalSymbol* UnitSymbolTable::Clone(SourceUnitDependencyLink* link) const {
  QFAIL("a unit is merged, not cloned");
}

string UnitSymbolTable::MakePrototype(GlobalSymbol* container) const {
  QFAIL("a unit prints its contents, not itself");
}
