#include "Compiler/Frontend/Classes.h"
#include "Compiler/Frontend/FunctionCalls.h"

#include "Common/ObjectModel/RuntimeDelegates.h"
#include "Compiler/Frontend/Expressions.h"
#include "Compiler/Frontend/ExternalDeclarations.h"
#include "Compiler/Frontend/ObjectExpressions.h"
#include "Compiler/Frontend/OverloadResolution.h"
#include "Compiler/Frontend/ParserError.h"
#include "Compiler/Frontend/SrcContext.h"
#include "Compiler/Frontend/SymbolUtilities.h"
#include "Compiler/Frontend/TypeConversions.h"
#include "Compiler/Intrinsics.h"
#include "Compiler/SemBase.h"
#include "Compiler/SymbolTable/GlobalSymbolTable.h"
#include "Universal/Assertion.h"

namespace {

char const* const kObjCLibrary = "/usr/lib/libobjc.dylib";


TacAddr const* Text(string const& text) { return gContext->GetLiteral(text); }

TacAddr const* Int(long value) {
  return gContext->GetLiteral((long long)value, kSInt32Type);
}

TacAddr const* LibraryOf(MethodSymbol* target) {
  string const& library = target->GetSourceLibrary();
  return library.Length() ? Text(library) : nilTacAddr;
}

TacAddr const* NewPointer(SemBase* code) {
  return code->NewTemp(IRDataType(kPtrType), nullptr)->GetAddr();
}

void PutParam(SemBase* code, TacAddr const* value) {
  code->AddLine(kTacPutParam, value, nilTacAddr, nilTacAddr);
}

// The object a method is called on, without a reference around it.
SemBase* ObjectBase(SemBase* base, SemBase* code) {
  QASSERT(base);
  IRDataType type = StripReference(base->GetType());
  QASSERT_TEXT(type.GetMainType() == kObjectType,
               "baseExprType.GetMainType() == kObjectType");
  return CompileRefAs(base, type, code);
}

void CallNormal(MethodSymbol* target, SemBase* base, SemBase* args,
                TacAddr const* result, SemBase* code) {
  QASSERT(target->GetLinkID().Length());
  PushAllArguments(target, base, args, code);
  code->AddLine(kTacCall, Text(target->GetLinkID()), LibraryOf(target), result);
}

// An interface's vtable is looked up at run time; its slots are 8 bytes
// apart. A class's vtable is found by the generator through the self that
// is pushed first.
void CallVtable(MethodSymbol* target, SemBase* base, SemBase* args,
                TacAddr const* result, SemBase* code) {
  SemBase* object = ObjectBase(base, code);
  TypeSymbol* decl = object->GetType().Declaration();
  QASSERT_TEXT(decl, "hostType");
  if (!decl->IsA(Symbol::kInterface)) {
    QASSERT_TEXT(decl->IsA(Symbol::kClass),
                 "calling a method on a type which cannot have methods");
    PushAllArguments(target, object, args, code);
    code->AddLine(kTacCallVirtual, Int(target->GetDispatchID()), nilTacAddr,
                  result);
    return;
  }
  SemBase* record = LookupInterfaceRecord(decl);
  if (record && record->Code()) code->Append(record);
  TacAddr const* vtable = NewPointer(code);
  PutParam(code, object->GetAddr());
  PutParam(code, record ? record->GetAddr() : gTacZero);
  code->AddLine(kTacIntrinsic,
                IntrinsicTacAddr(kIntrinsicRuntimeLookupInterfaceVtable),
                nilTacAddr, vtable);
  PushAllArguments(target, object, args, code);
  TacAddr const* function = NewPointer(code);
  code->AddLine(kTacPeek, vtable, Int(target->GetDispatchID() * 8), function);
  code->AddLine(kTacCallPtr, function, nilTacAddr, result);
}

// An event without a handler does nothing, and its result stays zero.
void CallEvent(MethodSymbol* target, SemBase* base, SemBase* args,
               TacAddr const* result, SemBase* code) {
  SemBase* object = ObjectBase(base, code);
  TacAddr const* function = NewPointer(code);
  TacAddr const* table = NewPointer(code);
  code->AddLine(kTacPeek, object->GetAddr(), Int(8), table);
  code->AddLine(kTacPeek, table, Int(target->GetDispatchID() * 8), function);
  TacAddr const* skip = NewLabel();
  code->AddLine(kTacIfEQI, function, gTacZero, skip);
  PushAllArguments(target, object, args, code);
  code->AddLine(kTacCallPtr, function, nilTacAddr, result);
  code->AddLine(kTacLabel, skip, nilTacAddr, nilTacAddr);
}

// The address of `name` in `library`, looked up at run time; a missing
// library or function raises there, where a script can catch it.
TacAddr const* LoadedFunction(TacAddr const* name, TacAddr const* library,
                              SemBase* code) {
  PutParam(code, name);
  PutParam(code, library);
  TacAddr const* function = NewPointer(code);
  code->AddLine(kTacIntrinsic,
                IntrinsicTacAddr(kIntrinsicLoadFunctionPointerFromLibrary),
                nilTacAddr, function);
  TacAddr const* found = NewLabel();
  code->AddLine(kTacIfNEI, function, gTacZero, found);
  PutParam(code, name);
  PutParam(code, library);
  code->AddLine(
      kTacIntrinsic,
      IntrinsicTacAddr(kIntrinsicRuntimeRaiseFunctionNotFoundException),
      nilTacAddr, nilTacAddr);
  code->AddLine(kTacLabel, found, nilTacAddr, nilTacAddr);
  return function;
}

// Resolved at the call: a missing function raises there, not at link time.
void CallWeakLinkedAddress(MethodSymbol* target, SemBase* base, SemBase* args,
                           TacAddr const* result, SemBase* code) {
  TacAddr const* function =
      LoadedFunction(Text(target->GetLinkID()),
                     Text(target->GetSourceLibrary()), code);
  PushAllArguments(target, base, args, code);
  code->AddLine(kTacCallPtr, function, nilTacAddr, result);
}

// A Declare'd function of a shared library (not of a plug-in, whose
// functions the host serves at link time).
bool IsSharedLibraryFunction(MethodSymbol* target) {
  string const& library = target->GetSourceLibrary();
  return library.Length() && !IsPluginLibrary(library);
}

// The selector is registered by name and passed after the receiver (after
// the hidden result pointer too, for a structure result). Both functions
// are looked up at run time, like any Declare'd function.
void CallObjCMsgSend(MethodSymbol* target, SemBase* base, SemBase* args,
                     TacAddr const* result, SemBase* code) {
  bool structure = target->GetReturnType().GetMainType() == kStructureType;
  char const* function = structure ? "objc_msgSend_stret" : "objc_msgSend";
  unsigned long position = structure ? 2 : 1;
  TacAddr const* selector = NewPointer(code);
  TacAddr const* registrar =
      LoadedFunction(Text("sel_registerName"), Text(kObjCLibrary), code);
  SemBase* text = SemValue::New(Text(target->GetLinkID()), nullptr);
  SemBase* cText = CompileRefAs(text, IRDataType(kExternalCStringType), code);
  PutParam(code, cText->GetAddr());
  code->AddLine(kTacCallPtr, registrar, nilTacAddr, selector);
  SimpleVector<SemBase*> list = ArgumentVector(nullptr, args);
  if (position > list.size()) position = list.size();
  list.insert(SemValue::New(selector, nullptr), position);
  SemBase* withSelector = nullptr;
  for (unsigned long i = 0; i < list.size(); i++)
    withSelector = ConcatList(withSelector, list[i]->Clone());
  TacAddr const* sender =
      LoadedFunction(Text(function), Text(target->GetSourceLibrary()), code);
  PushAllArguments(target, base, withSelector, code);
  code->AddLine(kTacCallPtr, sender, nilTacAddr, result);
}

// A call through a delegate enters its invoker stub with the delegate.
void CallDelegate(MethodSymbol* target, SemBase* base, SemBase* args,
                  TacAddr const* result, SemBase* code) {
  SemBase* object = ObjectBase(base, code);
  QASSERT(object->GetType().IsDelegate());
  SemBase* delegate = FlattenExpression(object, code);
  TacAddr const* function = NewPointer(code);
  code->AddLine(kTacPeek, delegate->GetAddr(), Int(kDelegateInvokerOffset),
                function);
  PushAllArguments(target, delegate, args, code);
  code->AddLine(kTacCallPtr, function, nilTacAddr, result);
}

SemCode* NewCallCode(MethodSymbol* target) {
  SemCode* code = SemCode::New(target->GetReturnType(), nullptr);
  if (target->GetReturnType().GetMainType() != kNoType)
    ResetReturnTemp(code->GetAddr(), code);
  return code;
}

// A method called on a base that is no object has had its error already
// (one called where there is no Self, as in a field's initialiser).
bool BaseIsNoObject(MethodSymbol* target, SemBase* base) {
  MethodSymbol::DispatchMethod how = target->GetDispatchMethod();
  if (!base || (how != MethodSymbol::Normal && how != MethodSymbol::Virtual &&
                how != MethodSymbol::Event))
    return false;
  return StripReference(base->GetType()).GetMainType() != kObjectType &&
         gContext->mErrorFlag;
}

}  // namespace

SemBase* CompileCall(MethodSymbol* target, SemBase* base, SemBase* args) {
  QASSERT(target);
  SemCode* code = NewCallCode(target);
  if (BaseIsNoObject(target, base)) return code;
  TacAddr const* result = code->GetAddr();
  switch (target->GetDispatchMethod()) {
    case MethodSymbol::Normal:
      if (IsSharedLibraryFunction(target))
        CallWeakLinkedAddress(target, base, args, result, code);
      else
        CallNormal(target, base, args, result, code);
      break;
    case MethodSymbol::Virtual:
      CallVtable(target, base, args, result, code);
      break;
    case MethodSymbol::Event:
      CallEvent(target, base, args, result, code);
      break;
    case MethodSymbol::WeakLinked:
      CallWeakLinkedAddress(target, base, args, result, code);
      break;
    case MethodSymbol::ObjCMessage:
      CallObjCMsgSend(target, base, args, result, code);
      break;
    case MethodSymbol::DelegateInvoke:
      CallDelegate(target, base, args, result, code);
      break;
    default:
      QFAIL("unknown dispatch method");
  }
  return code;
}

SemBase* CompileStaticCall(MethodSymbol* target, SemBase* base, SemBase* args) {
  QASSERT(target);
  QASSERT(target->GetDispatchMethod() == MethodSymbol::Normal ||
          target->GetDispatchMethod() == MethodSymbol::Virtual);
  SemCode* code = NewCallCode(target);
  CallNormal(target, base, args, code->GetAddr(), code);
  return code;
}

SemBase* FilterCallTargets(SemBase* expr) {
  if (expr && expr->Code()) return expr;
  if (expr) Error(kErrorNotCallable, expr->Location());
  return SemCode::New(IRDataType(), nullptr);
}

SemBase* CompileRaiseEvent(SemBase* ident, SemBase* args,
                           FunctionResultMode mode) {
  QASSERT(ident);
  QASSERT(gContext);
  CompileErrorCode whyFailed = kErrorUnknownName;
  ClassSymbol* owner = gContext->blocks.CurrentClass();
  MethodSymbol* event = owner ? owner->LookupEvent(ident->toString()) : nullptr;
  if (event) {
    MethodList candidates;
    candidates.BindNewObject(new SimpleVector<MethodSymbol*>);
    candidates->push_back(event);
    SemBase* base = CompileSelf();
    MethodSymbol* chosen =
        SelectAppropriateVariant(candidates, base, args, mode, &whyFailed);
    if (chosen) return CompileCall(chosen, base, args);
  }
  Error(whyFailed, ident->Location());
  return SemCode::New(IRDataType(), nullptr);
}
