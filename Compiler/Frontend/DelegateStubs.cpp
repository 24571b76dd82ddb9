// Invoker stubs: the functions every call through a delegate enters. A
// call passes the delegate and the arguments; the stub reads the method's
// code from the delegate and calls it with the arguments, behind the bound
// object for an instance method. One stub serves every delegate of one
// shape and kind, whatever method it holds.
#include "Common/ObjectModel/RuntimeDelegates.h"
#include "Compiler/Frontend/GeneratedFunctions.h"
#include "Compiler/Frontend/MethodDelegates.h"
#include "Compiler/Frontend/SrcContext.h"
#include "Compiler/SemBase.h"
#include "Compiler/SymbolTable/GlobalSymbolTable.h"
#include "Compiler/SymbolTable/NameMangler.h"
#include "Universal/Assertion.h"

namespace {

char const* const kBoundStubBase = "Delegate.IM_Invoke";
char const* const kUnboundStubBase = "Delegate.Invoke";

string InvokerStubName(MethodSymbol* method, bool instanceMethod) {
  string base = instanceMethod ? kBoundStubBase : kUnboundStubBase;
  return QualifyName(gContext->mSourceName, base) +
         DelegateLinkSignature(method);
}

void PutParam(SemBase* code, TacAddr const* value) {
  code->AddLine(kTacPutParam, value, nilTacAddr, nilTacAddr);
}

// Parameters arrive last first, the delegate itself last of all. The
// stub borrows every argument: the method it calls holds what it keeps.
SemBase* MakeInvokerStub(MethodSymbol* method, bool instanceMethod,
                         string const& name) {
  GeneratedFunction stub(name);
  SemBase* body = stub.Body();
  IRDataType result = method->GetReturnType();
  TacAddr const* returned =
      result.GetMainType() == kNoType ? nilTacAddr : NewTempAddr(body, result);
  SimpleVector<TacAddr const*> arguments;
  for (unsigned long i = method->CountParameters(); i-- > 0;) {
    ParameterSymbol* param = method->GetParameter(i);
    if (param->GetRole() == ParameterSymbol::kImplicitSelf) continue;
    arguments.insert(stub.Parameter(param->GetType()), 0);
  }
  TacAddr const* delegate = stub.Parameter(IRDataType(kObjectType));
  TacAddr const* function = NewTempAddr(body, IRDataType(kPtrType));
  PeekWord(body, delegate, kDelegateFunctionOffset, function);
  if (instanceMethod) {
    TacAddr const* bound = NewTempAddr(body, IRDataType(kPtrType));
    PeekWord(body, delegate, kDelegateTargetOffset, bound);
    PutParam(body, bound);
  }
  for (unsigned long i = 0; i < arguments.size(); i++)
    PutParam(body, arguments[i]);
  body->AddLine(kTacCallPtr, function, nilTacAddr, returned);
  return stub.Finish(returned);
}

}  // namespace

TacAddr const* LookupInvokerStub(MethodSymbol* method, bool instanceMethod,
                                 SemBase* code) {
  QASSERT(method);
  QASSERT(code);
  string name = InvokerStubName(method, instanceMethod);
  if (!gContext->mInvokerStubNames.Contains(name)) {
    gContext->mInvokerStubNames.Add(name);
    gContext->mStubCode->Append(MakeInvokerStub(method, instanceMethod, name));
  }
  return FunctionPointer(code, name, string());
}
