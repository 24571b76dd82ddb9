#include "Compiler/Frontend/ObjectComparisons.h"

#include "Compiler/Frontend/Classes.h"
#include "Compiler/Frontend/Expressions.h"
#include "Compiler/Frontend/FunctionCalls.h"
#include "Compiler/Frontend/NilChecks.h"
#include "Compiler/Frontend/OperatorOverloading.h"
#include "Compiler/Frontend/OverloadResolution.h"
#include "Compiler/Frontend/SrcContext.h"
#include "Compiler/Frontend/SymbolUtilities.h"
#include "Compiler/Frontend/TypeConversions.h"
#include "Compiler/SemBase.h"
#include "Compiler/SymbolTable/GlobalSymbolTable.h"
#include "Universal/Assertion.h"

namespace {

char const* const kCompareName = "Operator_Compare";

// The Operator_Compare of `base`'s class that takes `arg`, or null.
MethodSymbol* LookupCompareMethod(SemBase* base, SemBase* arg) {
  return LookupOperatorMethod(base, string(kCompareName), arg);
}

// `a op b` as one line; > and >= are < and <= with the operands swapped.
void CompareLine(SemBase* code, unsigned long op, TacAddr const* a,
                 TacAddr const* b) {
  TacAddr const* result = code->GetAddr();
  switch (op) {
    case kOpEqual: code->AddLine(kTacEQ, a, b, result); break;
    case kOpNotEqual: code->AddLine(kTacNE, a, b, result); break;
    case kOpLess: code->AddLine(kTacLT, a, b, result); break;
    case kOpLessEqual: code->AddLine(kTacLE, a, b, result); break;
    case kOpGreater: code->AddLine(kTacLT, b, a, result); break;
    case kOpGreaterEqual: code->AddLine(kTacLE, b, a, result); break;
    default: QFAIL("no comparison");
  }
}

unsigned long Mirrored(unsigned long op) {
  switch (op) {
    case kOpLess: return kOpGreater;
    case kOpGreater: return kOpLess;
    case kOpLessEqual: return kOpGreaterEqual;
    case kOpGreaterEqual: return kOpLessEqual;
    default: return op;
  }
}

bool IsReferenceOrNil(IRDataType const& type) {
  SimpleDataType main = type.GetMainType();
  return main == kObjectType || main == kNilType || main == kVariantType;
}

// `self.Operator_Compare(other) op 0`. An equality test against Nil or an
// object must not call the method on a nil `self`: the references decide.
void CompareThrough(MethodSymbol* method, SemBase* self, SemBase* other,
                    unsigned long op, SemBase* code) {
  bool guard = (op == kOpEqual || op == kOpNotEqual) &&
               IsReferenceOrNil(other->GetType());
  TacAddr const* called = NewLabel();
  TacAddr const* done = NewLabel();
  if (guard) {
    code->AddLine(kTacIfNEI, self->GetAddr(), gTacZero, called);
    CompareLine(code, op, gTacZero, other->GetAddr());
    code->AddLine(kTacJump, nilTacAddr, nilTacAddr, done);
    code->AddLine(kTacLabel, called, nilTacAddr, nilTacAddr);
  }
  SemBase* call = CompileCall(method, CheckForNilObject(self), other);
  QASSERT_TEXT(call, "callCustomOperator");
  bool integral = method->GetReturnType().GetMainType() == kSInt32Type;
  SemBase* value = integral ? FlattenExpression(call, code)
                            : CompileRefAs(call, IRDataType(kReal64Type), code);
  CompareLine(code, op, value->GetAddr(), integral ? gTacZero : gTacFloatZero);
  if (guard) code->AddLine(kTacLabel, done, nilTacAddr, nilTacAddr);
}

SemBase* Flat(SemBase* operand, SemBase* code) {
  return CompileRefAs(operand, StripReference(operand->GetType()), code);
}

}  // namespace

bool IsComparisonOperator(unsigned long op) {
  return op == kOpLess || op == kOpGreater || op == kOpEqual ||
         op == kOpNotEqual || op == kOpLessEqual || op == kOpGreaterEqual;
}

SemBase* ObjectComparison(SemBase* left, unsigned long op, SemBase* right) {
  SourceLocation where = left->Location() + right->Location();
  SemBase* code = SemCode::New(IRDataType(kBooleanType), &where);
  if (IsNullType(left->GetType()) || IsNullType(right->GetType())) return code;
  left = Flat(left, code);
  right = Flat(right, code);
  if (MethodSymbol* method = LookupCompareMethod(left, right)) {
    CompareThrough(method, left, right, op, code);
  } else if (MethodSymbol* method = LookupCompareMethod(right, left)) {
    CompareThrough(method, right, left, Mirrored(op), code);
  } else if (IsReferenceOrNil(left->GetType()) &&
             IsReferenceOrNil(right->GetType())) {
    CompareLine(code, op, left->GetAddr(), right->GetAddr());
  } else {
    Error(kErrorBadOperand, where);
  }
  return code;
}
