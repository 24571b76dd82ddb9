#include "Compiler/Frontend/ConditionalCompilation.h"

#include "Compiler/Frontend/Lexer.h"
#include "Compiler/Frontend/ParserError.h"
#include "Compiler/Frontend/SrcContext.h"
#include "Compiler/SemBase.h"
#include "Universal/Assertion.h"

namespace {

// A directive's condition must be a constant of some type: 46 when it is
// no constant (an empty "()" gives no value at all), 45 when it has no type.
bool UsableCondition(SemBase* expr) {
  if (!expr) {
    Error(kErrorConditionNotConstant);
    return false;
  }
  if (!expr->IsConstant()) {
    Error(kErrorConditionNotConstant, expr->Location());
    return false;
  }
  if (expr->GetType().GetMainType() == kNoType) {
    Error(kErrorConditionType, expr->Location());
    return false;
  }
  return true;
}

bool IsTrue(SemBase* expr) { return expr->GetValue().uSInt32 != 0; }

SimpleVector<bool>& Taken() { return gContext->mConditionalStack; }

}  // namespace

SemBase* CompileConditionalIfStatement(SemBase* expr, SemBase* then) {
  if (IsAtEndOfLine()) return expr ? expr : SemCode::New(IRDataType(), nullptr);
  if (!UsableCondition(expr) || !IsTrue(expr)) IgnoreRestOfLine();
  return nullptr;
}

// An integer condition is accepted here, though #elseif wants a Boolean.
SemBase* CompileConditionalIf(SemBase* expr, SemBase* statement) {
  QASSERT(gContext);
  if (!expr) return statement ? statement : SemCode::New(IRDataType(), nullptr);
  if (statement) {
    Error(kErrorMissingThen, expr->Location());
    return SemCode::New(IRDataType(), nullptr);
  }
  gContext->mConditionalDepth++;
  if (!UsableCondition(expr)) return nullptr;
  bool value = IsTrue(expr);
  Taken().push_back(value);
  if (!value) SkipConditionallyCompiledLines(false);
  return nullptr;
}

void CompileConditionalElseIf(SemBase* expr) {
  QASSERT(gContext);
  if (gContext->mConditionalDepth == 0 || Taken().size() == 0) {
    Error(kErrorElseWithoutIf);
    return;
  }
  if (!expr || !expr->IsConstant()) {
    Error(kErrorConditionNotConstant);
    return;
  }
  if (expr->GetType().GetMainType() != kBooleanType) {
    Error(kErrorConditionType, expr->Location());
    return;
  }
  bool& taken = Taken()[Taken().size() - 1];
  if (taken) {
    SkipConditionallyCompiledLines(true);
  } else if (IsTrue(expr)) {
    taken = true;
  } else {
    SkipConditionallyCompiledLines(false);
  }
}

// Reached only from a branch that was compiled: the rest is skipped.
void CompileConditionalElse() {
  QASSERT(gContext);
  if (gContext->mConditionalDepth == 0) {
    Error(kErrorElseWithoutIf);
    return;
  }
  SkipConditionallyCompiledLines(false);
}

void CompileConditionalEndIf() {
  QASSERT(gContext);
  unsigned long n = Taken().size();
  if (n) Taken().deleteIdx(n - 1);
  if (gContext->mConditionalDepth > 0)
    gContext->mConditionalDepth--;
  else
    Error(kErrorEndifWithoutIf);
}
