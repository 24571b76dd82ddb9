// Checks of a method's return type against the methods it overrides or
// implements.
#include "Compiler/Frontend/Functions.h"
#include "Compiler/Frontend/ParserError.h"
#include "Compiler/Frontend/SrcContext.h"
#include "Compiler/SymbolTable/GlobalSymbolTable.h"
#include "Compiler/SymbolTable/MethodSignatures.h"

namespace {

bool IsAncestor(ClassSymbol* candidate, ClassSymbol* of) {
  for (ClassSymbol* up = of; up; up = up->GetParent())
    if (up == candidate) return true;
  return false;
}

void CheckOverridden(ClassSymbol* owner, MethodSymbol* method,
                     SourceLocation const& where) {
  ClassSymbol* parent = owner->GetParent();
  if (!parent || method->GetDispatchMethod() != MethodSymbol::Virtual) return;
  if (method->GetDispatchID() >= parent->mVirtualMethodCount) return;
  MethodList inherited = parent->LookupMethods(method->Name(), kAllMethods);
  if (!inherited) return;
  for (unsigned long i = 0; i < inherited->size(); i++) {
    MethodSymbol* base = (*inherited)[i];
    if (base->GetDispatchMethod() != MethodSymbol::Virtual ||
        base->GetDispatchID() != method->GetDispatchID())
      continue;
    if (!CompareMethodReturnTypes(base->GetReturnType(),
                                  method->GetReturnType()))
      TypeMismatchError(kErrorBadReturnType, where, base->GetReturnType(),
                        method->GetReturnType());
  }
}

void CheckImplemented(ClassSymbol* owner, MethodSymbol* method,
                      SourceLocation const& where) {
  for (unsigned long i = 0; i < owner->CountImplementedInterfaces(); i++) {
    TypeSymbol* decl = owner->GetImplementedInterface(i).Declaration();
    if (!decl || !decl->IsA(Symbol::kInterface)) continue;
    InterfaceSymbol* face = static_cast<InterfaceSymbol*>(decl);
    MethodList declared = face->LookupMethods(method->Name(), kAllMethods);
    if (!declared) continue;
    for (unsigned long j = 0; j < declared->size(); j++) {
      MethodSymbol* other = (*declared)[j];
      if (!SignaturesMatchExactly(other, method)) continue;
      if (!CompareMethodReturnTypes(other->GetReturnType(),
                                    method->GetReturnType()))
        TypeMismatchError(kErrorInterfaceReturnType, where,
                          other->GetReturnType(), method->GetReturnType());
    }
  }
}

}  // namespace

void ValidateMethodReturnType(MethodSymbol* method,
                              SourceLocation const& where) {
  QASSERT(method);
  QASSERT(gContext);
  if (method->GetReturnType().GetMainType() == kNoType) return;
  ClassSymbol* owner = gContext->blocks.CurrentClass();
  if (!owner) return;
  CheckOverridden(owner, method, where);
  CheckImplemented(owner, method, where);
}

bool CompareMethodReturnTypes(IRDataType const& base,
                              IRDataType const& override) {
  if (base == override) return true;
  if (base.GetMainType() != kObjectType ||
      override.GetMainType() != kObjectType)
    return false;
  TypeSymbol* baseDecl = base.Declaration();
  if (!baseDecl) return true;
  TypeSymbol* overDecl = override.Declaration();
  if (!overDecl || !overDecl->IsA(Symbol::kClass)) return false;
  ClassSymbol* overClass = static_cast<ClassSymbol*>(overDecl);
  if (overClass->ImplementsInterface(baseDecl)) return true;
  return baseDecl->IsA(Symbol::kClass) &&
         IsAncestor(static_cast<ClassSymbol*>(baseDecl), overClass);
}
