#include "Compiler/Frontend/Expressions.h"

#include "Compiler/Frontend/ConstantFolding.h"
#include "Compiler/Frontend/ParserError.h"
#include "Compiler/Frontend/MethodDelegates.h"
#include "Compiler/Frontend/OperatorOverloading.h"
#include "Compiler/Frontend/StringSums.h"
#include "Compiler/Frontend/VariantType.h"
#include "Compiler/Frontend/TypeConversions.h"
#include "Compiler/Intrinsics.h"
#include "Compiler/SemBase.h"
#include "Universal/Assertion.h"

void ResetReturnTemp(TacAddr const* result, SemBase* code) {
  QASSERT(result);
  QASSERT(code);
  if (result != nilTacAddr && result->mType.RefCounted())
    code->AddLine(kTacUnlock, result, nilTacAddr, nilTacAddr);
}

void ResetReturnTemp(SemBase* result, SemBase* code) {
  QASSERT(result);
  ResetReturnTemp(result->GetAddr(), code);
}

namespace {

// Made on first use and kept for the life of the process, like the other
// shared operands; no line that uses it is ever generated. It is no
// constant, so that a directive or a Const that meets it does not take it
// for a value; its name is one no source can spell.
TacAddr const* ErrorAddr() {
  static TacAddr const* const sErrorAddr = new SymbolAddr(
      kGlobalDataStorage, IRDataType(kVariantType), "% error", 0);
  return sErrorAddr;
}

}  // namespace

SemBase* ErrorValue(SourceLocation const& where) {
  return SemValue::New(ErrorAddr(), &where);
}

bool IsErrorValue(SemBase* value) {
  return value && value->GetAddr() == ErrorAddr();
}

SemBase* RequireOperand(SemBase* op) {
  if (op->GetAddr()) return op;
  Error(op->IsList() ? kErrorBadOperand : kErrorTypeAsValue, op->Location());
  return ErrorValue(op->Location());
}

SemBase* CompileStringLiteral(SemBase* literal) { return literal; }

namespace {

bool IsObjectType(IRDataType const& type) {
  return type.GetMainType() == kObjectType;
}

}  // namespace

SemBase* RequireOperands(SemBase*& left, SemBase*& right,
                         IRDataType const& missingType) {
  if (!left || !right) {
    Error(kErrorSyntax);
    return SemCode::New(missingType, nullptr);
  }
  left = RequireOperand(left);
  right = RequireOperand(right);
  if (IsErrorValue(left)) return left;
  if (IsErrorValue(right)) return right;
  return nullptr;
}

bool IsObjectOperation(IRDataType const& common, IRDataType const& left,
                       IRDataType const& right) {
  return IsObjectType(common) ||
         (IsNullType(common) && (IsObjectType(left) || IsObjectType(right)));
}

namespace {

bool IsComparison(unsigned long op) {
  return op == kOpLess || op == kOpGreater || op == kOpEqual ||
         op == kOpNotEqual || op == kOpLessEqual || op == kOpGreaterEqual;
}

// The type of the result, and the type the operands are brought to, which
// some operators replace.
IRDataType ResultTypeOf(unsigned long op, IRDataType* common) {
  SimpleDataType main = common->GetMainType();
  // Strings have + and the comparisons only: any other operator is one
  // report (compile error 12), not a conversion failure per operand.
  if (main == kStringType)
    return IsComparison(op) ? IRDataType(kBooleanType) : *common;
  if (op == kOpDivide) {
    if (main != kCurrencyType) *common = IRDataType(kReal64Type);
    return *common;
  }
  if (op == kOpIntegerDivide || op == kOpModulo) {
    if (!common->IsInteger()) *common = IRDataType(kSInt32Type);
    return *common;
  }
  if (op == kOpPower) return *common = IRDataType(kReal64Type);
  if (IsComparison(op)) return IRDataType(kBooleanType);
  if (op == kOpSubtract && main == kPtrType) return IRDataType(kSInt32Type);
  return *common;
}

// `>` and `>=` are `<` and `<=` with the operands exchanged.
bool IsSwapped(unsigned long op) {
  return op == kOpGreater || op == kOpGreaterEqual;
}

TacOpcode ComparisonOpcode(unsigned long op) {
  switch (op) {
    case kOpEqual: return kTacEQ;
    case kOpNotEqual: return kTacNE;
    case kOpLess:
    case kOpGreater: return kTacLT;
    default: return kTacLE;
  }
}

// The opcode of `op` in the common type; kTacNoop when the type does not
// have the operator.
TacOpcode ArithmeticOpcode(unsigned long op, IRDataType const& common) {
  SimpleDataType main = common.GetMainType();
  bool integer = common.IsInteger(), floating = common.IsFloat();
  bool currency = main == kCurrencyType, ptr = main == kPtrType;
  bool ordered = integer || floating || currency || ptr;
  if (op == kOpEqual || op == kOpNotEqual) {
    if (ordered || main == kBooleanType || main == kColorType)
      return ComparisonOpcode(op);
    return kTacNoop;
  }
  if (IsComparison(op)) return ordered ? ComparisonOpcode(op) : kTacNoop;
  switch (op) {
    case kOpAdd: return ordered ? kTacAdd : kTacNoop;
    case kOpSubtract: return ordered ? kTacSub : kTacNoop;
    case kOpMultiply: return integer || floating || currency ? kTacMul : kTacNoop;
    case kOpDivide: return floating || currency ? kTacDiv : kTacNoop;
    case kOpIntegerDivide: return integer ? kTacDiv : kTacNoop;
    case kOpModulo: return integer ? kTacMod : kTacNoop;
    case kOpPower: return floating ? kTacPow : kTacNoop;
  }
  return kTacNoop;
}

// Strings concatenate and compare through the runtime; a comparison tests
// the runtime's three-way answer against zero. A sum whose left side is a
// sum itself extends that one.
void CompileStringBinop(SemBase* left, unsigned long op, SemBase* right,
                        SemBase* code, SourceLocation const& where) {
  IRDataType string(kStringType);
  TacAddr const* a = CompileRefAs(left, string, code)->GetAddr();
  if (op == kOpAdd) {
    StringSumLines taken;
    if (TakeLastStringSum(a, code, &taken)) {
      TacAddr const* piece = CompileRefAs(right, string, code)->GetAddr();
      ExtendStringSum(taken, piece, code->GetAddr(), code);
      return;
    }
    SimpleVector<TacAddr const*> pieces = TakeSummedPieces(a, code);
    pieces.push_back(CompileRefAs(right, string, code)->GetAddr());
    AddStringPieces(pieces, code->GetAddr(), code);
    return;
  }
  TacAddr const* b = CompileRefAs(right, string, code)->GetAddr();
  TacAddr const* result = code->GetAddr();
  if (op != kOpAdd && !IsComparison(op)) {
    Error(kErrorBadOperand, where);
    return;
  }
  code->AddLine(kTacPutParam, a, nilTacAddr, nilTacAddr);
  code->AddLine(kTacPutParam, b, nilTacAddr, nilTacAddr);
  TacAddr const* c = code->NewTemp(IRDataType(kSInt32Type), &where)->GetAddr();
  code->AddLine(kTacIntrinsic, IntrinsicTacAddr(kIntrinsicRuntimeStringCompare),
                nilTacAddr, c);
  if (IsSwapped(op))
    code->AddLine(ComparisonOpcode(op), gTacZero, c, result);
  else
    code->AddLine(ComparisonOpcode(op), c, gTacZero, result);
}

// `op` brought to the common type. An integer meets a Ptr as the same 32
// bits, since no conversion makes a Ptr of a number: it is widened to Int32
// and used as it is.
TacAddr const* OperandAs(SemBase* op, IRDataType const& common,
                         SemBase* code) {
  IRDataType type = StripReference(op->GetType());
  if (common.GetMainType() == kPtrType && type.IsInteger())
    return CompileRefAs(op, IRDataType(type.StorageSize() == 4
                                           ? type.GetMainType()
                                           : kSInt32Type),
                        code)->GetAddr();
  return CompileRefAs(op, common, code)->GetAddr();
}

}  // namespace

SemBase* CompileBinop(SemBase* left, unsigned long op, SemBase* right) {
  if (SemBase* failed = RequireOperands(left, right, IRDataType()))
    return failed;
  IRDataType leftType = StripReference(left->GetType());
  IRDataType rightType = StripReference(right->GetType());
  IRDataType common = ComputeCommonType(leftType, rightType);
  if (common.IsDelegate()) return DelegateBinop(left, op, right);
  if (IsObjectOperation(common, leftType, rightType))
    return ObjectBinop(left, op, right);
  if (common.GetMainType() == kVariantType || common.GetMainType() == kNilType)
    return VariantBinop(left, op, right);
  SourceLocation where = left->Location() + right->Location();
  if (IsNullType(common)) {
    TypeMismatchError(where, leftType, rightType);
    return ErrorValue(where);
  }
  if (left->IsConstant() && right->IsConstant()) {
    SemBase* folded = ConstantBinop(left, op, right, common, where);
    if (folded) return folded;
  }
  IRDataType resultType = ResultTypeOf(op, &common);
  SemBase* code = SemCode::New(resultType, &where);
  ResetReturnTemp(code->GetAddr(), code);
  if (common.GetMainType() == kStringType) {
    CompileStringBinop(left, op, right, code, where);
    return code;
  }
  TacOpcode opcode = ArithmeticOpcode(op, common);
  if (opcode == kTacNoop) {
    Error(kErrorBadOperand, where);
    return code;
  }
  // Deliberately, the right operand's code runs first for > and >=.
  SemBase* first = IsSwapped(op) ? right : left;
  SemBase* second = IsSwapped(op) ? left : right;
  TacAddr const* a = OperandAs(first, common, code);
  TacAddr const* b = OperandAs(second, common, code);
  code->AddLine(opcode, a, b, code->GetAddr());
  return code;
}

SemBase* CompileBitwiseOperation(SemBase* left, SemBase* right, TacOpcode op) {
  if (SemBase* failed = RequireOperands(left, right, IRDataType()))
    return failed;
  SourceLocation where = left->Location() + right->Location();
  IRDataType common = ComputeCommonType(StripReference(left->GetType()),
                                        StripReference(right->GetType()));
  SemBase* code = SemCode::New(common, &where);
  TacAddr const* a = CompileRefAs(left, common, code)->GetAddr();
  TacAddr const* b = CompileRefAs(right, common, code)->GetAddr();
  code->AddLine(op, a, b, code->GetAddr());
  return code;
}

SemBase* CompileBitwiseNot(SemBase* operand) {
  operand = RequireOperand(operand);
  if (IsErrorValue(operand)) return operand;
  IRDataType type = StripReference(operand->GetType());
  SourceLocation const& where = operand->Location();
  if (operand->IsConstant()) {
    switch (type.GetMainType()) {
      case kSInt32Type:
      case kSInt64Type:
        return MakeSemValue<long long>(~ConvertSemValue<long long>(operand),
                                       type, where);
      case kUInt32Type:
      case kUInt64Type:
        return MakeSemValue<unsigned long long>(
            ~ConvertSemValue<unsigned long long>(operand), type, where);
      default:
        break;
    }
  }
  SemBase* code = SemCode::New(type, &where);
  if (!type.IsInteger()) {
    Error(kErrorBadOperand, where);
    return code;
  }
  TacAddr const* a = CompileRefAs(operand, type, code)->GetAddr();
  code->AddLine(kTacBitNot, a, nilTacAddr, code->GetAddr());
  return code;
}

namespace {

// Negation gives a signed value: -x of a UInt8 is an Int8.
IRDataType SignedCounterpart(IRDataType const& type) {
  switch (type.GetMainType()) {
    case kUInt8Type: return IRDataType(kSInt8Type);
    case kUInt16Type: return IRDataType(kSInt16Type);
    case kUInt32Type: return IRDataType(kSInt32Type);
    case kUInt64Type: return IRDataType(kSInt64Type);
    default: return type;
  }
}

}  // namespace

SemBase* CompileNegation(SemBase* operand) {
  if (!operand) {
    Error(kErrorSyntax);
    return SemCode::New(IRDataType(), nullptr);
  }
  operand = RequireOperand(operand);
  if (IsErrorValue(operand)) return operand;
  IRDataType type = StripReference(operand->GetType());
  if (IsObjectType(type)) return ObjectNegation(operand);
  if (type.GetMainType() == kVariantType) return VariantNegation(operand);
  if (operand->IsConstant()) return ConstantNegation(operand);
  IRDataType mapped = SignedCounterpart(type);
  SemBase* code = SemCode::New(mapped, &operand->Location());
  if (!mapped.IsNumeric()) Error(kErrorBadOperand, operand->Location());
  TacAddr const* a = CompileRefAs(operand, mapped, code)->GetAddr();
  code->AddLine(kTacNeg, a, nilTacAddr, code->GetAddr());
  return code;
}
