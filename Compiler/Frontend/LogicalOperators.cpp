// And, Or, Xor and Not: bitwise on integers, logical on Booleans, and
// handed over on objects and variants. And and Or short-circuit.
#include "Compiler/Frontend/Expressions.h"
#include "Compiler/Frontend/ParserError.h"
#include "Compiler/Frontend/OperatorOverloading.h"
#include "Compiler/Frontend/VariantType.h"
#include "Compiler/Frontend/SrcContext.h"
#include "Compiler/Frontend/TypeConversions.h"
#include "Compiler/SemBase.h"

namespace {

enum LogicalKind { kAnd, kOr, kXor };

bool IsBooleanConstant(SemBase* value) {
  return value->IsConstant() &&
         StripReference(value->GetType()).GetMainType() == kBooleanType;
}

bool Truth(SemBase* constant) { return constant->GetValue().uSInt32 != 0; }

SemBase* BooleanValue(bool value, SourceLocation const& where) {
  return SemValue::New(value ? gTacTrue : gTacFalse, &where);
}

// `left And right`, `left Or right`: the right operand's code sits behind
// the first test, so it does not run when the left one decides.
SemBase* ShortCircuit(LogicalKind kind, SemBase* left, SemBase* right,
                      SourceLocation const& where) {
  IRDataType boolean(kBooleanType);
  SemBase* code = SemCode::New(boolean, &where);
  TacAddr const* decided = NewLabel();
  TacAddr const* done = NewLabel();
  TacOpcode test = kind == kAnd ? kTacIfEQI : kTacIfNEI;
  TacAddr const* a = CompileRefAs(left, boolean, code)->GetAddr();
  code->AddLine(test, a, gTacFalse, decided);
  TacAddr const* b = CompileRefAs(right, boolean, code)->GetAddr();
  code->AddLine(test, b, gTacFalse, decided);
  TacAddr const* result = code->GetAddr();
  code->AddLine(kTacStore, kind == kAnd ? gTacTrue : gTacFalse, nilTacAddr,
                result);
  code->AddLine(kTacJump, nilTacAddr, nilTacAddr, done);
  code->AddLine(kTacLabel, decided, nilTacAddr, nilTacAddr);
  code->AddLine(kTacStore, kind == kAnd ? gTacFalse : gTacTrue, nilTacAddr,
                result);
  code->AddLine(kTacLabel, done, nilTacAddr, nilTacAddr);
  return code;
}

// Xor evaluates both sides: true when they differ.
SemBase* ExclusiveOr(SemBase* left, SemBase* right,
                     SourceLocation const& where) {
  IRDataType boolean(kBooleanType);
  SemBase* code = SemCode::New(boolean, &where);
  TacAddr const* a = CompileRefAs(left, boolean, code)->GetAddr();
  TacAddr const* b = CompileRefAs(right, boolean, code)->GetAddr();
  TacAddr const* result = code->GetAddr();
  code->AddLine(kTacEQ, a, b, result);
  code->AddLine(kTacEQ, result, gTacFalse, result);
  return code;
}

bool Fold(LogicalKind kind, bool a, bool b) {
  switch (kind) {
    case kAnd: return a && b;
    case kOr: return a || b;
    default: return a != b;
  }
}

// Xor on objects and variants is Or there, by design of those forms.
SemBase* CompileLogical(LogicalKind kind, SemBase* left, SemBase* right) {
  if (SemBase* failed = RequireOperands(left, right, IRDataType(kBooleanType)))
    return failed;
  IRDataType leftType = StripReference(left->GetType());
  IRDataType rightType = StripReference(right->GetType());
  IRDataType common = ComputeCommonType(leftType, rightType);
  if (IsObjectOperation(common, leftType, rightType))
    return kind == kAnd ? ObjectAnd(left, right) : ObjectOr(left, right);
  if (common.GetMainType() == kVariantType)
    return kind == kAnd ? VariantAnd(left, right) : VariantOr(left, right);
  if (common.IsInteger()) {
    TacOpcode op = kind == kAnd ? kTacBitAnd : kind == kOr ? kTacBitOr : kTacBitXor;
    return CompileBitwiseOperation(left, right, op);
  }
  SourceLocation where = left->Location() + right->Location();
  if (IsBooleanConstant(left) && IsBooleanConstant(right))
    return BooleanValue(Fold(kind, Truth(left), Truth(right)), where);
  if (kind == kXor) return ExclusiveOr(left, right, where);
  return ShortCircuit(kind, left, right, where);
}

}  // namespace

SemBase* CompileAnd(SemBase* left, SemBase* right) {
  return CompileLogical(kAnd, left, right);
}

SemBase* CompileOr(SemBase* left, SemBase* right) {
  return CompileLogical(kOr, left, right);
}

SemBase* CompileXor(SemBase* left, SemBase* right) {
  return CompileLogical(kXor, left, right);
}

SemBase* CompileNot(SemBase* operand) {
  if (!operand) {
    Error(kErrorSyntax);
    return SemCode::New(IRDataType(kBooleanType), nullptr);
  }
  operand = RequireOperand(operand);
  if (IsErrorValue(operand)) return operand;
  IRDataType type = StripReference(operand->GetType());
  if (type.GetMainType() == kObjectType) return ObjectNot(operand);
  if (type.GetMainType() == kVariantType) return VariantNot(operand);
  if (type.IsInteger()) return CompileBitwiseNot(operand);
  if (IsBooleanConstant(operand))
    return BooleanValue(!Truth(operand), operand->Location());
  IRDataType boolean(kBooleanType);
  SemBase* code = SemCode::New(boolean, &operand->Location());
  TacAddr const* a = CompileRefAs(operand, boolean, code)->GetAddr();
  code->AddLine(kTacEQ, a, gTacFalse, code->GetAddr());
  return code;
}
