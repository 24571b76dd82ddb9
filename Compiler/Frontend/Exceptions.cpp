#include "Compiler/Frontend/Exceptions.h"

#include "Compiler/Frontend/FlowControlSupport.h"
#include "Compiler/Frontend/GeneratedFunctions.h"
#include "Compiler/Frontend/ObjectExpressions.h"
#include "Compiler/Frontend/ParserError.h"
#include "Compiler/Frontend/ProgramAssembly.h"
#include "Compiler/Frontend/SrcContext.h"
#include "Compiler/Frontend/SymbolUtilities.h"
#include "Compiler/Frontend/TypeConversions.h"
#include "Compiler/Frontend/TypeNames.h"
#include "Compiler/Intrinsics.h"
#include "Compiler/SemBase.h"
#include "Compiler/SymbolTable/GlobalSymbolTable.h"
#include "Compiler/SymbolTable/LocalSymbolTable.h"
#include "Universal/Assertion.h"
#include "Universal/CompileWorkCounters.h"
#include "Universal/ByteHelpers.h"

namespace {

char const kMainBodyName[] = "% main";
char const kExceptionClassName[] = "RuntimeException";

void AddIntrinsicCall(SemBase* code, long which, TacAddr const* argument) {
  code->AddLine(kTacPutParam, argument, nilTacAddr, nilTacAddr);
  code->AddLine(kTacIntrinsic, IntrinsicTacAddr(which), nilTacAddr,
                nilTacAddr);
}

// Whether `cls` or one of its ancestors is the root exception class.
bool DerivesFromException(ClassSymbol* cls) {
  for (; cls; cls = cls->GetParent())
    if (cls->Name() == string(kExceptionClassName)) return true;
  return false;
}

// A Catch type must name a class derived from RuntimeException: compile
// error 35 otherwise (plain Object and interfaces included). Gives whether
// the type may be tested.
bool CheckCatchType(SemBase* exceptionType) {
  IRDataType const& type = exceptionType->GetType();
  TypeSymbol* decl = type.Declaration();
  if (type.GetMainType() == kObjectType && decl && decl->IsA(Symbol::kClass) &&
      DerivesFromException(static_cast<ClassSymbol*>(decl)))
    return true;
  Error(kErrorCatchNotException, exceptionType->Location());
  return false;
}

// The variable a handler stores into. A method's variable is on its stack
// already; a top-level one is static, so the exception lands in a hidden
// slot of the main body's frame and is moved over behind the handler.
struct HandlerTarget {
  TacAddr const* landing = nilTacAddr;
  TacAddr const* variable = nilTacAddr;
};

// Whether new variables of the current scope live in a stack frame: not
// so at the top level, whose variables are static.
bool InMethodFrame() {
  return gContext->mSymbols && gContext->mSymbols->Root()->IsMethodTable();
}

// A hidden slot in the main body's frame. The prolog and epilog leave it
// alone: the handler code that owns it sets and releases it.
TacAddr const* NewMainBodySlot(IRDataType const& type) {
  LocalSymbolTable* table = MainBodyTable();
  string name = string("exception ") + ultohexa(table->GetTotalStorage());
  VariableSymbol* slot = table->AddVariable(name, type);
  slot->HideFromUser();
  slot->ProhibitInitialization();
  slot->ProhibitFinalization();
  return slot->GetAddr();
}

// The variable of a default handler. In a method it is a local of the
// method, released by the method's epilog (a re-raise that lands in a later
// handler of the same frame skips the Unlock after it), but not by the
// statement: after a caught re-raise the statement's end is never reached.
TacAddr const* NewHandlerVariable(SemBase* out) {
  IRDataType object(kObjectType);
  if (!InMethodFrame()) return NewMainBodySlot(object);
  TacAddr const* e = out->NewTemp(object, nullptr)->GetAddr();
  TemporaryList& temps = out->Temporaries();
  temps.deleteIdx(temps.size() - 1);
  return e;
}

// A Try statement being compiled, for the jumps that leave it: Return,
// Exit and Continue to a block outside the Try go through its Finally. Such
// a jump stores its route number in `pending` and jumps to `routes`, where
// the Finally (if any) follows; behind the statement each route number
// jumps on to its target, through the Finally of the next Try outward.
struct OpenTry {
  // Labels are numbered in order, so a target made before the Try lies
  // outside it.
  long firstInnerLabel;
  TacAddr const* routes;
  TacAddr const* pending;
  bool inFinally;
  SimpleVector<TacAddr const*> targets;  // route k goes to targets[k - 1]
};
// Emptied at the end of every compilation (a syntax error may leave a Try
// open).
SimpleVector<OpenTry> sOpenTries;
// The label before the Finally of the method being compiled, from the
// Finally's first line until the method body is put together.
TacAddr const* sMethodFinallyEntry = nullptr;

long LabelNumber(TacAddr const* label) {
  return long(label->GetValue()->uSInt32);
}

TacAddr const* NewPendingRouteVariable(SemBase* code) {
  IRDataType number(kSInt32Type);
  if (!InMethodFrame()) return NewMainBodySlot(number);
  TacAddr const* pending = code->NewTemp(number, nullptr)->GetAddr();
  TemporaryList& temps = code->Temporaries();
  temps.deleteIdx(temps.size() - 1);
  return pending;
}

// The innermost Try of this compilation that a jump to `target` leaves, or
// null. Code in a Finally has left its own Try already.
OpenTry* TryLeftBy(TacAddr const* target) {
  for (unsigned long i = sOpenTries.size(); i-- > 0;) {
    OpenTry& open = sOpenTries[i];
    if (open.inFinally) continue;
    if (LabelNumber(target) < open.firstInnerLabel) return &open;
    return nullptr;
  }
  return nullptr;
}

// Behind the statement: each route goes on to its target.
void DispatchRoutes(OpenTry const& closed, SemBase* code) {
  for (unsigned long k = 1; k <= closed.targets.size(); k++) {
    TacAddr const* other = NewLabel();
    EmitBranch(code, kTacIfNEI, closed.pending, IntConstant(long(k)), other);
    EmitLeavingJump(code, closed.targets[k - 1]);
    EmitLabel(code, other);
  }
}

// The table whose frame holds the hidden slots of the code compiled now.
LocalSymbolTable* FrameTable() {
  return InMethodFrame() ? gContext->mSymbols->Root() : MainBodyTable();
}

HandlerTarget FindHandlerTarget(SemBase* exceptionVar) {
  HandlerTarget target;
  if (!exceptionVar) return target;
  SemBase* local = FindLocalSymbol(exceptionVar);
  if (local) {
    QASSERT(!local->IsConstant());
    target.landing = target.variable = local->GetAddr();
    return target;
  }
  VariableSymbol* var = nullptr;
  bool found = gContext->mSymbols->LookupVariable(exceptionVar->toString(),
                                                  nullptr, &var);
  QASSERT_TEXT(found && var, "the handler variable is declared");
  target.landing = target.variable = var->GetAddr();
  if (var->GetStorageClass() != kStackDataStorage)
    target.landing = NewMainBodySlot(var->GetType());
  return target;
}

}  // namespace

// Found or made once per compilation, then remembered with its place in
// the list: a program of many functions asks for it at every handler.
LocalSymbolTable* MainBodyTable() {
  QASSERT(gContext);
  if (gContext->mMainBodyTable) return gContext->mMainBodyTable;
  LocalSymbolTableList* tables = &*gContext->mTables;
  for (unsigned long i = 1; i < tables->Count(); i++) {
    LocalSymbolTable* table = tables->GetTable(i);
    CountListSteps(1);
    if (table && table->IsMethodTable() && table->mName == string(kMainBodyName)) {
      gContext->mMainBodyTable = table;
      gContext->mMainBodyTableIndex = i;
      return table;
    }
  }
  LocalSymbolTable* table = new MethodSymbolTable(string(kMainBodyName));
  table->Activate(tables->GetGlobalTable(), 0);
  gContext->mMainBodyTableIndex = tables->Count();
  tables->AddTable(table);
  QASSERT(tables->GetTable(gContext->mMainBodyTableIndex) == table);
  gContext->mMainBodyTable = table;
  return table;
}

TacAddr const* ReleasePendingSlot(IRDataType const& type) {
  LocalSymbolTable* table = FrameTable();
  string name = string("released ") + type.ToString();
  VariableSymbol* slot = nullptr;
  if (table->LookupVariable(name, nullptr, &slot) && slot)
    return slot->GetAddr();
  slot = table->AddVariable(name, type);
  slot->HideFromUser();
  slot->ProhibitInitialization();
  slot->ProhibitFinalization();
  return slot->GetAddr();
}

unsigned long MainBodyTableIndex() {
  MainBodyTable();
  return gContext->mMainBodyTableIndex;
}

SemBase* CompileTry() {
  SemBase* code = SemCode::New(IRDataType(), nullptr);
  OpenTry open;
  open.routes = NewLabel();
  open.firstInnerLabel = LabelNumber(open.routes);
  open.pending = NewPendingRouteVariable(code);
  open.inFinally = false;
  sOpenTries.push_back(open);
  code->AddLine(kTacStore, gTacZero, nilTacAddr, open.pending);
  code->AddLine(kTacBeginTry, nilTacAddr, nilTacAddr, nilTacAddr);
  return CompileDebugEntry(code);
}

void EnterFinallyBlock() {
  if (sOpenTries.size() > 0) {
    sOpenTries.peek_back().inFinally = true;
    return;
  }
  sMethodFinallyEntry = gContext->blocks.MoveMethodExit();
}

SemBase* PlaceMethodFinally(SemBase* finallyCode) {
  TacAddr const* entry = sMethodFinallyEntry;
  sMethodFinallyEntry = nullptr;
  if (!entry) return finallyCode;
  SemBase* code = SemCode::New(IRDataType(), nullptr);
  EmitLabel(code, entry);
  if (finallyCode) code->Append(finallyCode);
  return code;
}

void ForgetOpenTries() {
  sOpenTries.deleteAll();
  sMethodFinallyEntry = nullptr;
}

SemBase* CompileEndTry(SemBase* tryCode, SemBase* handlers,
                       SemBase* finallyCode) {
  SemBase* code = ConcatCode(tryCode, handlers);
  if (!code) code = SemCode::New(IRDataType(), nullptr);
  QASSERT_TEXT(sOpenTries.size() > 0, "an open Try");
  OpenTry closed = sOpenTries.pop_back();
  EmitLabel(code, closed.routes);
  if (finallyCode) code->Append(finallyCode);
  code->AddLine(kTacEndTry, nilTacAddr, nilTacAddr, nilTacAddr);
  DispatchRoutes(closed, code);
  return code;
}

void EmitLeavingJump(SemBase* code, TacAddr const* target) {
  OpenTry* left = target ? TryLeftBy(target) : nullptr;
  if (!left) {
    EmitJump(code, target);
    return;
  }
  left->targets.push_back(target);
  code->AddLine(kTacStore, IntConstant(long(left->targets.size())), nilTacAddr,
                left->pending);
  EmitJump(code, left->routes);
}

SemBase* CompileExceptionBlock(SemBase* body, SemBase* exceptionVar,
                               SemBase* exceptionType) {
  SemBase* code = SemCode::New(IRDataType(), nullptr);
  HandlerTarget target = FindHandlerTarget(exceptionVar);
  bool typed = exceptionType && CheckCatchType(exceptionType);
  TacAddr const* next = NewLabel();
  code->AddLine(kTacHandleException, target.landing, nilTacAddr, next);
  // A stop the host asked for is no exception of the script's: no Catch
  // keeps it from ending the run.
  code->AddLine(kTacIntrinsic, IntrinsicTacAddr(kIntrinsicRuntimePassStop),
                nilTacAddr, nilTacAddr);
  if (target.landing != target.variable)
    code->AddLine(kTacStore, target.landing, nilTacAddr, target.variable);
  if (typed && exceptionVar) {
    TacAddr const* matches = NewLabel();
    SemBase* caught =
        SemValue::New(target.variable, &exceptionVar->Location());
    SemBase* test = CompileIsA(caught, exceptionType);
    code->Append(test);
    EmitBranch(code, kTacIfNEI, test->GetAddr(), gTacFalse, matches);
    AddIntrinsicCall(code, kIntrinsicRuntimeReraiseException, target.variable);
    EmitLabel(code, matches);
  }
  if (body && body->Code()) code->Append(body);
  EmitLabel(code, next);
  return code;
}

SemBase* CompileFinallyBlock(SemBase* body) {
  return MakeDefaultExceptionHandler(body);
}

SemBase* MakeDefaultExceptionHandler(SemBase* code) {
  SemBase* out = SemCode::New(IRDataType(), nullptr);
  TacAddr const* e = NewHandlerVariable(out);
  out->AddLine(kTacStore, gTacZero, nilTacAddr, e);
  out->AddLine(kTacHandleException, e, nilTacAddr, nilTacAddr);
  if (code && code->Code()) out->Append(code);
  TacAddr const* normal = NewLabel();
  EmitBranch(out, kTacIfEQI, e, gTacZero, normal);
  AddIntrinsicCall(out, kIntrinsicRuntimeReraiseException, e);
  out->AddLine(kTacUnlock, e, nilTacAddr, nilTacAddr);
  EmitLabel(out, normal);
  return out;
}

SemBase* CompileRaiseException(SemBase* expr) {
  SemBase* code = SemCode::New(IRDataType(), expr ? &expr->Location() : nullptr);
  if (!expr) return code;
  IRDataType type =
      CompileType(SemIdentifier::New(kExceptionClassName))->GetType();
  SemBase* exception = CompileRefAs(expr, type, code);
  AddIntrinsicCall(code, kIntrinsicRuntimeRaiseException,
                   exception->GetAddr());
  return code;
}
