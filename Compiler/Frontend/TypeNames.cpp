#include "Compiler/Frontend/TypeNames.h"

#include "Compiler/Frontend/Lexer.h"
#include "Compiler/Frontend/ParserError.h"
#include "Compiler/Frontend/SrcContext.h"
#include "Compiler/Frontend/TacLiteralPool.h"
#include "Compiler/SemBase.h"
#include "Compiler/SymbolTable/GlobalSymbolTable.h"
#include "Universal/Assertion.h"

namespace {

bool IsUsable(IRDataType const& type) {
  return type.GetMainType() != kNoType && type.GetMainType() != kUnresolvedType;
}

// A class drags in the units of its whole parent chain.
void RecordTypeDependency(TypeSymbol* decl) {
  gContext->RecordDependency(decl->SourceUnit());
  if (!decl->IsA(Symbol::kClass)) return;
  for (ClassSymbol* up = static_cast<ClassSymbol*>(decl)->GetParent(); up;
       up = up->GetParent())
    gContext->RecordDependency(up->SourceUnit());
}

IRDataType DeclaredType(TypeSymbol* decl) {
  RecordTypeDependency(decl);
  return decl->InstanceType();
}

}  // namespace

// type_name: Class (312) | Object (313)
SemBase* BasicType(int token) {
  SemBase* ident;
  if (token == kTokClass) {
    ident = SemIdentifier::New("Class");
    ident->SetType(IRDataType(kClassType));
  } else {
    QASSERT_TEXT(token == kTokObject, "unknown basic type token");
    ident = SemIdentifier::New("Object");
    ident->SetType(IRDataType(kObjectType));
  }
  return ident;
}

IRDataType ResolveType(string const& name) {
  IRDataType type = IRDataType::Lookup(name);
  if (IsUsable(type) || !gContext) return type;
  ClassSymbol* cls = gContext->blocks.CurrentClass();
  TypeSymbol* decl = cls ? cls->LookupType(name) : nullptr;
  ModuleSymbol* module = gContext->blocks.CurrentModule();
  if (!decl && module) decl = module->LookupType(name);
  return decl ? DeclaredType(decl) : type;
}

SemBase* CompileType(SemBase* ident) {
  QASSERT(ident);
  if (ident->IsIdentifier()) ident->SetType(ResolveType(ident->toString()));
  if (!IsUsable(ident->GetType())) Error(kErrorNotAType, ident->Location());
  return ident;
}

namespace {

// What a dotted prefix names: a module, and maybe a class in it whose
// nested types the last name picks from.
struct TypeOwner {
  ModuleSymbol* module;
  ClassSymbol* cls;
};

ClassSymbol* AsClass(TypeSymbol* type) {
  return type && type->IsA(Symbol::kClass) ? static_cast<ClassSymbol*>(type)
                                           : nullptr;
}

// A class named in a prefix: the first name as any type name is seen
// from here, a later one among the own types of the module before it.
ClassSymbol* PrefixClass(ModuleSymbol* module, SemBase* item, bool first) {
  string name = item->toString();
  if (first) return AsClass(ResolveType(name).Declaration());
  return AsClass(static_cast<TypeSymbol*>(module->FindOwn(name, Symbol::kType)));
}

// False after a report.
bool PrefixOwner(SemBase* prefix, TypeOwner& owner) {
  owner.module = gContext->blocks.Root();
  owner.cls = nullptr;
  SemBase* first = prefix->IsList() ? prefix->GetContents() : prefix;
  for (SemBase* item = first; item;
       item = prefix->IsList() ? item->GetNext() : nullptr) {
    ModuleSymbol* inner =
        owner.cls ? nullptr : owner.module->LookupModule(item->toString());
    if (inner) {
      if (inner->GetScope() == MemberSymbol::kPrivate)
        Error(kErrorPrivateModule, item->Location());
      owner.module = inner;
      continue;
    }
    ClassSymbol* cls =
        owner.cls ? nullptr : PrefixClass(owner.module, item, item == first);
    if (!cls) {
      Error(kErrorUnknownName, item->Location());
      return false;
    }
    if (item != first && cls->GetScope() == MemberSymbol::kPrivate)
      Error(kErrorPrivateType, item->Location());
    owner.cls = cls;
  }
  return true;
}

bool IsSelfOrSubclass(ClassSymbol* cls, ClassSymbol* ancestor) {
  for (ClassSymbol* c = cls; c; c = c->GetParent())
    if (c == ancestor) return true;
  return false;
}

}  // namespace

bool MayUseNestedType(ClassSymbol* owner, TypeSymbol* decl) {
  if (decl->GetScope() == MemberSymbol::kPublic) return true;
  while (owner && owner->LookupOwnType(decl->Name()) != decl)
    owner = owner->GetParent();
  ClassSymbol* current = gContext->blocks.CurrentClass();
  if (!owner || !current) return false;
  if (decl->GetScope() == MemberSymbol::kPrivate) return current == owner;
  return IsSelfOrSubclass(current, owner);
}

namespace {

void CompileQualifiedType(SemBase* prefix, SemBase* name) {
  TypeOwner owner;
  if (!PrefixOwner(prefix, owner)) return;
  TypeSymbol* decl = owner.cls ? owner.cls->LookupType(name->toString())
                               : owner.module->LookupType(name->toString());
  if (!decl) {
    Error(kErrorNotAType, name->Location());
    return;
  }
  bool allowed = owner.cls ? MayUseNestedType(owner.cls, decl)
                           : decl->GetScope() != MemberSymbol::kPrivate;
  if (!allowed) Error(kErrorPrivateType, name->Location());
  name->SetType(DeclaredType(decl));
}

}  // namespace

SemBase* CompileType(SemBase* prefix, SemBase* name) {
  QASSERT(name);
  if (!prefix || !gContext || !gContext->blocks.Root())
    CompileType(name);
  else
    CompileQualifiedType(prefix, name);
  if (!IsUsable(name->GetType())) name->SetType(IRDataType(kSInt32Type));
  return name;
}

// (,) has rank 2: one more than the commas.
SemBase* ArrayRank(SemBase* commas) {
  long rank = 1;
  if (commas) {
    rank++;
    if (commas->IsList()) {
      rank = 1;
      for (SemBase* c = commas->GetContents(); c; c = c->GetNext()) rank++;
    }
  }
  return SemValue::New(CurrentTLP()->GetLiteral(rank, kSInt32Type), nullptr);
}

SemBase* ArrayType(SemBase* element, SemBase* rank) {
  QASSERT(element);
  QASSERT(rank);
  QASSERT(rank->IsConstant() && rank->GetType().GetMainType() == kSInt32Type);
  SemBase* array = SemIdentifier::New(element->toString(), element->Location());
  array->SetType(element->GetType().AsArray(rank->GetValue().uSInt32));
  return array;
}
