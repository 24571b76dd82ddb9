// New objects of script classes: the record a class is known by at run
// time, allocation (by the runtime or by a custom __New), constructors of
// both forms, and the destructor the record names.
#include "Compiler/Frontend/Classes.h"

#include "Compiler/Frontend/Expressions.h"
#include "Compiler/Frontend/FunctionCalls.h"
#include "Compiler/Frontend/Lexer.h"
#include "Compiler/Frontend/MemberAccess.h"
#include "Compiler/Frontend/NilChecks.h"
#include "Compiler/SymbolTable/NameMangler.h"
#include "Compiler/Frontend/Namespaces.h"
#include "Compiler/Frontend/ObjectExpressions.h"
#include "Compiler/Frontend/OverloadResolution.h"
#include "Compiler/Frontend/SrcContext.h"
#include "Compiler/Frontend/SymbolUtilities.h"
#include "Compiler/Frontend/TypeConversions.h"
#include "Compiler/Intrinsics.h"
#include "Compiler/SemBase.h"
#include "Compiler/SymbolTable/GlobalSymbolTable.h"
#include "Universal/Assertion.h"

namespace {

char const* const kConstructorName = "Constructor";
char const* const kDestructorName = "Destructor";
char const* const kAllocatorName = "__New";
// Where a class record keeps its name.
long const kRecordNameOffset = 4;

SemBase* CallRecordLookup(MethodDeclarationListOwner* owner) {
  return CompileCall(ClassLookupFunction(owner), nullptr, nullptr);
}

// The runtime's own classes (the exceptions) declare no __Lookup; their
// records are for typed handlers and raising, which come later: for now
// using one is compile error 26.
SemBase* ReportRuntimeClass(TypeSymbol* decl) {
  SimpleVector<string> text;
  text.push_back(decl->Name());
  Error(kErrorBadTypeUse, SourceLocation(current_line()), text);
  return nullptr;
}

bool DeclaresLookup(MethodDeclarationListOwner* owner) {
  MethodList getters = owner->MethodDeclarationListOwner::LookupMethods(
      "__Lookup", kAllMethods);
  return getters && getters->size() > 0;
}

// A custom allocator in reach: the class's own (called on Self) where an
// instance is at hand, else one of the module.
SemBase* CallAllocator(SemBase* record, SemBase* code) {
  BlockContextList const& blocks = gContext->blocks;
  MethodList allocators;
  SemBase* base = nullptr;
  if (blocks.CurrentClass() && CanAccessInstanceItems()) {
    allocators = blocks.CurrentClass()->LookupMethods(kAllocatorName,
                                                      kPlainMethods);
    if (allocators) base = CompileSelf();
  } else if (ModuleSymbol* module = blocks.CurrentModule()) {
    allocators = module->LookupMethodsRecursive(kAllocatorName, kPlainMethods);
  }
  if (!allocators || allocators->size() == 0) return nullptr;
  CompileErrorCode why = kErrorNone;
  MethodSymbol* chosen = SelectAppropriateVariant(
      allocators, base, record, kRequireFunctionResult, &why);
  if (!chosen) return nullptr;
  SemBase* call = CompileCall(chosen, base, record);
  code->Append(call);
  code->AddLine(kTacStore, call->GetAddr(), nilTacAddr, code->GetAddr());
  code->AddLine(kTacStore, gTacZero, nilTacAddr, call->GetAddr());
  return call;
}

MethodSymbol* SelectConstructor(MethodList const& candidates, SemBase* object,
                                SemBase* args, CompileErrorCode* why) {
  if (!candidates || candidates->size() == 0) return nullptr;
  return SelectAppropriateVariant(candidates, object, args,
                                  kProhibitFunctionResult, why);
}

}  // namespace

MethodSymbol* ClassLookupFunction(MethodDeclarationListOwner* owner) {
  QASSERT(owner);
  MethodList getters = owner->MethodDeclarationListOwner::LookupMethods(
      "__Lookup", kAllMethods);
  QASSERT_TEXT(getters, "getters");
  QASSERT_TEXT(1 == getters->size(), "1 == getters->size()");
  QASSERT_TEXT((*getters)[0], "getter");
  return (*getters)[0];
}

SemBase* LookupClassRecord(TypeSymbol* decl) {
  QASSERT(decl && decl->IsA(Symbol::kClass));
  ClassSymbol* cls = static_cast<ClassSymbol*>(decl);
  if (!DeclaresLookup(cls)) return ReportRuntimeClass(cls);
  return CallRecordLookup(cls);
}

SemBase* LookupInterfaceRecord(TypeSymbol* decl) {
  QASSERT(decl && decl->IsA(Symbol::kInterface));
  return CallRecordLookup(static_cast<InterfaceSymbol*>(decl));
}

void CreateNewClassInstance(ClassSymbol* cls, SemBase* args, SemBase* code,
                            bool callConstructor) {
  QASSERT(code);
  SemBase* record = LookupClassRecord(cls);
  if (!record) return;
  if (!CallAllocator(record->Clone(), code)) {
    SemBase* flat = FlattenExpression(record, code);
    code->AddLine(kTacPutParam, flat->GetAddr(), nilTacAddr, nilTacAddr);
    code->AddLine(kTacIntrinsic, IntrinsicTacAddr(kIntrinsicRuntimeNewObject),
                  nilTacAddr, code->GetAddr());
  }
  if (!callConstructor) {
    QASSERT_TEXT(!args,
                 "makes no sense to pass arguments in but not call a constructor");
    return;
  }
  CallConstructor(cls, SemValue::New(code->GetAddr(), &code->Location()), args,
                  code->Location(), code);
}

void CallConstructor(ClassSymbol* cls, SemBase* newObject, SemBase* args,
                     SourceLocation const& where, SemBase* code) {
  QASSERT_TEXT(cls, "newObjClass");
  QASSERT_TEXT(newObject, "newObj");
  QASSERT(code);
  CompileErrorCode why = kErrorNone;
  MethodList candidates = cls->LookupMethods(kConstructorName, kPlainMethods);
  bool anyCandidate = candidates && candidates->size() > 0;
  MethodSymbol* chosen = SelectConstructor(candidates, newObject, args, &why);
  // The old form bears a class's name; the nearest class wins.
  for (ClassSymbol* c = cls; !chosen && c; c = c->GetParent()) {
    MethodList named = cls->LookupMethods(c->Name(), kPlainMethods);
    if (named && named->size() > 0) anyCandidate = true;
    chosen = SelectConstructor(named, newObject, args, &why);
  }
  if (chosen) {
    if (!CurrentlyHasPermissionToAccessFunction(cls, chosen))
      Error(kErrorConstructorCall, where);
    else
      code->Append(CompileCall(chosen, newObject, args));
    return;
  }
  if (anyCandidate || args)
    Error(why == kErrorNone ? kErrorNotAnArray : why, where);
}

// Only a destructor that the class declares itself counts: the runtime
// calls each class's own on its way up the chain.
string LookupDestructorMethod(ClassSymbol* cls) {
  QASSERT_TEXT(cls, "classDecl");
  MethodList candidates =
      cls->LookupMethods(MakeOldDestructorBaseName(cls->Name()), kPlainMethods);
  if (!candidates || candidates->size() == 0)
    candidates = cls->LookupMethods(kDestructorName, kPlainMethods);
  if (!candidates) return string();
  for (unsigned long i = 0; i < candidates->size(); i++) {
    MethodSymbol* destructor = (*candidates)[i];
    if (destructor->CountParameters() != 1) continue;
    ParameterSymbol* self = destructor->GetParameter(0);
    QASSERT_TEXT(self, "selfDecl");
    QASSERT_TEXT(ParameterSymbol::kImplicitSelf == self->GetRole(),
                 "ParameterSymbol::kImplicitSelf == selfDecl->mRole");
    QASSERT_TEXT(kObjectType == self->GetType().GetMainType(),
                 "kObjectType == selfDecl->GetType().GetMainType()");
    QASSERT_TEXT(self->GetType().Declaration(),
                 "selfDecl->GetType().Declaration()");
    if (self->GetType().Declaration() != cls) return string();
    return destructor->GetLinkID();
  }
  return string();
}

// A class record as a value knows its name; anything else is an extension.
SemBase* ClassScopeLookup(SemBase* expr, SemBase* ident, SemBase* args,
                          SemBase* assignValue, FunctionResultMode mode) {
  if (ident->toString() != string("Name") || args || assignValue)
    return ExtensionLookup(expr, ident, args, assignValue, mode,
                           kErrorUnknownName);
  SourceLocation where = expr->Location() + ident->Location();
  SemBase* code = SemCode::New(IRDataType(kStringType), &where);
  SemBase* record = FlattenExpression(CheckForNilObject(expr), code);
  ResetReturnTemp(code->GetAddr(), code);
  code->AddLine(kTacPeek, record->GetAddr(),
                gContext->GetLiteral((long long)kRecordNameOffset, kSInt32Type),
                code->GetAddr());
  code->AddLine(kTacLock, code->GetAddr(), nilTacAddr, nilTacAddr);
  return code;
}
