// Truncation of floating-point values to integers with every input defined.
// A C conversion of a value that does not fit is undefined; the processor's
// own conversion gives the lowest value of the target ("integer
// indefinite"), and these helpers give that same value on purpose.
#ifndef COMMON_RUNTIMENUMERICSTRUNCATION_H
#define COMMON_RUNTIMENUMERICSTRUNCATION_H

namespace numerics {

const double kTwoTo63 = 9223372036854775808.0;
const double kTwoTo31 = 2147483648.0;
const long long kLowestSInt64 = -0x7FFFFFFFFFFFFFFFLL - 1;
const long kLowestSInt32 = -0x7FFFFFFFL - 1;

// Toward zero; NaN, infinities and magnitudes past the range give the lowest
// value.
inline long long TruncateToSInt64(double value) {
  if (!(value >= -kTwoTo63 && value < kTwoTo63)) return kLowestSInt64;
  return static_cast<long long>(value);
}

// Toward zero; values outside -2^31..2^31 (exclusive) give the lowest value.
inline long TruncateToSInt32(double value) {
  if (!(value > -kTwoTo31 - 1 && value < kTwoTo31)) return kLowestSInt32;
  return static_cast<long>(value);
}

// Two's-complement wrapping without signed overflow.
inline long long WrapToSInt64(unsigned long long bits) {
  return static_cast<long long>(bits);
}

}  // namespace numerics

#endif
