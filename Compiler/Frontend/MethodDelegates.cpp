#include "Compiler/Frontend/MethodDelegates.h"

#include "Compiler/Frontend/Classes.h"
#include "Compiler/Frontend/Expressions.h"
#include "Compiler/Frontend/GeneratedFunctions.h"
#include "Compiler/Frontend/MemberAccess.h"
#include "Compiler/Frontend/Namespaces.h"
#include "Compiler/Frontend/NilChecks.h"
#include "Compiler/Frontend/ObjectExpressions.h"
#include "Compiler/Frontend/ParserError.h"
#include "Compiler/Frontend/SrcContext.h"
#include "Compiler/Frontend/TypeConversions.h"
#include "Compiler/Frontend/TypeNames.h"
#include "Compiler/Intrinsics.h"
#include "Compiler/SemBase.h"
#include "Compiler/SymbolTable/GlobalSymbolTable.h"
#include "Compiler/SymbolTable/LocalSymbolTable.h"
#include "Universal/Assertion.h"

namespace {

// The size of one vtable entry; its first word is the method's code.
long const kVtableEntrySize = 8;

void PutParam(SemBase* code, TacAddr const* value) {
  code->AddLine(kTacPutParam, value, nilTacAddr, nilTacAddr);
}

bool IsEmpty(MethodList const& methods) {
  return !methods || methods->size() == 0;
}

// A method of a class: only those the code at hand may use.
MethodList PermittedMethods(ClassSymbol* cls, MethodList methods) {
  if (IsEmpty(methods)) return methods;
  for (unsigned long i = methods->size(); i-- > 0;)
    if (!CurrentlyHasPermissionToAccessFunction(cls, (*methods)[i]))
      methods->deleteIdx(i);
  return methods;
}

// A private method of a module is seen only from inside the module.
MethodList VisibleModuleMethods(ModuleSymbol* module, string const& name) {
  MethodList methods = module->LookupMethods(name, kPlainMethods);
  if (IsEmpty(methods) || gContext->blocks.Contains(module)) return methods;
  for (unsigned long i = methods->size(); i-- > 0;)
    if ((*methods)[i]->GetScope() == MemberSymbol::kPrivate)
      methods->deleteIdx(i);
  return methods;
}

// The code of a virtual method as the object's class has it: a class's
// vtable is the object's first word, an interface's is looked up.
TacAddr const* VirtualFunction(MethodSymbol* method, SemBase* self,
                               SemBase* code) {
  TacAddr const* function = NewTempAddr(code, IRDataType(kPtrType));
  TypeSymbol* decl = self->GetType().Declaration();
  TacAddr const* vtable = function;
  if (decl && decl->IsA(Symbol::kInterface)) {
    SemBase* record = LookupInterfaceRecord(decl);
    if (record && record->Code()) code->Append(record);
    PutParam(code, self->GetAddr());
    PutParam(code, record ? record->GetAddr() : gTacZero);
    code->AddLine(kTacIntrinsic,
                  IntrinsicTacAddr(kIntrinsicRuntimeLookupInterfaceVtable),
                  nilTacAddr, vtable);
  } else {
    PeekWord(code, self->GetAddr(), 0, vtable);
  }
  PeekWord(code, vtable, long(method->GetDispatchID()) * kVtableEntrySize,
           function);
  return function;
}

void CallCreateDelegate(SemBase* code, TacAddr const* stub,
                        TacAddr const* function, TacAddr const* bound,
                        string const& signature) {
  PutParam(code, stub);
  PutParam(code, function);
  PutParam(code, bound);
  PutParam(code, TextConstant(signature));
  code->AddLine(kTacIntrinsic, IntrinsicTacAddr(kIntrinsicRuntimeCreateDelegate),
                nilTacAddr, code->GetAddr());
}

// How a virtual method's code is found: from the object's vtable, or the
// very method named (Super.M and Ancestor.M).
enum VirtualTarget { kFromVtable, kExactMethod };

// The delegate of a chosen method; an instance method is bound to
// `object`, which it needs (compile error 106, or 108 in an accessor).
SemBase* AddressOfFunction(MethodSymbol* method, SemBase* object,
                           SourceLocation const& where,
                           VirtualTarget target = kFromVtable) {
  bool instance = method->IsInstanceMethod();
  if (instance && !object) {
    Error(gContext->blocks.CurrentProperty()
              ? kErrorInstanceMemberInSharedAccessor
              : kErrorInstanceMemberInSharedContext,
          where);
    return ErrorValue(where);
  }
  MethodSymbol::DispatchMethod how = method->GetDispatchMethod();
  if (how != MethodSymbol::Normal && how != MethodSymbol::Virtual) {
    SimpleVector<string> text;
    text.push_back(method->Name());
    Error(kErrorBadTypeUse, where, text);
    return ErrorValue(where);
  }
  SemBase* code = SemCode::New(MakeImplicitDelegateType(method), &where);
  ResetReturnTemp(code->GetAddr(), code);
  SemBase* self = nullptr;
  if (instance)
    self = CompileRefAs(CheckForNilObject(object),
                        StripReference(object->GetType()), code);
  TacAddr const* function =
      how == MethodSymbol::Virtual && instance && target == kFromVtable
          ? VirtualFunction(method, self, code)
          : FunctionPointer(code, method->GetLinkID(),
                            method->GetSourceLibrary());
  TacAddr const* stub = LookupInvokerStub(method, instance, code);
  CallCreateDelegate(code, stub, function, self ? self->GetAddr() : gTacZero,
                     DelegateTypeSignature(method));
  return code;
}

// Duplicates of one method are no choice; the list keeps one of them.
bool IsAmbiguousAddressOfOverload(MethodList const& methods) {
  while (methods->size() >= 2) {
    if ((*methods)[0] != (*methods)[1]) return true;
    methods->deleteIdx(0);
  }
  return false;
}

SemBase* AddressOfOneOf(MethodList const& methods, SemBase* object,
                        SourceLocation const& where,
                        VirtualTarget target = kFromVtable) {
  if (IsEmpty(methods)) {
    Error(kErrorUnknownName, where);
    return ErrorValue(where);
  }
  if (IsAmbiguousAddressOfOverload(methods)) {
    Error(kErrorNoMatchingOverload, where);
    return ErrorValue(where);
  }
  return AddressOfFunction((*methods)[0], object, where, target);
}

SemBase* RefusedBase(SourceLocation const& where) {
  Error(kErrorSyntax, where);
  return ErrorValue(where);
}

// `AddressOf M.F` of a module: its methods have no object.
SemBase* AddressOfModuleMethod(ModuleSymbol* module, string const& name,
                               SourceLocation const& where) {
  MethodList methods = VisibleModuleMethods(module, name);
  if (!IsEmpty(methods))
    for (unsigned long i = 0; i < methods->size(); i++)
      if ((*methods)[i]->IsInstanceMethod()) return RefusedBase(where);
  return AddressOfOneOf(methods, nullptr, where);
}

// `AddressOf C.F` of a class: a shared method, or, in a descendant's
// instance method (Super.F), that very method bound to Self.
SemBase* AddressOfClassMethod(ClassSymbol* cls, string const& name,
                              SourceLocation const& where) {
  MethodList methods =
      PermittedMethods(cls, cls->LookupMethods(name, kPlainMethods));
  return AddressOfOneOf(methods, InheritedSelf(cls), where, kExactMethod);
}

// `AddressOf x.F` of an object: bound to it.
SemBase* AddressOfObjectMethod(SemBase* object, string const& name,
                               SourceLocation const& where) {
  IRDataType type = StripReference(object->GetType());
  TypeSymbol* decl = type.Declaration();
  if (type.GetMainType() != kObjectType || !decl) return RefusedBase(where);
  MethodList methods;
  if (decl->IsA(Symbol::kClass)) {
    ClassSymbol* cls = static_cast<ClassSymbol*>(decl);
    methods = PermittedMethods(cls, cls->LookupMethods(name, kPlainMethods));
  } else if (decl->IsA(Symbol::kInterface)) {
    methods = static_cast<InterfaceSymbol*>(decl)->LookupMethods(
        name, kPlainMethods);
  } else {
    return RefusedBase(where);
  }
  return AddressOfOneOf(methods, object, where);
}

Symbol* NamedSymbol(SemBase* base) {
  if (base->IsNamespace()) return static_cast<SemNamespace*>(base)->GetSymbol();
  if (base->IsIdentifier())
    return ResolveType(base->toString()).Declaration();
  return nullptr;
}

// The one argument of `New D(ptr)`, or null after reporting.
SemBase* PointerArgument(SemBase* args, SourceLocation const& where) {
  if (!args) {
    Error(kErrorNotEnoughArguments, where);
    return nullptr;
  }
  if (args->IsList()) {
    Error(kErrorTooManyArguments, args->Location());
    return nullptr;
  }
  return args;
}

}  // namespace

SemBase* CompileDelegate(SemBase* ident) {
  QASSERT(ident);
  QASSERT(gContext);
  SourceLocation where = ident->Location();
  SemBase* code = SemCode::New(IRDataType(), &where);
  ModuleSymbol* module = gContext->blocks.CurrentModule();
  if (!module) return code;  // a bare parse, without declarations
  TypeSymbol* decl = module->LookupType(ident->toString());
  if (!decl || decl->SourceLine() != where.mStartLine ||
      !decl->IsA(Symbol::kDelegate)) {
    Error(kErrorDuplicateName, where);
    return code;
  }
  MethodSymbol* invoker = static_cast<DelegateSymbol*>(decl)->Invoker();
  for (unsigned long i = 0; i < invoker->CountParameters(); i++) {
    ParameterSymbol* param = invoker->GetParameter(i);
    if (param->GetRole() == ParameterSymbol::kImplicitSelf) continue;
    if (param->GetMode() != ParameterSymbol::kRequired)
      Error(kErrorDelegate, where);
    else if (param->GetRole() != ParameterSymbol::kNormalParameter)
      Error(kErrorDelegate131, where);
  }
  return code;
}

SemBase* CompileAddressOf(SemBase* ident) {
  QASSERT(ident);
  QASSERT(gContext);
  BlockContextList const& blocks = gContext->blocks;
  string name = ident->toString();
  MethodList methods;
  SemBase* object = nullptr;
  if (blocks.CurrentMethod())
    methods = gContext->mSymbols->LookupMethods(name, kPlainMethods);
  ClassSymbol* cls = blocks.CurrentClass();
  if (IsEmpty(methods) && cls) {
    methods = cls->LookupMethods(name, kPlainMethods);
    if (!IsEmpty(methods) && CanAccessInstanceItems()) object = CompileSelf();
  }
  ModuleSymbol* module = blocks.CurrentModule();
  if (IsEmpty(methods) && module)
    methods = module->LookupMethodsRecursive(name, kPlainMethods);
  return AddressOfOneOf(methods, object, ident->Location());
}

SemBase* CompileAddressOf(SemBase* base, SemBase* ident) {
  QASSERT(base);
  QASSERT(ident);
  SourceLocation where = base->Location() + ident->Location();
  if (IsErrorValue(base)) return base;
  string name = ident->toString();
  if (base->IsNamespace() || base->IsIdentifier()) {
    Symbol* symbol = NamedSymbol(base);
    if (symbol && symbol->IsA(Symbol::kModule))
      return AddressOfModuleMethod(static_cast<ModuleSymbol*>(symbol), name,
                                   where);
    if (symbol && symbol->IsA(Symbol::kClass))
      return AddressOfClassMethod(static_cast<ClassSymbol*>(symbol), name,
                                  where);
    return RefusedBase(where);
  }
  return AddressOfObjectMethod(base, name, where);
}

void CreateNewDelegateInstance(TypeSymbol* decl, SemBase* args, SemBase* code) {
  QASSERT(code);
  QASSERT(decl && decl->IsA(Symbol::kDelegate));
  SourceLocation where = code->Location();
  SemBase* pointer = PointerArgument(args, where);
  if (!pointer) return;
  if (gContext->mScriptMode) {
    Error(kErrorDelegateInScript, where);
    return;
  }
  MethodSymbol* invoker = static_cast<DelegateSymbol*>(decl)->Invoker();
  TacAddr const* function =
      CompileRefAs(pointer, IRDataType(kPtrType), code)->GetAddr();
  TacAddr const* stub = LookupInvokerStub(invoker, false, code);
  CallCreateDelegate(code, stub, function, gTacZero,
                     DelegateTypeSignature(invoker));
}

SemBase* DelegateBinop(SemBase* left, unsigned long op, SemBase* right) {
  SourceLocation where = left->Location() + right->Location();
  SemBase* code = SemCode::New(IRDataType(kBooleanType), &where);
  if (op != kOpEqual && op != kOpNotEqual) {
    Error(kErrorBadOperand, where);
    return code;
  }
  SemBase* a = CompileRefAs(left, StripReference(left->GetType()), code);
  SemBase* b = CompileRefAs(right, StripReference(right->GetType()), code);
  PutParam(code, a->GetAddr());
  PutParam(code, b->GetAddr());
  TacAddr const* compare = IntrinsicTacAddr(kIntrinsicRuntimeCompareDelegates);
  if (op == kOpEqual) {
    code->AddLine(kTacIntrinsic, compare, nilTacAddr, code->GetAddr());
    return code;
  }
  TacAddr const* same = NewTempAddr(code, IRDataType(kBooleanType));
  code->AddLine(kTacIntrinsic, compare, nilTacAddr, same);
  code->AddLine(kTacEQ, same, gTacFalse, code->GetAddr());
  return code;
}

// "Combine" is kept for a future combination of delegates; like every
// other name it is unknown here.
SemBase* StaticDelegateScopeLookup(SemBase* expr, SemBase* ident,
                                   SemBase* args, SemBase* assignValue,
                                   FunctionResultMode mode) {
  QASSERT(ident);
  SourceLocation where = expr->Location() + ident->Location();
  Error(kErrorUnknownName, where);
  return FailedLookupValue(where, mode);
}
