#include "Compiler/Frontend/Functions.h"

#include "Common/ObjectModel/ObjectLayout.h"
#include "Compiler/Frontend/Assignments.h"
#include "Compiler/Frontend/Exceptions.h"
#include "Compiler/Frontend/Finalization.h"
#include "Compiler/Frontend/FlowControlSupport.h"
#include "Compiler/Frontend/Initialization.h"
#include "Compiler/Frontend/ParserError.h"
#include "Compiler/Frontend/Pragmas.h"
#include "Compiler/Frontend/ProgramAssembly.h"
#include "Compiler/Frontend/SrcContext.h"
#include "Compiler/Frontend/SymbolUtilities.h"
#include "Compiler/Intrinsics.h"
#include "Compiler/SemBase.h"
#include "Compiler/SymbolTable/GlobalSymbolTable.h"
#include "Compiler/SymbolTable/LocalSymbolTable.h"
#include "Universal/Assertion.h"

namespace {

char const* const kReturnName = "Return";
char const* const kSelfName = "self";

VariableSymbol* LocalVariable(char const* name) {
  VariableSymbol* var = nullptr;
  if (!gContext->mSymbols->LookupVariable(name, nullptr, &var)) return nullptr;
  return var;
}

// The class or module whose method is being compiled.
MethodDeclarationListOwner* MethodOwner() {
  BlockContextList const& blocks = gContext->blocks;
  MethodDeclarationListOwner* owner = blocks.CurrentClass();
  if (!owner) owner = blocks.CurrentModule();
  return owner;
}

// The declaration the scanner made for the method at this line.
MethodSymbol* FindDeclaration(MethodDeclarationListOwner* owner, SemBase* name) {
  if (!owner) return nullptr;
  return owner->LookupMethodDeclaration(name->toString(), gContext->mSourceName,
                                        name->Location().mStartLine);
}

// A structure result lives with the caller: Return is a reference to it.
void DeclareReturnVariable(MethodSymbol* method, SemBase* name) {
  IRDataType type = method->GetReturnType();
  if (type.GetMainType() == kStructureType) type = type.AsReference();
  SemBase* result = SemIdentifier::New(kReturnName, name->Location());
  result->SetType(type);
  AddSymbol(result);
  ProhibitSymbolFinalization(result);
}

// Two bodies for one signature give one link name: compile error 93.
void CheckLinkNameClash(MethodDeclarationListOwner* owner, MethodSymbol* method,
                        SemBase* name) {
  if (owner->LinkIDDeclaredElsewhere(method))
    Error(kErrorDuplicateLinkName, name->Location());
}

}  // namespace

void CompileFunction(SemBase* name, SemBase* alias, SemBase* params,
                     SemBase* returnType, SemBase* handles, SemBase* shared) {
  QASSERT(name && name->IsIdentifier());
  QASSERT(gContext);
  QASSERT(!gContext->blocks.CurrentMethod());
  MethodDeclarationListOwner* owner = MethodOwner();
  MethodSymbol* method = FindDeclaration(owner, name);
  if (!method) {
    Error(kErrorUnknownName, name->Location());
  } else {
    gContext->blocks.Enter(method);
    if (method->GetReturnType().GetMainType() != kNoType) {
      ValidateMethodReturnType(method, name->Location());
      DeclareReturnVariable(method, name);
    }
    QASSERT_TEXT(gContext->mSymbols->mName == name->toString(),
                 "gContext->mSymbols->mName == ident->toString()");
    gContext->mSymbols->mName = alias ? method->Name() : method->GetLinkID();
    CheckLinkNameClash(owner, method, name);
  }
  PushPragmas();
}

// ------------------------------------------------------------------ prolog

namespace {

struct PrologWalk {
  bool assignsSeen = false;
  bool paramArraySeen = false;
  bool expectLast = false;
  SimpleVector<SemBase*> collected;  // the parameters' values
  SimpleVector<SemBase*> names;      // and their identifiers
};

// A modifier word between the parameters: where Assigns, Extends and
// ParamArray stand is checked here.
void CheckModifierPlace(PrologWalk& walk, SemBase* item) {
  string word = item->toString();
  if (word == "ASSIGNS") {
    if (walk.assignsSeen) Error(kErrorParameterOrder83, item->Location());
    walk.expectLast = walk.assignsSeen = true;
  } else if (word == "EXTENDS") {
    if (walk.collected.size()) Error(kErrorParameterOrder, item->Location());
  } else if (word == "PARAMARRAY") {
    if (walk.assignsSeen)
      Error(kErrorParameterOrder81, item->Location());
    else if (walk.paramArraySeen)
      Error(kErrorParameterOrder84, item->Location());
    walk.expectLast = walk.paramArraySeen = true;
  }
}

void CollectParameter(PrologWalk& walk, SemBase* item, SemBase* param) {
  if (walk.expectLast)
    walk.expectLast = false;
  else if (walk.paramArraySeen)
    Error(kErrorParameterAfterParamArray, item->Location());
  else if (walk.assignsSeen)
    Error(kErrorParameterOrder81, item->Location());
  ProhibitSymbolInitialization(item);
  walk.collected.push_back(param);
  walk.names.push_back(item);
}

void WalkParameters(PrologWalk& walk, SemBase* params) {
  if (!params) return;
  SemBase* item = params->IsList() ? params->GetContents() : params;
  for (; item; item = params->IsList() ? item->GetNext() : nullptr) {
    if (!item->IsIdentifier()) continue;
    SemBase* param = FindLocalSymbol(item);
    if (param)
      CollectParameter(walk, item, param);
    else
      CheckModifierPlace(walk, item);
  }
}

// Locked parameters are released with the locals; borrowed ones are left
// alone at exit.
void HoldCountedParameters(PrologWalk const& walk, SemBase* code) {
  bool lock = gContext->mOptions.mLockRefCountedParameters;
  for (unsigned long i = 0; i < walk.collected.size(); i++) {
    SemBase* param = walk.collected[i];
    if (!param->GetType().RefCounted()) continue;
    if (lock)
      code->AddLine(kTacLock, param->GetAddr(), nilTacAddr, nilTacAddr);
    else
      ProhibitSymbolFinalization(walk.names[i]);
  }
}

void AddIntrinsic(SemBase* code, long which) {
  code->AddLine(kTacIntrinsic, IntrinsicTacAddr(which), nilTacAddr, nilTacAddr);
}

LocalSymbolTable* MethodTable(SemBase* name) {
  QASSERT(name && name->IsConstant());
  unsigned long index = (unsigned long)name->GetValue().uSInt32;
  QASSERT(index != 0);
  return gContext->mTables->GetTable(index);
}

}  // namespace

SemBase* CompileFunctionProlog(SemBase* name, SemBase* params) {
  QASSERT(gContext);
  SemBase* code = SemCode::New(IRDataType(), &name->Location());
  PrologWalk walk;
  WalkParameters(walk, params);
  for (unsigned long i = walk.collected.size(); i-- > 0;)
    code->AddLine(kTacGetParam, nilTacAddr, nilTacAddr,
                  walk.collected[i]->GetAddr());
  VariableSymbol* result = LocalVariable(kReturnName);
  if (result && result->GetType().GetMainType() == kReferenceType &&
      result->GetType().GetSubType() == kStructureType) {
    code->AddLine(kTacGetParam, nilTacAddr, nilTacAddr, result->GetAddr());
    result->ProhibitInitialization();
  }
  InitializeSymbols(MethodTable(name), code);
  HoldCountedParameters(walk, code);
  if (gContext->mOptions.mStackOverflowChecking)
    AddIntrinsic(code, kIntrinsicRuntimeCheckStack);
  EmitYield(code);
  if (gContext->mOptions.mAutoWaitCursorDisabled)
    AddIntrinsic(code, kIntrinsicDisableAutoWaitCursor);
  return code;
}

// ---------------------------------------------------------------- the end

namespace {

// The value of `Return x` into the function's result.
void AssignReturnValue(TacAddr const* place, SemBase* value, SemBase* code) {
  AssignToSymbol(place, value, code);
}

// Parameter 0 of an instance method: fetched like the others, last.
SemBase* SelfIdentifier() {
  VariableSymbol* self = LocalVariable(kSelfName);
  QASSERT_TEXT(self, "self");
  SemBase* ident = SemIdentifier::New(kSelfName);
  ident->SetType(self->GetType());
  return ident;
}

// The release of the locals runs on the way out of an exception too.
SemBase* Epilog(LocalSymbolTable* table) {
  SemBase* release = SemCode::New(IRDataType(), nullptr);
  FinalizeSymbols(table, release);
  if (gContext->mOptions.mAutoWaitCursorDisabled)
    AddIntrinsic(release, kIntrinsicEnableAutoWaitCursor);
  return CompileDebugEntry(MakeDefaultExceptionHandler(release));
}

// At the End line: the exit label that every Return jumps to, the release
// of the locals, Leave with the result.
SemBase* ExitSequence(LocalSymbolTable* table) {
  SemBase* tail = SemCode::New(IRDataType(), nullptr);
  VariableSymbol* result = LocalVariable(kReturnName);
  BlockContext::Type kind =
      result ? BlockContext::kFunction : BlockContext::kSub;
  EmitLabel(tail, gContext->blocks.FindExitAddr(kind, nullptr));
  SemBase* epilog = Epilog(table);
  if (epilog && epilog->Code()) tail->Append(epilog);
  uint16_t convention = gContext->mOptions.mX86CallingConvention;
  if (convention)
    tail->AddLine(kTacPragma, gContext->GetLiteral(0, kSInt32Type),
                  gContext->GetLiteral(convention, kSInt32Type), nilTacAddr);
  tail->AddLine(kTacLeave, result ? result->GetAddr() : nilTacAddr, nilTacAddr,
                nilTacAddr);
  return tail;
}

// A body without a declaration still closes its scope and its pragmas.
void CloseMethod(MethodSymbol* method) {
  if (method) gContext->blocks.Leave(method);
  PopSymTable();
  PopPragmas();
}

}  // namespace

SemBase* CompileEndFunction(SemBase* unused1, SemBase* name, SemBase* params,
                            SemBase* unused2, SemBase* body) {
  QASSERT(gContext);
  QASSERT(name);
  SemCode* code = SemCode::New(IRDataType(), &name->Location());
  MethodSymbol* method = gContext->blocks.CurrentMethod();
  if (!method) {
    CloseMethod(nullptr);
    return code;
  }
  bool instance = method->IsInstanceMethod();
  if (instance) params = ConcatList(SelfIdentifier(), params);
  LocalSymbolTable* table = MethodTable(name);
  code->AddLine(
      kTacEnter, gContext->GetLiteral(method->GetLinkID()),
      gContext->GetLiteral((long long)name->GetValue().uSInt32, kSInt32Type),
      nilTacAddr);
  code->Append(CompileFunctionProlog(name, params));
  if (instance)
    code->AddLine(kTacBaseref, LocalVariable(kSelfName)->GetAddr(),
                  gContext->GetLiteral(kObjectInstanceDataOffset, kSInt32Type),
                  nilTacAddr);
  if (body && body->Code()) code->Append(body);
  code->Append(ExitSequence(table));
  CloseMethod(method);
  code->Temporaries().deleteAll();
  return code;
}

SemBase* CompileReturn(SemBase* value) {
  QASSERT(gContext);
  SemBase* code = SemCode::New(IRDataType(), nullptr);
  MethodSymbol* method = gContext->blocks.CurrentMethod();
  VariableSymbol* result = method ? LocalVariable(kReturnName) : nullptr;
  BlockContext::Type target = BlockContext::kModule;
  if (value) {
    if (!result) {
      Error(kErrorReturnOutsideMethod, value->Location());
      return code;
    }
    AssignReturnValue(result->GetAddr(), value, code);
    target = BlockContext::kFunction;
  } else if (method) {
    if (result) {
      Error(kErrorReturnValueMismatch, code->Location());
      return code;
    }
    target = BlockContext::kSub;
  }
  EmitLeavingJump(code, gContext->blocks.FindExitAddr(target, nullptr));
  return code;
}

SemBase* CompileMeParam() { return SemIdentifier::New("me"); }

void AddSelfParameter(SemBase* shared) {
  QASSERT(gContext);
  ClassSymbol* owner = gContext->blocks.CurrentClass();
  if (shared || !owner) return;
  SemBase* self = SemIdentifier::New(kSelfName);
  self->SetType(owner->InstanceType());
  AddSymbol(self);
}

bool BlockIsFunction(TacBlock* block) {
  return block && block->mFirst && block->mFirst->opcode == kTacEnter;
}
