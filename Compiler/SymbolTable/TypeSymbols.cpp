// The declared types other than classes: the object-type base, interfaces,
// delegates, structures with their fields, and enums.
#include "Compiler/SymbolTable/GlobalSymbolTable.h"
#include "Compiler/SymbolTable/SymbolTextHelpers.h"
#include "Universal/ByteHelpers.h"

// ------------------------------------------------------------ object types

ObjectTypeSymbol::ObjectTypeSymbol(ObjectTypeSymbol const& original,
                                   SourceUnitDependencyLink* link)
    : TypeSymbol(original, link), mSuperclassType(original.mSuperclassType),
      mSuperclass(nullptr) {}

IRDataType ObjectTypeSymbol::InstanceType() const {
  return IRDataType(kObjectType, const_cast<ObjectTypeSymbol*>(this));
}

void ObjectTypeSymbol::SetParent(ClassSymbol* parent) {
  QASSERT_TEXT(not parent or not mSuperclass, "not parent or not mSuperclass");
  QASSERT_TEXT(parent == mSuperclassType.Declaration(),
               "parent == mSuperclassType.Declaration()");
  for (ClassSymbol* cycleSearch = parent; cycleSearch;
       cycleSearch = cycleSearch->GetParent())
    QASSERT_TEXT(cycleSearch != this, "cycleSearch != this");
  mSuperclass = parent;
}

// -------------------------------------------------- method list owners

MethodList MethodDeclarationListOwner::LookupMethods(
    string const& name, MethodFilter filter) const {
  MethodList out;
  LookupSet set = mMethodTable->Lookup(name);
  while (set.Next()) {
    if (!set.Value()->IsA(Symbol::kMethod)) continue;
    MethodSymbol* method = static_cast<MethodSymbol*>(set.Value());
    if (!method->MatchesFilter(filter)) continue;
    if (!out) out.BindNewObject(new SimpleVector<MethodSymbol*>);
    out->push_back(method);
  }
  return out;
}

MethodDeclarationListOwner::~MethodDeclarationListOwner() = default;

namespace {

// Names and link IDs both compare ignoring case; a line end is in neither.
string NameAndLinkID(MethodSymbol const* method) {
  return method->Name() + string("\n") + method->GetLinkID();
}

// Where the methods of one name and link ID are declared: the place of the
// first, and whether any other stands elsewhere.
struct LinkIDPlaces {
  unsigned int line;
  SourceUnitDependencyLink* unit;
  bool mixed;
};

// Every method of the table, events included.
template <class Visit>
void ForEachMethod(SymbolTable* table, Visit visit) {
  SymbolTableIterator each(table);
  while (each.Next())
    if (each.Value()->IsA(Symbol::kMethod))
      visit(static_cast<MethodSymbol const*>(each.Value()));
}

}  // namespace

void MethodDeclarationListOwner::IndexLinkIDs() const {
  mLinkIDsIndexed = true;
  mIndexedSymbols = mMethodTable->Count();
  mIndexedLinkIDChanges = MethodSymbol::LinkIDChanges();
  StringMap<LinkIDPlaces> placesByKey;
  ForEachMethod(mMethodTable, [&](MethodSymbol const* method) {
    string key = NameAndLinkID(method);
    LinkIDPlaces places;
    if (!placesByKey.GetEntry(key, places)) {
      places = {method->SourceLine(), method->SourceUnit(), false};
    } else if (places.line != method->SourceLine() ||
               places.unit != method->SourceUnit()) {
      places.mixed = true;
    }
    placesByKey.AddEntry(key, places);
  });
  mDeclaredElsewhere.Clear();
  ForEachMethod(mMethodTable, [&](MethodSymbol const* method) {
    LinkIDPlaces places = {method->SourceLine(), method->SourceUnit(), false};
    placesByKey.GetEntry(NameAndLinkID(method), places);
    bool elsewhere = places.mixed || places.line != method->SourceLine() ||
                     places.unit != method->SourceUnit();
    mDeclaredElsewhere.Add(method, elsewhere ? 1 : 0);
  });
}

bool MethodDeclarationListOwner::LinkIDDeclaredElsewhere(
    MethodSymbol const* method) const {
  if (!mLinkIDsIndexed || mIndexedSymbols != mMethodTable->Count() ||
      mIndexedLinkIDChanges != MethodSymbol::LinkIDChanges())
    IndexLinkIDs();
  long elsewhere = 0;
  return mDeclaredElsewhere.Find(method, &elsewhere) && elsewhere != 0;
}

MethodSymbol* MethodDeclarationListOwner::LookupMethodDeclaration(
    string const& name, string const& unitID, unsigned int line) const {
  Symbol* found = mMethodTable->LookupDeclaration(name, unitID, line);
  if (!found || !found->IsA(Symbol::kMethod)) return nullptr;
  return static_cast<MethodSymbol*>(found);
}

void MethodDeclarationListOwner::AddMethod(MethodSymbol* it) {
  QASSERT_TEXT(it, "it");
  mMethodTable->Add(it);
}

void CloneMethods(MethodDeclarationListOwner const& from,
                  MethodDeclarationListOwner* to,
                  SourceUnitDependencyLink* link) {
  MethodSymbolIterator it = from.IterateMethods();
  while (it.Next())
    to->AddMethod(static_cast<MethodSymbol*>(it.Value()->Clone(link)));
}

// Clones keep the declared order, so the two walks stay in step.
MethodSymbol* FindClonedMethod(MethodDeclarationListOwner const& from,
                               MethodDeclarationListOwner const& to,
                               MethodSymbol* method) {
  MethodSymbolIterator original = from.IterateMethods();
  MethodSymbolIterator clone = to.IterateMethods();
  while (original.Next() && clone.Next())
    if (original.Value() == method) return clone.Value();
  return nullptr;
}

PropertySymbol* ClonePropertyWithAccessors(PropertySymbol const* property,
                                           MethodDeclarationListOwner const& from,
                                           MethodDeclarationListOwner const& to,
                                           SourceUnitDependencyLink* link) {
  PropertySymbol* clone = static_cast<PropertySymbol*>(property->Clone(link));
  if (property->GetGetter()) {
    clone->SetGetter(FindClonedMethod(from, to, property->GetGetter()));
    QASSERT_TEXT(clone->GetGetter(), "getters");
  }
  if (property->GetSetter()) {
    clone->SetSetter(FindClonedMethod(from, to, property->GetSetter()));
    QASSERT_TEXT(clone->GetSetter(), "setters");
  }
  return clone;
}

// --------------------------------------------------------------- interfaces

InterfaceSymbol::InterfaceSymbol(string const& name)
    : ObjectTypeSymbol(name), MethodDeclarationListOwner(&mTable),
      mMethodCount(0) {}

InterfaceSymbol::InterfaceSymbol(InterfaceSymbol const& original,
                                 SourceUnitDependencyLink* link)
    : ObjectTypeSymbol(original, link), MethodDeclarationListOwner(&mTable),
      mMethodCount(original.mMethodCount) {
  CloneMethods(original, this, link);
}

GlobalSymbol* InterfaceSymbol::Clone(SourceUnitDependencyLink* link) const {
  return new InterfaceSymbol(*this, link);
}

string InterfaceSymbol::MakePrototype(GlobalSymbol* container) const {
  string text = ScopePrototype(container, GetScope()) + "Interface " +
                Name() + "\n";
  GlobalSymbol* self = const_cast<InterfaceSymbol*>(this);
  MethodSymbolIterator it = IterateMethods();
  while (it.Next()) text += it.Value()->MakePrototype(self);
  return text + "End Interface\n";
}

// ---------------------------------------------------------------- delegates

DelegateSymbol::DelegateSymbol(string const& name)
    : TypeSymbol(name), mInvoker(nullptr) {}

DelegateSymbol::DelegateSymbol(DelegateSymbol const& original,
                               SourceUnitDependencyLink* link)
    : TypeSymbol(original, link), mInvoker(nullptr) {
  if (original.mInvoker)
    mInvoker = static_cast<MethodSymbol*>(original.mInvoker->Clone(link));
}

DelegateSymbol::~DelegateSymbol() { delete mInvoker; }

GlobalSymbol* DelegateSymbol::Clone(SourceUnitDependencyLink* link) const {
  return new DelegateSymbol(*this, link);
}

IRDataType DelegateSymbol::InstanceType() const {
  return IRDataType(kObjectType, const_cast<DelegateSymbol*>(this));
}

MethodSymbol* DelegateSymbol::Invoker() {
  if (mInvoker) return mInvoker;
  mInvoker = new MethodSymbol("Invoke");
  mInvoker->SetDispatchMethod(MethodSymbol::DelegateInvoke);
  mInvoker->SetScope(kPublic);
  mInvoker->AddParameter(ParameterSymbol::NewImplicitSelf());
  return mInvoker;
}

MethodList DelegateSymbol::LookupMethods(string const& name,
                                         MethodFilter filter) const {
  MethodList out;
  if (name != "Invoke") return out;
  MethodSymbol* invoker = const_cast<DelegateSymbol*>(this)->Invoker();
  if (!invoker->MatchesFilter(filter)) return out;
  out.BindNewObject(new SimpleVector<MethodSymbol*>);
  out->push_back(invoker);
  return out;
}

string DelegateSymbol::MakePrototype(GlobalSymbol* container) const {
  if (!mInvoker) return string();
  bool isFunction = mInvoker->GetReturnType().GetMainType() != kNoType;
  string text = ScopePrototype(container, GetScope()) + "Delegate " +
                (isFunction ? "Function " : "Sub ") + Name() + " (";
  bool first = true;
  for (unsigned long i = 0; i < mInvoker->CountParameters(); i++) {
    ParameterSymbol* param = mInvoker->GetParameter(i);
    if (param->GetRole() == ParameterSymbol::kImplicitSelf) continue;
    if (!first) text += ", ";
    text += param->MakePrototype(mInvoker);
    first = false;
  }
  return text + ")" + AsClause(mInvoker->GetReturnType()) + "\n";
}

// ---------------------------------------------------------------- structures

StructureFieldSymbol::StructureFieldSymbol(string const& name,
                                           IRDataType const& type)
    : GlobalSymbol(name), mOffset(0), mArrayUbound(-1), mStringLength(0),
      mType(type) {}

StructureFieldSymbol::StructureFieldSymbol(
    StructureFieldSymbol const& original, SourceUnitDependencyLink* link)
    : GlobalSymbol(original, link), mLinkName(original.mLinkName),
      mOffset(original.mOffset), mArrayUbound(original.mArrayUbound),
      mStringLength(original.mStringLength), mType(original.mType) {
  QASSERT_TEXT(not mType.Declaration(), "not mType.Declaration()");
}

GlobalSymbol* StructureFieldSymbol::Clone(
    SourceUnitDependencyLink* link) const {
  return new StructureFieldSymbol(*this, link);
}

string StructureFieldSymbol::MakePrototype(GlobalSymbol* container) const {
  QASSERT_TEXT(container, "container");
  QASSERT_TEXT(container->IsA(Symbol::kStructure),
               "container->IsA( Symbol::kStructure )");
  string text = Name();
  if (mType.IsArray()) text += string("(") + ultoa(mArrayUbound) + ")";
  text += string(" As ") + ElementTypeText(mType);
  if (mStringLength) text += string(" * ") + ultoa(long(mStringLength));
  return text + "\n";
}

StructureSymbol::StructureSymbol(string const& name)
    : TypeSymbol(name), mStorageSize(0) {}

StructureSymbol::StructureSymbol(StructureSymbol const& original,
                                 SourceUnitDependencyLink* link)
    : TypeSymbol(original, link), mStorageSize(original.mStorageSize) {
  FieldSymbolIterator it = original.IterateFields();
  while (it.Next())
    AddField(static_cast<StructureFieldSymbol*>(it.Value()->Clone(link)));
}

GlobalSymbol* StructureSymbol::Clone(SourceUnitDependencyLink* link) const {
  return new StructureSymbol(*this, link);
}

IRDataType StructureSymbol::InstanceType() const {
  return IRDataType(kStructureType, const_cast<StructureSymbol*>(this));
}

void StructureSymbol::AddField(StructureFieldSymbol* it) {
  QASSERT_TEXT(it, "it");
  mTable.Add(it);
}

StructureFieldSymbol* StructureSymbol::LookupField(string const& name) const {
  LookupSet set = mTable.Lookup(name);
  while (set.Next())
    if (set.Value()->IsA(kStructureField))
      return static_cast<StructureFieldSymbol*>(set.Value());
  return nullptr;
}

FieldSymbolIterator StructureSymbol::IterateFields() const {
  return FieldSymbolIterator(const_cast<SymbolTable*>(&mTable));
}

string StructureSymbol::MakePrototype(GlobalSymbol* container) const {
  string text = ScopePrototype(container, GetScope()) + "Structure " +
                Name() + "\n";
  GlobalSymbol* self = const_cast<StructureSymbol*>(this);
  FieldSymbolIterator it = IterateFields();
  while (it.Next()) text += it.Value()->MakePrototype(self);
  return text + "End Structure\n";
}

// --------------------------------------------------------------------- enums

EnumSymbol::EnumSymbol(string const& name, SimpleDataType elementType)
    : TypeSymbol(name), mElementType(elementType) {}

EnumSymbol::EnumSymbol(EnumSymbol const& original,
                       SourceUnitDependencyLink* link)
    : TypeSymbol(original, link), mElementType(original.mElementType) {
  ConstantSymbolIterator it = original.IterateConstants();
  while (it.Next())
    AddConstant(static_cast<ConstantSymbol*>(it.Value()->Clone(link)));
}

GlobalSymbol* EnumSymbol::Clone(SourceUnitDependencyLink* link) const {
  return new EnumSymbol(*this, link);
}

IRDataType EnumSymbol::InstanceType() const {
  return IRDataType(mElementType, const_cast<EnumSymbol*>(this));
}

void EnumSymbol::AddConstant(ConstantSymbol* it) {
  QASSERT_TEXT(it, "it");
  mTable.Add(it);
  mNextValue = it->GetValue();
  IRDataType element(mElementType);
  if (element.IsInteger() && element.StorageSize() == 8)
    mNextValue.uSInt64 = (long long)((unsigned long long)mNextValue.uSInt64 + 1);
  else
    mNextValue.uSInt32 = (long)((unsigned long)mNextValue.uSInt32 + 1);
}

ConstantSymbol* EnumSymbol::LookupConstant(string const& name) const {
  LookupSet set = mTable.Lookup(name);
  while (set.Next())
    if (set.Value()->IsA(kConstant))
      return static_cast<ConstantSymbol*>(set.Value());
  return nullptr;
}

ConstantSymbolIterator EnumSymbol::IterateConstants() const {
  return ConstantSymbolIterator(const_cast<SymbolTable*>(&mTable));
}

string EnumSymbol::MakePrototype(GlobalSymbol* container) const {
  string text = ScopePrototype(container, GetScope()) + "Enum " + Name() +
                " As " + IRDataType(mElementType).ToString() + "\n";
  GlobalSymbol* self = const_cast<EnumSymbol*>(this);
  ConstantSymbolIterator it = IterateConstants();
  while (it.Next()) text += it.Value()->MakePrototype(self);
  return text + "End Enum\n";
}
