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

// Climbs to the outermost module and follows "A.B.Name" down from there.
TypeSymbol* LookupDottedType(ModuleSymbol* module, string name) {
  ModuleSymbol* scope = module;
  while (scope->GetContainer()) scope = scope->GetContainer();
  for (;;) {
    char const* bytes = name.CString();
    int dot = -1;
    for (unsigned long i = 0; i < name.Length() && dot < 0; i++)
      if (bytes[i] == '.') dot = int(i);
    if (dot < 0) return scope->LookupType(name);
    scope = scope->LookupModule(left(name, dot));
    if (!scope) return nullptr;
    name = mid(name, dot + 1);
  }
}

void ResolveParameterType(ModuleSymbol* module, ParameterSymbol* param) {
  param->SetType(ResolveOneType(module, param->GetType()));
  if (param->GetMode() == ParameterSymbol::kRequired) return;
  ParameterDefaultValue& value = param->DefaultValueSlot();
  value.type = ResolveOneType(module, value.type);
}

// Self takes the owner's type; a self without an owner stays as it is.
void ResolveMethodTypes(ModuleSymbol* module, TypeSymbol* owner,
                        MethodSymbol* method) {
  method->SetReturnType(ResolveOneType(module, method->GetReturnType()));
  for (unsigned long i = 0; i < method->CountParameters(); i++) {
    ParameterSymbol* param = method->GetParameter(i);
    if (param->GetRole() != ParameterSymbol::kImplicitSelf) {
      ResolveParameterType(module, param);
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

void ResolveClassTypes(ModuleSymbol* module, ClassSymbol* it) {
  it->ReplaceSuperclassType(ResolveOneType(module, it->GetSuperclassType()));
  ResolveMethodList(module, it, it);
  {
    PropertySymbolIterator p = it->IterateProperties();
    while (p.Next())
      p.Value()->SetType(ResolveOneType(module, p.Value()->GetType()));
  }
  {
    EventSymbolIterator e = it->IterateEvents();
    while (e.Next()) ResolveMethodTypes(module, it, e.Value());
  }
  {
    ConstantSymbolIterator c = it->IterateConstants();
    while (c.Next())
      c.Value()->SetType(ResolveOneType(module, c.Value()->GetType()));
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

void ResolveStructureTypes(ModuleSymbol* module, StructureSymbol* it) {
  FieldSymbolIterator f = it->IterateFields();
  while (f.Next())
    f.Value()->SetType(ResolveOneType(module, f.Value()->GetType()));
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
    ResolveStructureTypes(module, static_cast<StructureSymbol*>(type));
  else if (type->IsA(Symbol::kEnum))
    ResolveEnumTypes(static_cast<EnumSymbol*>(type));
  else if (type->IsA(Symbol::kDelegate))
    ResolveMethodTypes(module, type,
                       static_cast<DelegateSymbol*>(type)->Invoker());
  else
    QFAIL("unknown type of type");
}

}  // namespace

IRDataType ResolveOneType(ModuleSymbol* module, IRDataType const& type) {
  IRDataType rest = type;
  bool isReference = rest.GetMainType() == kReferenceType;
  if (isReference) rest = rest.AsElement();
  unsigned dimensions = rest.GetDimensions();
  if (rest.GetMainType() == kArrayType) rest = rest.AsElement();
  if (rest.GetMainType() != kUnresolvedType) return type;
  string name = rest.TypeName();
  TypeSymbol* found = module->LookupType(name);
  if (!found) found = LookupDottedType(module, name);
  if (!found) return type;
  IRDataType resolved = found->InstanceType();
  if (dimensions) resolved = resolved.AsArray(dimensions);
  if (isReference) resolved = resolved.AsReference();
  return resolved;
}

void ResolveModuleTypes(ModuleSymbol* module) {
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
  while (m.Next()) ResolveModuleTypes(m.Value());
}
