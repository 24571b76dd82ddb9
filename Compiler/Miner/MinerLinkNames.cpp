// Link names of scopes and members: dotted paths from the root, mangled
// signatures for methods, plain qualified names for the rest.
#include "Compiler/Miner/Miner.h"
#include "Compiler/SymbolTable/GlobalSymbolTable.h"
#include "Compiler/SymbolTable/NameMangler.h"

namespace {

// A structure declared in a class is named through it: "M.Shape.Point".
void ComputeTypeLinkID(string const& prefix, TypeSymbol* type) {
  type->mLinkName = QualifyName(prefix, type->Name());
  ClassSymbol* cls = type->IsA(Symbol::kClass)
                         ? static_cast<ClassSymbol*>(type) : nullptr;
  if (!cls) return;
  TypeSymbolIterator nested = cls->IterateTypes();
  while (nested.Next()) ComputeTypeLinkID(type->mLinkName, nested.Value());
}

// The root's name is empty, so top-level modules get no leading ".".
void ComputeModuleLinkIDs(string const& prefix, ModuleSymbol* module) {
  string qualified = QualifyName(prefix, module->Name());
  module->mLinkName = qualified;
  {
    ModuleSymbolIterator m = module->IterateModules();
    while (m.Next()) ComputeModuleLinkIDs(qualified, m.Value());
  }
  TypeSymbolIterator t = module->IterateTypes();
  while (t.Next()) ComputeTypeLinkID(qualified, t.Value());
}

// A name that mangles to nothing (an unnamed declaration the scanner kept)
// keeps no link ID; the grammar pass reports its declaration.
void ComputeMethodLinkID(string const& prefix, MethodSymbol* method) {
  string id = MangledMethodName(method, prefix);
  if (id.Length()) method->SetLinkID(id);
}

void ComputePropertyLinkID(string const& prefix, PropertySymbol* property) {
  property->SetLinkName(QualifyName(prefix, property->Name()));
}

// Events are not mangled: they don't overload.
void ComputeEventLinkID(string const& prefix, MethodSymbol* event) {
  string id = QualifyName(prefix, event->Name());
  if (id.Length()) event->SetLinkID(id);
}

void ComputeMethodListLinkIDs(string const& prefix,
                              MethodDeclarationListOwner* owner) {
  MethodSymbolIterator it = owner->IterateMethods();
  while (it.Next()) ComputeMethodLinkID(prefix, it.Value());
}

void ComputeTypeMemberLinkIDs(string const& prefix, TypeSymbol* type);

void ComputeClassMemberLinkIDs(string const& prefix, ClassSymbol* it) {
  {
    TypeSymbolIterator t = it->IterateTypes();
    while (t.Next()) ComputeTypeMemberLinkIDs(prefix, t.Value());
  }
  ComputeMethodListLinkIDs(prefix, it);
  {
    PropertySymbolIterator p = it->IterateProperties();
    while (p.Next()) ComputePropertyLinkID(prefix, p.Value());
  }
  EventSymbolIterator e = it->IterateEvents();
  while (e.Next()) ComputeEventLinkID(prefix, e.Value());
}

void ComputeTypeMemberLinkIDs(string const& prefix, TypeSymbol* type) {
  string qualified = QualifyName(prefix, type->Name());
  if (type->IsA(Symbol::kClass)) {
    ComputeClassMemberLinkIDs(qualified, static_cast<ClassSymbol*>(type));
  } else if (type->IsA(Symbol::kInterface)) {
    ComputeMethodListLinkIDs(qualified, static_cast<InterfaceSymbol*>(type));
  } else if (type->IsA(Symbol::kStructure)) {
    FieldSymbolIterator f = static_cast<StructureSymbol*>(type)->IterateFields();
    while (f.Next())
      f.Value()->mLinkName = QualifyName(qualified, f.Value()->Name());
  } else if (!type->IsA(Symbol::kEnum) && !type->IsA(Symbol::kDelegate)) {
    QFAIL("unknown type declaration type");
  }
}

void ComputeModuleMemberLinkIDs(string const& prefix, ModuleSymbol* module) {
  string qualified = QualifyName(prefix, module->Name());
  {
    ModuleSymbolIterator m = module->IterateModules();
    while (m.Next()) ComputeModuleMemberLinkIDs(qualified, m.Value());
  }
  {
    TypeSymbolIterator t = module->IterateTypes();
    while (t.Next()) ComputeTypeMemberLinkIDs(qualified, t.Value());
  }
  {
    PropertySymbolIterator p = module->IterateProperties();
    while (p.Next()) ComputePropertyLinkID(qualified, p.Value());
  }
  ComputeMethodListLinkIDs(qualified, module);
}

}  // namespace

void ComputeScopeLinkIDs(GlobalSymbolTable* decls) {
  ComputeModuleLinkIDs("", decls);
}

void ComputeMemberLinkIDs(GlobalSymbolTable* decls) {
  ComputeModuleMemberLinkIDs("", decls);
}
