// Classes: members, inheritance-aware lookups, cloning and source text.
#include "Compiler/SymbolTable/GlobalSymbolTable.h"

namespace {

// The first symbol of the name in `table` that is of `kind`.
Symbol* FindInTable(SymbolTable const& table, string const& name, int kind) {
  LookupSet set = table.Lookup(name);
  while (set.Next())
    if (set.Value()->IsA(kind)) return set.Value();
  return nullptr;
}

// Drops, from the last entry to the first, those that `drop` names;
// an emptied list becomes null.
template <class Predicate>
void RemoveFrom(MethodList& list, Predicate drop) {
  if (!list) return;
  for (unsigned long i = list->size(); i-- > 0;)
    if (drop((*list)[i])) list->deleteIdx(i);
  if (list->size() == 0) list = MethodList();
}

// `own` overrides `inherited` when a visible own method sits in its slot.
bool IsOverridden(MethodList const& own, MethodSymbol* inherited) {
  for (unsigned long i = 0; i < own->size(); i++) {
    MethodSymbol* o = (*own)[i];
    if (o->GetScope() != MemberSymbol::kPrivate &&
        o->GetDispatchMethod() == inherited->GetDispatchMethod() &&
        o->GetDispatchID() == inherited->GetDispatchID())
      return true;
  }
  return false;
}

}  // namespace

ClassSymbol::ClassSymbol(string const& name)
    : ObjectTypeSymbol(name), MethodDeclarationListOwner(&mTable),
      mVirtualMethodCount(0), mNormalMethodCount(0), mPropertyCount(0),
      mEventCount(0), mStorageSize(0) {}

ClassSymbol::ClassSymbol(ClassSymbol const& original,
                         SourceUnitDependencyLink* link)
    : ObjectTypeSymbol(original, link), MethodDeclarationListOwner(&mTable),
      mVirtualMethodCount(original.mVirtualMethodCount),
      mNormalMethodCount(original.mNormalMethodCount),
      mPropertyCount(original.mPropertyCount),
      mEventCount(original.mEventCount),
      mStorageSize(original.mStorageSize) {
  CloneMembersFrom(original, link);
}

ClassSymbol::~ClassSymbol() {
  for (unsigned long i = 0; i < mHandledEvents.size(); i++)
    delete mHandledEvents[i];
}

GlobalSymbol* ClassSymbol::Clone(SourceUnitDependencyLink* link) const {
  return new ClassSymbol(*this, link);
}

// Methods first, so that accessors and handlers can be found among the
// clones by their place in the declared order.
void ClassSymbol::CloneMembersFrom(ClassSymbol const& original,
                                   SourceUnitDependencyLink* link) {
  CloneMethods(original, this, link);
  {
    PropertySymbolIterator it = original.IterateProperties();
    while (it.Next())
      AddProperty(ClonePropertyWithAccessors(it.Value(), original, *this, link));
  }
  {
    EventSymbolIterator it = original.IterateEvents();
    while (it.Next())
      AddEvent(static_cast<MethodSymbol*>(it.Value()->Clone(link)));
  }
  for (unsigned long i = 0; i < original.mHandledEvents.size(); i++) {
    HandledEvent* from = original.mHandledEvents[i];
    MethodSymbol* handler = FindClonedMethod(original, *this, from->Handler());
    AddHandledEvent(new HandledEvent(from->EventName(), handler));
  }
  for (unsigned long i = 0; i < original.mImplementedInterfaces.size(); i++)
    AddImplementedInterface(original.mImplementedInterfaces[i]);
  {
    TypeSymbolIterator it = original.IterateTypes();
    while (it.Next()) AddType(static_cast<TypeSymbol*>(it.Value()->Clone(link)));
  }
  ConstantSymbolIterator it = original.IterateConstants();
  while (it.Next())
    AddConstant(static_cast<ConstantSymbol*>(it.Value()->Clone(link)));
}

// ------------------------------------------------------------ members

void ClassSymbol::AddProperty(PropertySymbol* it) {
  QASSERT_TEXT(it, "it");
  mTable.Add(it);
}

void ClassSymbol::AddConstant(ConstantSymbol* it) {
  QASSERT_TEXT(it, "it");
  mTable.Add(it);
}

void ClassSymbol::AddEvent(MethodSymbol* it) {
  QASSERT_TEXT(it, "it");
  QASSERT_TEXT(it->GetDispatchMethod() == MethodSymbol::Event,
               "it->GetDispatchMethod() == MethodSymbol::Event");
  mTable.Add(it);
}

void ClassSymbol::AddType(TypeSymbol* it) {
  QASSERT_TEXT(it, "it");
  mTable.Add(it);
}

void ClassSymbol::AddHandledEvent(HandledEvent* it) {
  QASSERT_TEXT(it, "it");
  mHandledEvents.push_back(it);
}

void ClassSymbol::AddImplementedInterface(IRDataType const& it) {
  mImplementedInterfaces.push_back(it);
}

void ClassSymbol::InsertImplementedInterface(unsigned long index,
                                             IRDataType const& it) {
  mImplementedInterfaces.insert(it, index);
}

void ClassSymbol::ReplaceImplementedInterface(unsigned long index,
                                              IRDataType const& it) {
  QASSERT(index < mImplementedInterfaces.size());
  mImplementedInterfaces[index] = it;
}

// ------------------------------------------------------------ lookups

MethodList ClassSymbol::LookupMethods(string const& name,
                                      MethodFilter filter) const {
  MethodList own = MethodDeclarationListOwner::LookupMethods(name, filter);
  RemoveFrom(own, [](MethodSymbol* m) {
    return m->GetDispatchMethod() == MethodSymbol::Event;
  });
  if (!GetParent()) return own;
  MethodList inherited = GetParent()->LookupMethods(name, filter);
  RemoveFrom(inherited, [](MethodSymbol* m) {
    return m->GetScope() == MemberSymbol::kPrivate;
  });
  if (!own) return inherited;
  if (!inherited) return own;
  for (unsigned long i = 0; i < inherited->size(); i++)
    if (!IsOverridden(own, (*inherited)[i])) own->push_back((*inherited)[i]);
  return own;
}

PropertySymbol* ClassSymbol::LookupProperty(string const& name) const {
  Symbol* own = FindInTable(mTable, name, kProperty);
  if (own) return static_cast<PropertySymbol*>(own);
  if (!GetParent()) return nullptr;
  PropertySymbol* inherited = GetParent()->LookupProperty(name);
  if (inherited && inherited->GetScope() == kPrivate) return nullptr;
  return inherited;
}

ConstantSymbol* ClassSymbol::LookupConstant(string const& name) const {
  Symbol* own = FindInTable(mTable, name, kConstant);
  if (own) return static_cast<ConstantSymbol*>(own);
  if (!GetParent()) return nullptr;
  ConstantSymbol* inherited = GetParent()->LookupConstant(name);
  if (inherited && inherited->GetScope() == kPrivate) return nullptr;
  return inherited;
}

TypeSymbol* ClassSymbol::LookupOwnType(string const& name) const {
  return static_cast<TypeSymbol*>(FindInTable(mTable, name, kType));
}

TypeSymbol* ClassSymbol::LookupType(string const& name) const {
  if (TypeSymbol* own = LookupOwnType(name)) return own;
  if (!GetParent()) return nullptr;
  TypeSymbol* inherited = GetParent()->LookupType(name);
  if (inherited && inherited->GetScope() == kPrivate) return nullptr;
  return inherited;
}

MethodSymbol* ClassSymbol::LookupEvent(string const& name) const {
  LookupSet set = mTable.Lookup(name);
  while (set.Next()) {
    if (!set.Value()->IsA(kMethod)) continue;
    MethodSymbol* method = static_cast<MethodSymbol*>(set.Value());
    if (method->GetDispatchMethod() == MethodSymbol::Event) return method;
  }
  return nullptr;
}

HandledEvent* ClassSymbol::LookupHandledEvent(string const& name) const {
  for (unsigned long i = 0; i < mHandledEvents.size(); i++)
    if (mHandledEvents[i]->EventName() == name) return mHandledEvents[i];
  return nullptr;
}

bool ClassSymbol::ImplementsInterface(TypeSymbol* it) const {
  if (!it || !it->IsA(kInterface)) return false;
  for (unsigned long i = 0; i < mImplementedInterfaces.size(); i++)
    if (mImplementedInterfaces[i].Declaration() == it) return true;
  return false;
}

Symbol* ClassSymbol::LookupDeclaration(string const& name,
                                       string const& unitID,
                                       unsigned int line) const {
  return mTable.LookupDeclaration(name, unitID, line);
}

ConstantSymbolIterator ClassSymbol::IterateConstants() const {
  return ConstantSymbolIterator(const_cast<SymbolTable*>(&mTable));
}

PropertySymbolIterator ClassSymbol::IterateProperties() const {
  return PropertySymbolIterator(const_cast<SymbolTable*>(&mTable));
}

EventSymbolIterator ClassSymbol::IterateEvents() const {
  return EventSymbolIterator(const_cast<SymbolTable*>(&mTable));
}

TypeSymbolIterator ClassSymbol::IterateTypes() const {
  return TypeSymbolIterator(const_cast<SymbolTable*>(&mTable));
}

// --------------------------------------------------------- source text

string ClassSymbol::MakePrototype(GlobalSymbol* container) const {
  GlobalSymbol* self = const_cast<ClassSymbol*>(this);
  string text = ScopePrototype(container, GetScope()) + "Class " + Name() +
                "\n";
  if (GetSuperclassType().GetMainType() != kNoType)
    text += string("Inherits ") + GetSuperclassType().ToString() + "\n";
  for (unsigned long i = 0; i < mImplementedInterfaces.size(); i++)
    text += string("Implements ") + mImplementedInterfaces[i].ToString() + "\n";
  {
    TypeSymbolIterator it = IterateTypes();
    while (it.Next()) text += it.Value()->MakePrototype(self);
  }
  {
    ConstantSymbolIterator it = IterateConstants();
    while (it.Next()) text += it.Value()->MakePrototype(self);
  }
  {
    PropertySymbolIterator it = IterateProperties();
    while (it.Next()) text += it.Value()->MakePrototype(self);
  }
  {
    EventSymbolIterator it = IterateEvents();
    while (it.Next()) text += it.Value()->MakePrototype(self);
  }
  MethodSymbolIterator it = IterateMethods();
  while (it.Next()) text += it.Value()->MakePrototype(self);
  return text + "End Class\n";
}
