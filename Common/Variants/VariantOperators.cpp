// Arithmetic, logic and comparison between two variants.
//
// The rules:
//   - Two strings add by concatenation and compare as text, without regard
//     to case. Otherwise a string counts as the number at its start.
//   - Nil counts as the Int32 0 in arithmetic; in comparisons it is equal
//     only to nil, and less than every other value.
//   - The result takes the widest of the operands' number types, in the
//     order Int32 (also Boolean and Color) < Int64 (also UInt32 and UInt64)
//     < Currency < Double (also Single and strings). `/` and `^` always give
//     a Double; `\` and Mod an Int32 or an Int64, truncating reals. Integer
//     results wrap, and integer division by zero gives 0.
//   - And, Or and Not on Booleans give a Boolean; on anything else they work
//     on the bits of the integer values.
//   - Objects compare by identity (and order by address); an object in
//     arithmetic, or compared with a value that is not one, is a
//     TypeMismatchException.
#include "Common/ObjectModel/RuntimeExceptionFoundation.h"
#include "Common/RuntimeNumerics.h"
#include "Common/Variants/VariantValues.h"

using namespace variants;

namespace {

enum Rank { kRankInt32, kRankInt64, kRankCurrency, kRankDouble };

enum Operation {
  kAdd,
  kSubtract,
  kMultiply,
  kDivide,
  kIntegerDivide,
  kModulo,
  kPower,
  kAnd,
  kOr
};

Rank RankOf(VariantKind kind) {
  switch (kind) {
    case kKindUInt32:
    case kKindInt64:
    case kKindUInt64: return kRankInt64;
    case kKindCurrency: return kRankCurrency;
    case kKindSingle:
    case kKindDouble:
    case kKindString: return kRankDouble;
    default: return kRankInt32;
  }
}

// Both values as numbers; false, after the raise, when one is an object.
bool ReadOperands(VariantView const& a, VariantView const& b, VariantNumber* x,
                  VariantNumber* y) {
  bool readable = ReadNumber(a, x);
  readable = ReadNumber(b, y) && readable;
  if (!readable) RaiseTypeMismatchException();
  return readable;
}

// Unsigned arithmetic wraps where the signed kind would overflow.
int32_t Whole32(Operation op, int32_t a, int32_t b) {
  uint32_t ua = static_cast<uint32_t>(a), ub = static_cast<uint32_t>(b);
  switch (op) {
    case kAdd: return static_cast<int32_t>(ua + ub);
    case kSubtract: return static_cast<int32_t>(ua - ub);
    case kMultiply: return static_cast<int32_t>(ua * ub);
    case kAnd: return a & b;
    case kOr: return a | b;
    default: break;
  }
  // The lowest value divided by -1 wraps back to itself, with remainder 0.
  if (b == 0) return 0;
  if (b == -1) return op == kModulo ? 0 : static_cast<int32_t>(0 - ua);
  return op == kModulo ? a % b : a / b;
}

int64_t Whole64(Operation op, int64_t a, int64_t b) {
  uint64_t ua = static_cast<uint64_t>(a), ub = static_cast<uint64_t>(b);
  switch (op) {
    case kAdd: return static_cast<int64_t>(ua + ub);
    case kSubtract: return static_cast<int64_t>(ua - ub);
    case kMultiply: return static_cast<int64_t>(ua * ub);
    case kIntegerDivide: return RuntimeDivSInt64(a, b);
    case kModulo: return RuntimeModSInt64(a, b);
    case kAnd: return a & b;
    default: return a | b;
  }
}

int64_t CurrencyOf(Operation op, int64_t a, int64_t b) {
  switch (op) {
    case kAdd: return a + b;
    case kSubtract: return a - b;
    default: return RuntimeMulCurrency(a, b);
  }
}

double RealOf(Operation op, double a, double b) {
  switch (op) {
    case kAdd: return a + b;
    case kSubtract: return a - b;
    case kMultiply: return a * b;
    case kDivide: return a / b;
    default: return RuntimePow(a, b);
  }
}

Rank Widest(VariantView const& a, VariantView const& b) {
  return RankOf(a.kind) > RankOf(b.kind) ? RankOf(a.kind) : RankOf(b.kind);
}

Rank ResultRank(Operation op, VariantView const& a, VariantView const& b) {
  Rank widest = Widest(a, b);
  switch (op) {
    case kDivide:
    case kPower: return kRankDouble;
    case kIntegerDivide:
    case kModulo:
    case kAnd:
    case kOr: return widest == kRankInt32 ? kRankInt32 : kRankInt64;
    default: return widest;
  }
}

RuntimeObject* Arithmetic(Operation op, RuntimeObject* a, RuntimeObject* b) {
  VariantView left = ViewVariant(a), right = ViewVariant(b);
  VariantNumber x, y;
  if (!ReadOperands(left, right, &x, &y)) return nullptr;
  switch (ResultRank(op, left, right)) {
    case kRankInt32:
      return Int32ToVariant(Whole32(op, NumberToInt32(x), NumberToInt32(y)));
    case kRankInt64:
      return Int64ToVariant(Whole64(op, NumberToInt64(x), NumberToInt64(y)));
    case kRankCurrency:
      return CurrencyToVariant(
          CurrencyOf(op, NumberToCurrency(x), NumberToCurrency(y)));
    default:
      return DoubleToVariant(RealOf(op, NumberToDouble(x), NumberToDouble(y)));
  }
}

RuntimeObject* Logic(Operation op, RuntimeObject* a, RuntimeObject* b) {
  VariantView left = ViewVariant(a), right = ViewVariant(b);
  if (left.kind == kKindBoolean && right.kind == kKindBoolean) {
    uint32_t x = left.data.words[0], y = right.data.words[0];
    return BooleanToVariant(op == kAnd ? x && y : x || y);
  }
  return Arithmetic(op, a, b);
}

template <typename T>
int ThreeWay(T a, T b) {
  return a < b ? -1 : a > b ? 1 : 0;
}

// Two whole numbers, either of them possibly unsigned: a negative signed
// value is below every unsigned one; otherwise the bits order them.
int CompareWhole(VariantNumber const& x, VariantNumber const& y) {
  bool xNegative = x.form == kSignedNumber && x.whole < 0;
  bool yNegative = y.form == kSignedNumber && y.whole < 0;
  if (xNegative != yNegative) return xNegative ? -1 : 1;
  return ThreeWay(static_cast<uint64_t>(x.whole),
                  static_cast<uint64_t>(y.whole));
}

// Unordered reals (a NaN) compare as different.
int CompareReal(double x, double y) {
  if (x == y) return 0;
  return x < y ? -1 : 1;
}

int CompareNumbers(VariantView const& a, VariantView const& b) {
  VariantNumber x, y;
  ReadNumber(a, &x);
  ReadNumber(b, &y);
  if (Widest(a, b) <= kRankInt64) return CompareWhole(x, y);
  if (x.form == kCurrencyNumber && y.form == kCurrencyNumber)
    return ThreeWay(x.whole, y.whole);
  return CompareReal(NumberToDouble(x), NumberToDouble(y));
}

}  // namespace

int32_t VariantCompare(RuntimeObject* a, RuntimeObject* b) {
  if (a == b) return 0;
  if (!a || !b) return a ? 1 : -1;
  VariantView left = ViewVariant(a), right = ViewVariant(b);
  if (left.kind == kKindObject && right.kind == kKindObject)
    return ThreeWay(reinterpret_cast<uintptr_t>(a),
                    reinterpret_cast<uintptr_t>(b));
  if (left.kind == kKindObject || right.kind == kKindObject) {
    RaiseTypeMismatchException();
    return 1;
  }
  if (left.kind == kKindString && right.kind == kKindString)
    return string(StringOf(left.data)).Compare(string(StringOf(right.data)));
  return CompareNumbers(left, right);
}

RuntimeObject* VariantAdd(RuntimeObject* a, RuntimeObject* b) {
  VariantView left = ViewVariant(a), right = ViewVariant(b);
  if (left.kind != kKindString || right.kind != kKindString)
    return Arithmetic(kAdd, a, b);
  string sum;
  sum.AdoptReference(
      ConcatenateStorages(StringOf(left.data), StringOf(right.data)));
  return StringToVariant(sum.GetStringStorage());
}

RuntimeObject* VariantSubtract(RuntimeObject* a, RuntimeObject* b) {
  return Arithmetic(kSubtract, a, b);
}

RuntimeObject* VariantMultiply(RuntimeObject* a, RuntimeObject* b) {
  return Arithmetic(kMultiply, a, b);
}

RuntimeObject* VariantDivide(RuntimeObject* a, RuntimeObject* b) {
  return Arithmetic(kDivide, a, b);
}

RuntimeObject* VariantIntegerDivide(RuntimeObject* a, RuntimeObject* b) {
  return Arithmetic(kIntegerDivide, a, b);
}

RuntimeObject* VariantModulo(RuntimeObject* a, RuntimeObject* b) {
  return Arithmetic(kModulo, a, b);
}

RuntimeObject* VariantPower(RuntimeObject* a, RuntimeObject* b) {
  return Arithmetic(kPower, a, b);
}

RuntimeObject* VariantAnd(RuntimeObject* a, RuntimeObject* b) {
  return Logic(kAnd, a, b);
}

RuntimeObject* VariantOr(RuntimeObject* a, RuntimeObject* b) {
  return Logic(kOr, a, b);
}

// Booleans flip; other values flip their integer bits.
RuntimeObject* VariantNot(RuntimeObject* a) {
  VariantView view = ViewVariant(a);
  VariantNumber n;
  if (view.kind == kKindBoolean) return BooleanToVariant(!view.data.words[0]);
  if (!ReadNumber(view, &n)) {
    RaiseTypeMismatchException();
    return nullptr;
  }
  if (RankOf(view.kind) == kRankInt64) return Int64ToVariant(~NumberToInt64(n));
  return Int32ToVariant(~NumberToInt32(n));
}

// The value's own type where it has a negative, a Double for text.
RuntimeObject* VariantNegate(RuntimeObject* a) {
  VariantView view = ViewVariant(a);
  VariantNumber n;
  if (!ReadNumber(view, &n)) {
    RaiseTypeMismatchException();
    return nullptr;
  }
  if (view.kind == kKindSingle) return SingleToVariant(-SingleOf(view.data));
  switch (RankOf(view.kind)) {
    case kRankInt32:
      return Int32ToVariant(Whole32(kSubtract, 0, NumberToInt32(n)));
    case kRankInt64:
      return Int64ToVariant(Whole64(kSubtract, 0, NumberToInt64(n)));
    case kRankCurrency:
      return CurrencyToVariant(Whole64(kSubtract, 0, n.whole));
    default: return DoubleToVariant(-NumberToDouble(n));
  }
}
