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
  ModuleSymbol* module = gContext->blocks.CurrentModule();
  TypeSymbol* decl = module ? module->LookupType(name) : nullptr;
  return decl ? DeclaredType(decl) : type;
}

SemBase* CompileType(SemBase* ident) {
  QASSERT(ident);
  if (ident->IsIdentifier()) ident->SetType(ResolveType(ident->toString()));
  if (!IsUsable(ident->GetType())) Error(kErrorNotAType, ident->Location());
  return ident;
}

namespace {

// The module that the dotted prefix names, or null after a report.
ModuleSymbol* PrefixModule(SemBase* prefix) {
  ModuleSymbol* module = gContext->blocks.Root();
  SemBase* first = prefix->IsList() ? prefix->GetContents() : prefix;
  for (SemBase* item = first; item && module;
       item = prefix->IsList() ? item->GetNext() : nullptr) {
    ModuleSymbol* inner = module->LookupModule(item->toString());
    if (!inner) {
      Error(kErrorUnknownName, item->Location());
      return nullptr;
    }
    if (inner->GetScope() == MemberSymbol::kPrivate)
      Error(kErrorPrivateModule, item->Location());
    module = inner;
  }
  return module;
}

void CompileQualifiedType(SemBase* prefix, SemBase* name) {
  ModuleSymbol* module = PrefixModule(prefix);
  if (!module) return;
  TypeSymbol* decl = module->LookupType(name->toString());
  if (!decl) {
    Error(kErrorNotAType, name->Location());
    return;
  }
  if (decl->GetScope() == MemberSymbol::kPrivate)
    Error(kErrorPrivateType, name->Location());
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
