// For and For Each: the counting loop with its run-time direction test,
// and the walk over a one-dimensional array.
#include "Compiler/Frontend/Expressions.h"
#include "Compiler/Frontend/FlowControlStructures.h"
#include "Compiler/Frontend/FlowControlSupport.h"
#include "Compiler/Frontend/Namespaces.h"
#include "Compiler/Frontend/ParserError.h"
#include "Compiler/Frontend/Arrays.h"
#include "Compiler/Frontend/ProgramAssembly.h"
#include "Compiler/Frontend/SrcContext.h"
#include "Compiler/Frontend/SymbolUtilities.h"
#include "Compiler/Frontend/TypeConversions.h"
#include "Compiler/SemBase.h"
#include "Universal/Assertion.h"

namespace {

BlockContextList& Blocks() {
  QASSERT(gContext);
  return gContext->blocks;
}

// Each use of the loop variable is a lookup of its own: the name may be a
// property whose getter runs every time.
SemBase* ReadCounter(SemBase* loopVar) {
  SemBase* value =
      CompileLookup(loopVar->Clone(), nullptr, nullptr, kRequireFunctionResult,
                    kErrorUnknownName, false);
  return value ? value : NewStatementCode();
}

SemBase* AssignCounter(SemBase* loopVar, SemBase* value,
                       CompileErrorCode failureCode) {
  return CompileLookup(loopVar->Clone(), nullptr, value,
                       kProhibitFunctionResult, failureCode, false);
}

void AppendIfCode(SemBase* code, SemBase* part) {
  if (part && part->Code()) code->Append(part);
}

// FlattenExpression, except that a value left without a result by an
// earlier error keeps standing for itself.
SemBase* Flatten(SemBase* expr, SemBase* code) {
  TacAddr const* addr = expr->GetAddr();
  if (expr->Code() && (!addr || addr == nilTacAddr)) {
    code->Append(expr);
    return expr;
  }
  return FlattenExpression(expr, code);
}

// A constant step's sign decides the test at compile time.
bool IsNegativeConstant(SemBase* step) {
  IRDataType type = step->GetType();
  IRValue const& value = step->GetValue();
  if (!type.Signed()) return false;
  switch (type.GetMainType()) {
    case kSInt32Type:
      return value.uSInt32 < 0;
    case kSInt64Type:
      return value.uSInt64 < 0;
    case kReal32Type:
      return value.uReal32 < 0.0f;
    case kReal64Type:
      return value.uReal64 < 0.0;
    default:
      QFAIL("unknown numeric constant type");
  }
}

// Leaves the loop when the counter has passed the bound in the step's
// direction. The test's temporaries go right after it.
void AppendBranchOut(SemBase* code, SemBase* test, TacOpcode opcode,
                     TacAddr const* target) {
  SemBase* filtered = FilterTemporaryVariables(test);
  AppendIfCode(code, filtered);
  EmitBranch(code, opcode, test->GetAddr(), gTacFalse, target);
}

void AppendConstantStepTest(SemBase* code, SemBase* current, SemBase* toValue,
                            SemBase* step, TacAddr const* exit) {
  SemBase* test = IsNegativeConstant(step)
                      ? CompileBinop(current, kOpLess, toValue)
                      : CompileBinop(toValue, kOpLess, current);
  AppendBranchOut(code, test, kTacIfNEI, exit);
}

// A variable step: its sign is tested at every iteration. A step of zero
// counts as upward.
void AppendVariableStepTest(SemBase* code, SemBase* current, SemBase* toValue,
                            SemBase* step, TacAddr const* exit) {
  TacAddr const* negative = NewLabel();
  TacAddr const* go = NewLabel();
  SemBase* zero = SemValue::New(gTacZero, nullptr);
  AppendBranchOut(code, CompileBinop(step->Clone(), kOpLess, zero), kTacIfNEI,
                  negative);
  AppendBranchOut(
      code, CompileBinop(current->Clone(), kOpGreater, toValue->Clone()),
      kTacIfEQI, go);
  EmitJump(code, exit);
  EmitLabel(code, negative);
  AppendBranchOut(code,
                  CompileBinop(current->Clone(), kOpLess, toValue->Clone()),
                  kTacIfNEI, exit);
  EmitLabel(code, go);
}

// current + step back into the counter, then round again.
SemBase* CounterStep(SemBase* loopVar, SemBase* step, TacAddr const* top,
                     TacAddr const* exit) {
  SemBase* tail = NewStatementCode();
  SemBase* sum = CompileBinop(ReadCounter(loopVar), kOpAdd, step);
  AppendIfCode(tail, AssignCounter(loopVar, sum, kErrorUnknownName));
  EmitJump(tail, top);
  EmitLabel(tail, exit);
  return CompileDebugEntry(tail);
}

}  // namespace

SemBase* CompileForLoop(SemBase* loopVar, SemBase* initial) {
  QASSERT(loopVar);
  Blocks().Enter(BlockContext::kFor, loopVar);
  SemBase* code = AssignCounter(loopVar, initial, kErrorUnknownName);
  if (!code || !code->Code()) code = NewStatementCode();
  return CompileDebugEntry(code);
}

// The bound and a variable step are evaluated again before each iteration;
// the test comes before the first one.
SemBase* CompileNext(SemBase* loopVar, SemBase* code, bool downTo,
                     SemBase* toValue, SemBase* step, SemBase* body,
                     SemBase* nextVar) {
  QASSERT(loopVar);
  if (!code) code = NewStatementCode();
  TacAddr const* top = NewLabel();
  TacAddr const* exit = Blocks().FindExitAddr(BlockContext::kFor, loopVar);
  MatchLoopCounters(nextVar, loopVar);
  if (!step) step = SemValue::New(gTacOne, nullptr);
  if (downTo) step = CompileNegation(step);
  if (!toValue) toValue = SemValue::New(gTacZero, nullptr);
  EmitLabel(code, top);
  SemBase* current = ReadCounter(loopVar);
  if (step->IsConstant()) {
    AppendConstantStepTest(code, current, toValue, step, exit);
  } else {
    step = Flatten(step, code);
    current = Flatten(current, code);
    toValue = Flatten(toValue, code);
    AppendVariableStepTest(code, current, toValue, step, exit);
  }
  GenerateLoopBody(code, body,
                   Blocks().FindContinueAddr(BlockContext::kFor, loopVar));
  code->Append(CounterStep(loopVar, step->Clone(), top, exit));
  Blocks().Leave(BlockContext::kFor);
  return code;
}

// ---------------------------------------------------------------- For Each

namespace {

// The upper bound of dimension 1, read through the array's class record at
// each iteration, so that elements appended in the loop are visited.
void AppendUpperBound(SemBase* code, TacAddr const* array,
                      TacAddr const* bound) {
  TacAddr const* method =
      code->NewTemp(IRDataType(kSInt32Type), nullptr)->GetAddr();
  code->AddLine(kTacPeek, array,
                gContext->GetLiteral(kArrayMethodsOffset, kSInt32Type), method);
  code->AddLine(kTacPeek, method,
                gContext->GetLiteral(kArrayUbound, kSInt32Type), method);
  code->AddLine(kTacPutParam, array, nilTacAddr, nilTacAddr);
  code->AddLine(kTacPutParam, gTacOne, nilTacAddr, nilTacAddr);
  code->AddLine(kTacCallPtr, method, nilTacAddr, bound);
}

// 16 for what is no array, 18 for more than one dimension.
bool IsWalkableArray(SemBase* arrayExpr) {
  IRDataType type = arrayExpr->GetType();
  if (type.GetMainType() == kReferenceType) type = type.AsElement();
  if (!type.IsArray()) {
    Error(kErrorNotAnArrayTarget, arrayExpr->Location());
    return false;
  }
  if (type.GetDimensions() != 1) {
    Error(kErrorWrongDimensionCount, arrayExpr->Location());
    return false;
  }
  return true;
}

}  // namespace

SemBase* CompileForEachLoop(SemBase* loopVar, SemBase* arrayExpr) {
  QASSERT(loopVar);
  Blocks().Enter(BlockContext::kFor, loopVar);
  return CompileDebugEntry(NewStatementCode());
}

// The array is evaluated once; a nil array runs no iteration. The index
// steps before the body, so that Continue needs no step of its own.
SemBase* CompileNextEachLoop(SemBase* loopVar, SemBase* arrayExpr,
                             SemBase* code, SemBase* body, SemBase* nextVar) {
  QASSERT(loopVar);
  if (!code) code = NewStatementCode();
  TacAddr const* top = NewLabel();
  TacAddr const* exit = Blocks().FindExitAddr(BlockContext::kFor, loopVar);
  TacAddr const* next = Blocks().FindContinueAddr(BlockContext::kFor, loopVar);
  Blocks().Leave(BlockContext::kFor);
  TacAddr const* index =
      code->NewTemp(IRDataType(kSInt32Type), nullptr)->GetAddr();
  TacAddr const* bound =
      code->NewTemp(IRDataType(kSInt32Type), nullptr)->GetAddr();
  MatchLoopCounters(nextVar, loopVar);
  if (!arrayExpr || !IsWalkableArray(arrayExpr)) {
    GenerateLoopBody(code, body, next);
    EmitLabel(code, exit);
    return code;
  }
  if (arrayExpr->GetType().GetMainType() == kReferenceType)
    arrayExpr = CompileRefAs(arrayExpr, arrayExpr->GetType().AsElement(), code);
  SemBase* arrayValue = Flatten(arrayExpr, code);
  TacAddr const* array = arrayValue->GetAddr();
  EmitBranch(code, kTacIfEQI, array, gTacZero, exit);
  code->AddLine(kTacStore, gTacZero, nilTacAddr, index);
  EmitLabel(code, top);
  AppendUpperBound(code, array, bound);
  EmitBranch(code, kTacIfLTI, bound, index, exit);
  SemBase* element =
      GetArrayElement(arrayValue->Clone(), SemValue::New(index, nullptr));
  AppendIfCode(code, CompileLookup(loopVar->Clone(), nullptr, element,
                                   kProhibitFunctionResult, kErrorNone, false));
  code->AddLine(kTacAdd, index, gTacOne, index);
  GenerateLoopBody(code, body, next);
  SemBase* tail = NewStatementCode();
  EmitJump(tail, top);
  code->Append(CompileDebugEntry(tail));
  EmitLabel(code, exit);
  return code;
}
