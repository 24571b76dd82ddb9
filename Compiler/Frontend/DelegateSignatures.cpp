// The shapes of delegates: the two signature texts, the comparison of two
// delegate types, and the types that AddressOf makes for bare methods.
#include "Compiler/Frontend/MethodDelegates.h"
#include "Compiler/Frontend/SrcContext.h"
#include "Compiler/SemBase.h"
#include "Compiler/SymbolTable/GlobalSymbolTable.h"
#include "Compiler/SymbolTable/NameMangler.h"
#include "Universal/Assertion.h"

namespace {

bool IsSelf(ParameterSymbol* param) {
  return param->GetRole() == ParameterSymbol::kImplicitSelf;
}

bool HasResult(MethodSymbol* method) {
  return method->GetReturnType().GetMainType() != kNoType;
}

MethodSymbol* InvokerOf(IRDataType const& type) {
  QASSERT(type.IsDelegate());
  return static_cast<DelegateSymbol*>(type.Declaration())->Invoker();
}

}  // namespace

string DelegateLinkSignature(MethodSymbol* method) {
  QASSERT(method);
  string name = AddReturnTypeDescriptionToName("", method->GetReturnType());
  for (unsigned long i = 0; i < method->CountParameters(); i++) {
    ParameterSymbol* param = method->GetParameter(i);
    if (!IsSelf(param))
      name = AddParameterDescriptionToName(name, param->GetType());
  }
  return name;
}

// A method without parameters reads "()", so that its text is closed like
// every other.
string DelegateTypeSignature(MethodSymbol* method) {
  QASSERT(method);
  string text;
  for (unsigned long i = 0; i < method->CountParameters(); i++) {
    ParameterSymbol* param = method->GetParameter(i);
    if (IsSelf(param)) continue;
    text += text.Length() ? ", " : "( ";
    text += param->GetType().ToString();
  }
  text = text.Length() ? text + " )" : string("()");
  if (HasResult(method)) text += " as " + method->GetReturnType().ToString();
  return text;
}

// Self, parameter 0 of each invoker, is the delegate itself and differs.
bool DelegateSignaturesMatch(IRDataType const& to, IRDataType const& from) {
  MethodSymbol* a = InvokerOf(to);
  MethodSymbol* b = InvokerOf(from);
  if (a->GetReturnType() != b->GetReturnType()) return false;
  if (a->CountParameters() != b->CountParameters()) return false;
  for (unsigned long i = 1; i < a->CountParameters(); i++)
    if (a->GetParameter(i)->GetType() != b->GetParameter(i)->GetType())
      return false;
  return true;
}

SemBase* LookupDelegateSignature(TypeSymbol* decl) {
  QASSERT(decl && decl->IsA(Symbol::kDelegate));
  MethodSymbol* invoker = static_cast<DelegateSymbol*>(decl)->Invoker();
  return SemValue::New(gContext->GetLiteral(DelegateTypeSignature(invoker)),
                       nullptr);
}

IRDataType MakeImplicitDelegateType(MethodSymbol* method) {
  QASSERT_TEXT(method, "target");
  string name = string("Delegate") + DelegateTypeSignature(method);
  DelegateSymbol* type = new DelegateSymbol(name);
  type->mLinkName = name;
  gContext->mImplicitDelegateTypes.push_back(type);
  MethodSymbol* invoker = type->Invoker();
  invoker->GetParameter(0)->SetType(type->InstanceType());
  for (unsigned long i = 0; i < method->CountParameters(); i++) {
    ParameterSymbol* param = method->GetParameter(i);
    if (!IsSelf(param))
      invoker->AddParameter(
          new ParameterSymbol(param->Name(), param->GetType()));
  }
  invoker->SetReturnType(method->GetReturnType());
  return type->InstanceType();
}
