// Layouts: vtable slots and dispatch IDs, property indices and instance
// storage of classes, interface slots, and packed structure sizes.
#include "Compiler/Miner/Miner.h"
#include "Compiler/SymbolTable/GlobalSymbolTable.h"

namespace {

char const kExtraBytesName[] = "_compiler_extrabytes";

bool IsResolved(IRDataType const& type) {
  IRDataType element = type;
  if (element.GetMainType() == kReferenceType) element = element.AsElement();
  if (element.GetMainType() == kArrayType) element = element.AsElement();
  return element.GetMainType() != kUnresolvedType;
}

// The superclass, if the written one resolved to a class.
ClassSymbol* KnownSuperclass(ClassSymbol* it) {
  TypeSymbol* decl = it->GetSuperclassType().Declaration();
  if (it->GetSuperclassType().GetMainType() == kNoType || !decl ||
      !decl->IsA(Symbol::kClass))
    return nullptr;
  return static_cast<ClassSymbol*>(decl);
}

void CompleteClass(ClassSymbol* it, ModuleSymbol* module) {
  if (ClassSymbol* parent = KnownSuperclass(it))
    ComputeInheritance(it, parent, module);
  else
    ComputeBaseClass(it, module);
}

// Computed and shared properties, and those of no or unknown type, take
// no instance space.
void ComputePropertyStorage(ClassSymbol* owner, PropertySymbol* property) {
  IRDataType const& type = property->GetType();
  if (property->HasCustomAccessors() || property->IsShared()) return;
  if (type.GetMainType() == kNoType || !IsResolved(type)) return;
  if (type.GetMainType() == kStructureType) {
    TypeSymbol* decl = type.Declaration();
    QASSERT_TEXT(decl, "decl");
    QASSERT_TEXT(decl->IsA(Symbol::kStructure),
                 "decl->IsA( Symbol::kStructure )");
    ComputeStructureStorage(static_cast<StructureSymbol*>(decl));
  }
  unsigned long offset = type.StorageAlign(owner->mStorageSize);
  property->SetStorageOffset(offset);
  owner->mStorageSize = offset + type.StorageSize();
}

void ComputePropertyLayout(ClassSymbol* it) {
  PropertySymbolIterator p = it->IterateProperties();
  while (p.Next()) {
    ComputePropertyStorage(it, p.Value());
    p.Value()->SetPropertyIndex(long(it->mPropertyCount++));
  }
}

// A class may reserve raw bytes at the end of its instance for the host.
void AddExtraBytes(ClassSymbol* it) {
  ConstantSymbol* extra = it->LookupConstant(kExtraBytesName);
  if (!extra) return;
  IRValue const& value = extra->GetValue();
  if (extra->GetType().IsInteger() && extra->GetType().StorageSize() == 8)
    it->mStorageSize += (unsigned long)value.uSInt64;
  else
    it->mStorageSize += (unsigned long)value.uSInt32;
}

void NumberEvents(ClassSymbol* it, unsigned long first) {
  it->mEventCount = first;
  EventSymbolIterator e = it->IterateEvents();
  while (e.Next()) e.Value()->SetDispatchID(it->mEventCount++);
}

// Hands out the next slot of the method's kind; other kinds get none.
void NumberMethod(MethodSymbol* method, unsigned long& virtuals,
                  unsigned long& normals) {
  if (method->GetDispatchMethod() == MethodSymbol::Virtual)
    method->SetDispatchID(virtuals++);
  else if (method->GetDispatchMethod() == MethodSymbol::Normal)
    method->SetDispatchID(normals++);
}

// The parent's private methods are no candidates: they are not inherited.
MethodSymbol* LocateOverriddenMethod(MethodSymbol* method,
                                     MethodList const& candidates) {
  if (!candidates) return nullptr;
  for (unsigned long i = 0; i < candidates->size(); i++) {
    MethodSymbol* potentiallyOverridden = (*candidates)[i];
    QASSERT_TEXT(potentiallyOverridden, "potentiallyOverridden");
    if (potentiallyOverridden->GetScope() == MemberSymbol::kPrivate) continue;
    if (SignaturesMatchExactly(potentiallyOverridden, method))
      return potentiallyOverridden;
  }
  return nullptr;
}

// An override takes its parent's dispatch method and slot; the new
// methods extend the parent's vtable in declared order. Private methods
// neither override nor get a slot.
void InheritMethods(ClassSymbol* child, ClassSymbol* parent) {
  SimpleVector<MethodSymbol*> fresh;
  {
    MethodSymbolIterator it = child->IterateMethods();
    while (it.Next()) {
      MethodSymbol* method = it.Value();
      if (method->GetScope() == MemberSymbol::kPrivate) continue;
      MethodSymbol* overridden = LocateOverriddenMethod(
          method, parent->LookupMethods(method->Name(), kAllMethods));
      if (!overridden) {
        fresh.push_back(method);
        continue;
      }
      method->SetDispatchMethod(overridden->GetDispatchMethod());
      method->SetDispatchID(overridden->GetDispatchID());
    }
  }
  unsigned long virtuals = parent->mVirtualMethodCount;
  unsigned long normals = parent->mNormalMethodCount;
  for (unsigned long i = 0; i < fresh.size(); i++)
    NumberMethod(fresh[i], virtuals, normals);
  child->mVirtualMethodCount = virtuals;
  child->mNormalMethodCount = normals;
}

// The bytes a field adds to its structure. Fixed strings count their
// declared length. A bound may be the largest Int32: the count is made
// unsigned first. A size past 16 MB is the front end's error 116.
unsigned long FieldSize(StructureFieldSymbol* field) {
  IRDataType const& type = field->GetType();
  unsigned long count = (unsigned long)field->mArrayUbound + 1;
  switch (type.GetMainType()) {
    case kArrayType: {
      // A fixed string of any kind is its n bytes, in an array as alone.
      IRDataType element = type.AsElement();
      if (field->mStringLength) return field->mStringLength * count;
      if (element.GetMainType() == kNoType) return 0;
      return element.StorageSize() * count;
    }
    case kStringType:
    case kExternalPStringType:
    case kExternalCStringType:
    case kExternalWStringType:
      return field->mStringLength ? field->mStringLength : type.StorageSize();
    default:
      if (type.GetMainType() == kNoType || !IsResolved(type)) return 0;
      return type.StorageSize();
  }
}

// `computing` holds the structures under computation, so that a structure
// reached again through itself contributes what it has so far: nothing.
void ComputeStructureStorage(StructureSymbol* it,
                             SimpleVector<StructureSymbol*>& computing) {
  QASSERT_TEXT(it, "it");
  if (it->GetStorageSize() != 0) return;
  for (unsigned long i = 0; i < computing.size(); i++)
    if (computing[i] == it) return;
  computing.push_back(it);
  unsigned long size = 0;
  FieldSymbolIterator f = it->IterateFields();
  while (f.Next()) {
    StructureFieldSymbol* item = f.Value();
    item->mOffset = size;
    IRDataType const& type = item->GetType();
    if (type.GetMainType() == kStructureType ||
        type.GetElementType() == kStructureType) {
      QASSERT_TEXT(type.Declaration() &&
                       type.Declaration()->IsA(Symbol::kStructure),
                   "item->GetType().Declaration()->IsA( Symbol::kStructure )");
      ComputeStructureStorage(
          static_cast<StructureSymbol*>(type.Declaration()), computing);
    }
    size += FieldSize(item);
  }
  it->SetStorageSize(size);
  QASSERT_TEXT(computing.pop_back() == it, "computationList.pop_back() == it");
}

}  // namespace

void ComputeStructureStorage(StructureSymbol* it) {
  SimpleVector<StructureSymbol*> computing;
  ComputeStructureStorage(it, computing);
}

void ComputeInterfaceVtable(InterfaceSymbol* it) {
  QASSERT_TEXT(it, "it");
  it->mMethodCount = 0;
  MethodSymbolIterator m = it->IterateMethods();
  while (m.Next())
    if (m.Value()->GetDispatchMethod() == MethodSymbol::Virtual)
      m.Value()->SetDispatchID(it->mMethodCount++);
}

// All counters at zero mean "not done yet".
void ComputeBaseClass(ClassSymbol* it, ModuleSymbol* module) {
  QASSERT_TEXT(it, "it");
  if (it->mVirtualMethodCount || it->mNormalMethodCount ||
      it->mPropertyCount || it->mEventCount || it->mStorageSize)
    return;
  {
    MethodSymbolIterator m = it->IterateMethods();
    while (m.Next())
      NumberMethod(m.Value(), it->mVirtualMethodCount, it->mNormalMethodCount);
  }
  NumberEvents(it, 0);
  ComputePropertyLayout(it);
  AddExtraBytes(it);
}

// A cycle is cut here, silently: the child stays a root, and the grammar
// pass reports the loop.
void ComputeInheritance(ClassSymbol* child, ClassSymbol* parent,
                        ModuleSymbol* module) {
  QASSERT_TEXT(child, "child");
  if (!parent || child->GetParent()) return;
  for (ClassSymbol* up = parent; up; up = up->GetParent())
    if (up == child) return;
  child->SetParent(parent);
  CompleteClass(parent, module);
  child->mStorageSize = parent->mStorageSize;
  child->mPropertyCount = parent->mPropertyCount;
  ComputePropertyLayout(child);
  AddExtraBytes(child);
  NumberEvents(child, parent->mEventCount);
  for (unsigned long i = 0; i < parent->CountImplementedInterfaces(); i++)
    child->InsertImplementedInterface(i, parent->GetImplementedInterface(i));
  InheritMethods(child, parent);
}

namespace {

// A structure declared in a class is sized even where no member of the
// class holds one.
void CompleteClassAndNestedTypes(ClassSymbol* it, ModuleSymbol* module) {
  CompleteClass(it, module);
  TypeSymbolIterator t = it->IterateTypes();
  while (t.Next())
    if (t.Value()->IsA(Symbol::kStructure))
      ComputeStructureStorage(static_cast<StructureSymbol*>(t.Value()));
}

}  // namespace

void ComputeTypeMetadata(ModuleSymbol* module) {
  {
    TypeSymbolIterator t = module->IterateTypes();
    while (t.Next()) {
      TypeSymbol* type = t.Value();
      if (type->IsA(Symbol::kClass))
        CompleteClassAndNestedTypes(static_cast<ClassSymbol*>(type), module);
      else if (type->IsA(Symbol::kInterface))
        ComputeInterfaceVtable(static_cast<InterfaceSymbol*>(type));
      else if (type->IsA(Symbol::kStructure))
        ComputeStructureStorage(static_cast<StructureSymbol*>(type));
    }
  }
  ModuleSymbolIterator m = module->IterateModules();
  while (m.Next()) ComputeTypeMetadata(m.Value());
}
