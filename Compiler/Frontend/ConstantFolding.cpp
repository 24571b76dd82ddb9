#include "Compiler/Frontend/ConstantFolding.h"

#include <math.h>
#include <stdint.h>

#include "Compiler/Frontend/Expressions.h"
#include "Compiler/Frontend/ParserError.h"
#include "Compiler/Frontend/TacLiteralPool.h"
#include "Compiler/Frontend/Lexer.h"
#include "Compiler/SemBase.h"
#include "Universal/Assertion.h"

long TruncateToInt32(double value) {
  if (!(value > -2147483649.0 && value < 2147483648.0)) return INT32_MIN;
  return long(value);
}

namespace {

long long TruncateToInt64(double value) {
  if (!(value >= -9223372036854775808.0 && value < 9223372036854775808.0))
    return INT64_MIN;
  return (long long)value;
}

SemBase* Truth(bool value, SourceLocation const& where) {
  return SemValue::New(value ? gTacTrue : gTacFalse, &where);
}

bool IsComparison(unsigned long op) {
  return op == kOpLess || op == kOpGreater || op == kOpEqual ||
         op == kOpNotEqual || op == kOpLessEqual || op == kOpGreaterEqual;
}

// The six comparisons over any ordered type; false for other operators.
template <typename T>
bool Compare(unsigned long op, T const& a, T const& b) {
  switch (op) {
    case kOpLess: return a < b;
    case kOpGreater: return a > b;
    case kOpEqual: return a == b;
    case kOpNotEqual: return !(a == b);
    case kOpLessEqual: return a <= b;
    case kOpGreaterEqual: return a >= b;
  }
  return false;
}

SemBase* DoubleConstant(double value, SourceLocation const& where) {
  return MakeSemValue<double>(value, IRDataType(kReal64Type), where);
}

// Integer division by zero is defined here, not by the processor: the
// largest value of the dividend's sign.
long long GuardedDivideByZero(long long dividend) {
  return dividend < 0 ? -2147483648LL : 2147483647LL;
}

SemBase* FoldSigned(SemBase* left, unsigned long op, SemBase* right,
                    IRDataType const& common, SourceLocation const& where) {
  long long a = ConvertSemValue<long long>(left);
  long long b = ConvertSemValue<long long>(right);
  if (IsComparison(op)) return Truth(Compare(op, a, b), where);
  unsigned long long ua = a, ub = b;  // wrapping arithmetic, no overflow
  switch (op) {
    case kOpAdd: return MakeSemValue<long long>(ua + ub, common, where);
    case kOpSubtract: return MakeSemValue<long long>(ua - ub, common, where);
    case kOpMultiply: return MakeSemValue<long long>(ua * ub, common, where);
    case kOpIntegerDivide:
      if (b == 0)
        return MakeSemValue<long long>(GuardedDivideByZero(a), common, where);
      if (a == INT64_MIN && b == -1) return nullptr;
      return MakeSemValue<long long>(a / b, common, where);
    case kOpModulo:
      if (b == 0 || (a == INT64_MIN && b == -1)) return nullptr;
      return MakeSemValue<long long>(a % b, common, where);
    case kOpDivide: return DoubleConstant(double(a) / double(b), where);
    case kOpPower: return DoubleConstant(pow(double(a), double(b)), where);
  }
  return nullptr;
}

SemBase* FoldUnsigned(SemBase* left, unsigned long op, SemBase* right,
                      IRDataType const& common, SourceLocation const& where) {
  unsigned long long a = ConvertSemValue<unsigned long long>(left);
  unsigned long long b = ConvertSemValue<unsigned long long>(right);
  if (IsComparison(op)) return Truth(Compare(op, a, b), where);
  switch (op) {
    case kOpAdd: return MakeSemValue<unsigned long long>(a + b, common, where);
    case kOpSubtract:
      return MakeSemValue<unsigned long long>(a - b, common, where);
    case kOpMultiply:
      return MakeSemValue<unsigned long long>(a * b, common, where);
    case kOpIntegerDivide:
      if (b == 0)
        return MakeSemValue<long long>(GuardedDivideByZero(0), common, where);
      return MakeSemValue<unsigned long long>(a / b, common, where);
    case kOpModulo:
      if (b == 0) return nullptr;
      return MakeSemValue<unsigned long long>(a % b, common, where);
    case kOpDivide: return DoubleConstant(double(a) / double(b), where);
    case kOpPower: return DoubleConstant(pow(double(a), double(b)), where);
  }
  return nullptr;
}

SemBase* FoldFloat(SemBase* left, unsigned long op, SemBase* right,
                   IRDataType const& common, SourceLocation const& where) {
  double a = ConvertSemValue<double>(left);
  double b = ConvertSemValue<double>(right);
  if (IsComparison(op)) return Truth(Compare(op, a, b), where);
  IRDataType int32(kSInt32Type);
  long ia = TruncateToInt32(a), ib = TruncateToInt32(b);
  switch (op) {
    case kOpAdd: return MakeSemValue<double>(a + b, common, where);
    case kOpSubtract: return MakeSemValue<double>(a - b, common, where);
    case kOpMultiply: return MakeSemValue<double>(a * b, common, where);
    case kOpDivide: return DoubleConstant(a / b, where);
    case kOpPower: return DoubleConstant(pow(a, b), where);
    case kOpIntegerDivide:
      if (ib == 0 || (ia == INT32_MIN && ib == -1)) return nullptr;
      return MakeSemValue<long long>(ia / ib, int32, where);
    case kOpModulo:
      if (ib == 0 || (ia == INT32_MIN && ib == -1)) return nullptr;
      return MakeSemValue<long long>(ia % ib, int32, where);
  }
  return nullptr;
}

SemBase* FoldString(SemBase* left, unsigned long op, SemBase* right,
                    SourceLocation const& where) {
  string const& a = left->GetValue().mString;
  string const& b = right->GetValue().mString;
  if (IsComparison(op)) return Truth(Compare(op, a, b), where);
  if (op != kOpAdd) return nullptr;
  // Every sum made here stays in the literal pool, so a chain of sums
  // would keep each longer prefix: past this length the sum is left to
  // run time.
  const unsigned long kLongestFoldedSum = 8192;
  if (a.Length() + b.Length() > kLongestFoldedSum) return nullptr;
  return SemValue::New(CurrentTLP()->GetLiteral(a + b), &where);
}

// Booleans and colours only tell equal from different.
SemBase* FoldEquality(bool equal, unsigned long op,
                      SourceLocation const& where) {
  if (op == kOpEqual) return Truth(equal, where);
  if (op == kOpNotEqual) return Truth(!equal, where);
  return nullptr;
}

}  // namespace

template <typename T>
T ConvertSemValue(SemBase* constant) {
  QASSERT_TEXT(constant && constant->IsConstant(), "constant");
  IRValue const& v = constant->GetValue();
  SimpleDataType type = constant->GetType().GetMainType();
  switch (type) {
    case kUInt8Type:
    case kUInt16Type:
    case kUInt32Type:
      return T((unsigned long long)(unsigned long)v.uSInt32);
    case kSInt64Type:
      return T(v.uSInt64);
    case kUInt64Type:
    case kCurrencyType:
      return T((unsigned long long)v.uSInt64);
    case kReal32Type:
      return T(v.uReal32);
    case kReal64Type:
      return T(v.uReal64);
    default:
      // Int32, the small signed types, Boolean, Color, and the zero of Nil.
      return T((long long)v.uSInt32);
  }
}

namespace {

// Floating values truncate toward zero when they go to an integer type.
template <typename T>
long long AsInteger(T value) {
  return (long long)value;
}
template <>
long long AsInteger<double>(double value) {
  return TruncateToInt64(value);
}

}  // namespace

template <typename T>
SemBase* MakeSemValue(T value, IRDataType const& type,
                      SourceLocation const& where) {
  IRValue v;
  switch (type.GetMainType()) {
    case kSInt32Type:
    case kUInt32Type:
      v = IRValue::SInt32(long(AsInteger(value)));
      break;
    case kSInt64Type:
    case kUInt64Type:
      v = IRValue::SInt64(AsInteger(value));
      break;
    case kReal32Type:
      v = IRValue::Real32(float(value));
      break;
    case kReal64Type:
      v = IRValue::Real64(double(value));
      break;
    default:
      QFAIL("MakeSemValue of a type without literals");
  }
  return SemValue::New(CurrentTLP()->GetLiteral(v, type), &where);
}

template long long ConvertSemValue<long long>(SemBase*);
template unsigned long long ConvertSemValue<unsigned long long>(SemBase*);
template double ConvertSemValue<double>(SemBase*);
template SemBase* MakeSemValue<long long>(long long, IRDataType const&,
                                          SourceLocation const&);
template SemBase* MakeSemValue<unsigned long long>(unsigned long long,
                                                   IRDataType const&,
                                                   SourceLocation const&);
template SemBase* MakeSemValue<int>(int, IRDataType const&,
                                    SourceLocation const&);
template SemBase* MakeSemValue<double>(double, IRDataType const&,
                                       SourceLocation const&);

SemBase* ConstantBinop(SemBase* left, unsigned long op, SemBase* right,
                       IRDataType const& common, SourceLocation const& where) {
  switch (common.GetMainType()) {
    case kBooleanType:
      return FoldEquality((left->GetValue().uSInt32 != 0) ==
                              (right->GetValue().uSInt32 != 0),
                          op, where);
    case kColorType:
      return FoldEquality(left->GetValue().uSInt32 == right->GetValue().uSInt32,
                          op, where);
    case kSInt32Type:
    case kSInt64Type:
      return FoldSigned(left, op, right, common, where);
    case kUInt32Type:
    case kUInt64Type:
      return FoldUnsigned(left, op, right, common, where);
    case kReal32Type:
    case kReal64Type:
      return FoldFloat(left, op, right, common, where);
    case kStringType:
      if (left->GetType().GetMainType() != kStringType ||
          right->GetType().GetMainType() != kStringType)
        return nullptr;
      return FoldString(left, op, right, where);
    default:
      return nullptr;
  }
}

SemBase* ConstantNegation(SemBase* operand) {
  IRDataType type = operand->GetType();
  SourceLocation const& where = operand->Location();
  IRValue v = operand->GetValue();
  switch (type.GetMainType()) {
    case kSInt32Type:
      v.uSInt32 = long(0UL - (unsigned long)v.uSInt32);
      break;
    case kSInt64Type:
      v.uSInt64 = (long long)(0ULL - (unsigned long long)v.uSInt64);
      break;
    case kReal32Type:
      v.uReal32 = -v.uReal32;
      break;
    case kReal64Type:
      v.uReal64 = -v.uReal64;
      break;
    default:
      Error(kErrorBadOperand, where);
      return operand;
  }
  return SemValue::New(CurrentTLP()->GetLiteral(v, type), &where);
}
