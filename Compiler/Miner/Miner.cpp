// The resolver's entry, the chain of modules, and the binding of written
// type names to their declarations.
#include "Compiler/Miner/Miner.h"

#include "Compiler/SymbolTable/GlobalSymbolTable.h"

void ResolveDeclarations(GlobalSymbolTable* decls) {
  QASSERT_TEXT(decls, "decls");
  LinkModuleContainers(decls);
  ResolveModuleTypes(decls);
  ComputeScopeLinkIDs(decls);
  ComputeMemberLinkIDs(decls);
  ComputeTypeMetadata(decls);
}

// A unit's clones carry no parent; the chain is built here.
void LinkModuleContainers(ModuleSymbol* module) {
  ModuleSymbolIterator it = module->IterateModules();
  while (it.Next()) {
    it.Value()->SetContainer(nullptr);
    it.Value()->SetContainer(module);
    LinkModuleContainers(it.Value());
  }
}

// --------------------------------------------------------- type names

namespace {

long FirstDot(string const& name) {
  char const* bytes = name.CString();
  for (unsigned long i = 0; i < name.Length(); i++)
    if (bytes[i] == '.') return long(i);
  return -1;
}

long LastDot(string const& name) {
  char const* bytes = name.CString();
  for (unsigned long i = name.Length(); i-- > 0;)
    if (bytes[i] == '.') return long(i);
  return -1;
}

// Climbs to the outermost module and follows "A.B.Name" down from there.
TypeSymbol* LookupDottedType(ModuleSymbol* module, string name) {
  ModuleSymbol* scope = module;
  while (scope->GetContainer()) scope = scope->GetContainer();
  for (;;) {
    long dot = FirstDot(name);
    if (dot < 0) return scope->LookupType(name);
    scope = scope->LookupModule(left(name, dot));
    if (!scope) return nullptr;
    name = mid(name, dot + 1);
  }
}

// The class `it` inherits from as written, once that name is resolved;
// parents are linked only after all types are.
ClassSymbol* WrittenSuperclass(ClassSymbol* it) {
  TypeSymbol* decl = it->GetSuperclassType().Declaration();
  if (!decl || !decl->IsA(Symbol::kClass)) return nullptr;
  return static_cast<ClassSymbol*>(decl);
}

// A type nested in `cls`, or in a superclass unless private there. An
// Inherits loop ends the climb where it closes.
TypeSymbol* LookupNestedType(ClassSymbol* cls, string const& name) {
  SimpleVector<ClassSymbol*> seen;
  for (ClassSymbol* c = cls; c; c = WrittenSuperclass(c)) {
    for (unsigned long i = 0; i < seen.size(); i++)
      if (seen[i] == c) return nullptr;
    seen.push_back(c);
    TypeSymbol* found = c->LookupOwnType(name);
    if (found && (c == cls || found->GetScope() != MemberSymbol::kPrivate))
      return found;
  }
  return nullptr;
}

TypeSymbol* LookupTypeName(ModuleSymbol* module, ClassSymbol* cls,
                           string const& name);

// "Owner.Name" where Owner names a class: a type declared in that class.
// Scope is the grammar pass's to check, where the name is written.
TypeSymbol* LookupClassMemberType(ModuleSymbol* module, ClassSymbol* cls,
                                  string const& name) {
  long dot = LastDot(name);
  if (dot < 0) return nullptr;
  TypeSymbol* owner = LookupTypeName(module, cls, left(name, dot));
  if (!owner || !owner->IsA(Symbol::kClass)) return nullptr;
  return LookupNestedType(static_cast<ClassSymbol*>(owner), mid(name, dot + 1));
}

// A written type name as seen from inside `cls` (null outside classes)
// in `module`: the class's own types first, then the modules outwards.
TypeSymbol* LookupTypeName(ModuleSymbol* module, ClassSymbol* cls,
                           string const& name) {
  if (cls)
    if (TypeSymbol* nested = LookupNestedType(cls, name)) return nested;
  if (TypeSymbol* found = module->LookupType(name)) return found;
  if (TypeSymbol* found = LookupDottedType(module, name)) return found;
  return LookupClassMemberType(module, cls, name);
}

ClassSymbol* AsClass(TypeSymbol* type) {
  return type && type->IsA(Symbol::kClass) ? static_cast<ClassSymbol*>(type)
                                           : nullptr;
}

void ResolveParameterType(ModuleSymbol* module, ClassSymbol* cls,
                          ParameterSymbol* param) {
  param->SetType(ResolveOneType(module, param->GetType(), cls));
  if (param->GetMode() == ParameterSymbol::kRequired) return;
  ParameterDefaultValue& value = param->DefaultValueSlot();
  value.type = ResolveOneType(module, value.type, cls);
}

// Self takes the owner's type; a self without an owner stays as it is.
// A class's methods see the types declared in it.
void ResolveMethodTypes(ModuleSymbol* module, TypeSymbol* owner,
                        MethodSymbol* method) {
  ClassSymbol* cls = AsClass(owner);
  method->SetReturnType(ResolveOneType(module, method->GetReturnType(), cls));
  for (unsigned long i = 0; i < method->CountParameters(); i++) {
    ParameterSymbol* param = method->GetParameter(i);
    if (param->GetRole() != ParameterSymbol::kImplicitSelf) {
      ResolveParameterType(module, cls, param);
      continue;
    }
    QASSERT_TEXT(owner, "ownerType");
    param->SetType(owner->InstanceType());
  }
}

void ResolveMethodList(ModuleSymbol* module, TypeSymbol* owner,
                       MethodDeclarationListOwner* methods) {
  MethodSymbolIterator it = methods->IterateMethods();
  while (it.Next()) ResolveMethodTypes(module, owner, it.Value());
}

void ResolveStructureTypes(ModuleSymbol* module, ClassSymbol* cls,
                           StructureSymbol* it) {
  FieldSymbolIterator f = it->IterateFields();
  while (f.Next())
    f.Value()->SetType(ResolveOneType(module, f.Value()->GetType(), cls));
}

// The superclass was resolved beforehand, for the nested types it lends.
void ResolveClassTypes(ModuleSymbol* module, ClassSymbol* it) {
  {
    TypeSymbolIterator t = it->IterateTypes();
    while (t.Next())
      if (t.Value()->IsA(Symbol::kStructure))
        ResolveStructureTypes(module, it, static_cast<StructureSymbol*>(t.Value()));
  }
  ResolveMethodList(module, it, it);
  {
    PropertySymbolIterator p = it->IterateProperties();
    while (p.Next())
      p.Value()->SetType(ResolveOneType(module, p.Value()->GetType(), it));
  }
  {
    EventSymbolIterator e = it->IterateEvents();
    while (e.Next()) ResolveMethodTypes(module, it, e.Value());
  }
  {
    ConstantSymbolIterator c = it->IterateConstants();
    while (c.Next())
      c.Value()->SetType(ResolveOneType(module, c.Value()->GetType(), it));
  }
  for (unsigned long i = 0; i < it->CountImplementedInterfaces(); i++)
    it->ReplaceImplementedInterface(
        i, ResolveOneType(module, it->GetImplementedInterface(i)));
}

// An interface's Inherits names another interface, which its record's
// base points at.
void ResolveInterfaceTypes(ModuleSymbol* module, InterfaceSymbol* it) {
  it->ReplaceSuperclassType(ResolveOneType(module, it->GetSuperclassType()));
  ResolveMethodList(module, it, it);
}

// The values of an enumeration are typed by it.
void ResolveEnumTypes(EnumSymbol* it) {
  ConstantSymbolIterator c = it->IterateConstants();
  while (c.Next()) c.Value()->SetType(it->InstanceType());
}

void ResolveTypeDeclaration(ModuleSymbol* module, TypeSymbol* type) {
  if (type->IsA(Symbol::kClass))
    ResolveClassTypes(module, static_cast<ClassSymbol*>(type));
  else if (type->IsA(Symbol::kInterface))
    ResolveInterfaceTypes(module, static_cast<InterfaceSymbol*>(type));
  else if (type->IsA(Symbol::kStructure))
    ResolveStructureTypes(module, nullptr, static_cast<StructureSymbol*>(type));
  else if (type->IsA(Symbol::kEnum))
    ResolveEnumTypes(static_cast<EnumSymbol*>(type));
  else if (type->IsA(Symbol::kDelegate))
    ResolveMethodTypes(module, type,
                       static_cast<DelegateSymbol*>(type)->Invoker());
  else
    QFAIL("unknown type of type");
}

// Every class's Inherits, before any member: a member's type may be
// declared in a superclass further down.
void ResolveSuperclassTypes(ModuleSymbol* module) {
  {
    TypeSymbolIterator t = module->IterateTypes();
    while (t.Next())
      if (ClassSymbol* cls = AsClass(t.Value()))
        cls->ReplaceSuperclassType(
            ResolveOneType(module, cls->GetSuperclassType()));
  }
  ModuleSymbolIterator m = module->IterateModules();
  while (m.Next()) ResolveSuperclassTypes(m.Value());
}

void ResolveMemberTypes(ModuleSymbol* module) {
  ResolveMethodList(module, nullptr, module);
  {
    PropertySymbolIterator p = module->IterateProperties();
    while (p.Next())
      p.Value()->SetType(ResolveOneType(module, p.Value()->GetType()));
  }
  {
    ConstantSymbolIterator c = module->IterateConstants();
    while (c.Next())
      c.Value()->SetType(ResolveOneType(module, c.Value()->GetType()));
  }
  {
    TypeSymbolIterator t = module->IterateTypes();
    while (t.Next()) ResolveTypeDeclaration(module, t.Value());
  }
  ModuleSymbolIterator m = module->IterateModules();
  while (m.Next()) ResolveMemberTypes(m.Value());
}

}  // namespace

IRDataType ResolveOneType(ModuleSymbol* module, IRDataType const& type,
                          ClassSymbol* cls) {
  IRDataType rest = type;
  bool isReference = rest.GetMainType() == kReferenceType;
  if (isReference) rest = rest.AsElement();
  unsigned dimensions = rest.GetDimensions();
  if (rest.GetMainType() == kArrayType) rest = rest.AsElement();
  if (rest.GetMainType() != kUnresolvedType) return type;
  TypeSymbol* found = LookupTypeName(module, cls, rest.TypeName());
  if (!found) return type;
  IRDataType resolved = found->InstanceType();
  if (dimensions) resolved = resolved.AsArray(dimensions);
  if (isReference) resolved = resolved.AsReference();
  return resolved;
}

void ResolveModuleTypes(ModuleSymbol* module) {
  ResolveSuperclassTypes(module);
  ResolveMemberTypes(module);
}
