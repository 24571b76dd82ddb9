// 64-bit integer arithmetic for a 32-bit target, and Currency products and
// quotients. Everything wraps in two's complement; nothing here faults.
#include "Common/RuntimeNumerics.h"
#include "Common/RuntimeNumericsTruncation.h"

using numerics::WrapToSInt64;

namespace {

const long long kCurrencyScale = 10000;

unsigned long long Bits(long long value) {
  return static_cast<unsigned long long>(value);
}

unsigned long long LowProduct(unsigned long long a, unsigned long long b) {
  return a * b;
}

// The lowest value divided by -1 would overflow (and fault in hardware): its
// quotient wraps to itself, its remainder is 0. A divisor of 0 gives 0.
bool QuotientIsSpecial(long long a, long long b) {
  return b == 0 || (b == -1 && a == numerics::kLowestSInt64);
}

long long SignedQuotient(long long a, long long b) {
  if (QuotientIsSpecial(a, b)) return b == 0 ? 0 : a;
  return a / b;
}

long long SignedRemainder(long long a, long long b) {
  if (QuotientIsSpecial(a, b)) return 0;
  return a % b;
}

int ShiftCount(long count) { return static_cast<int>(count & 63); }

}  // namespace

long long RuntimeMulSInt64(long long a, long long b) {
  return WrapToSInt64(LowProduct(Bits(a), Bits(b)));
}

unsigned long long RuntimeMulUInt64(unsigned long long a,
                                    unsigned long long b) {
  return LowProduct(a, b);
}

long long RuntimeDivSInt64(long long a, long long b) {
  return SignedQuotient(a, b);
}

long long RuntimeModSInt64(long long a, long long b) {
  return SignedRemainder(a, b);
}

unsigned long long RuntimeDivUInt64(unsigned long long a,
                                    unsigned long long b) {
  return b == 0 ? 0 : a / b;
}

unsigned long long RuntimeModUInt64(unsigned long long a,
                                    unsigned long long b) {
  return b == 0 ? 0 : a % b;
}

long long RuntimeShiftLeftInt64(long long value, long count) {
  return WrapToSInt64(Bits(value) << ShiftCount(count));
}

// Right shifts of negative values are arithmetic in this compiler, which
// is what the language asks for.
long long RuntimeShiftRightInt64(long long value, long count) {
  return value >> ShiftCount(count);
}

unsigned long long BitwiseAnd(unsigned long long a, unsigned long long b) {
  return a & b;
}

unsigned long long BitwiseOr(unsigned long long a, unsigned long long b) {
  return a | b;
}

unsigned long long BitwiseXor(unsigned long long a, unsigned long long b) {
  return a ^ b;
}

long long RuntimeMulCurrency(long long a, long long b) {
  return WrapToSInt64(LowProduct(Bits(a), Bits(b))) / kCurrencyScale;
}

// Divide first, scale second: the quotient loses its fraction on purpose.
long long RuntimeDivCurrency(long long a, long long b) {
  return WrapToSInt64(LowProduct(Bits(SignedQuotient(a, b)), kCurrencyScale));
}
