// Conversions between integers, floating point and Currency that the
// processor has no single instruction for in 32-bit code.
#include <math.h>

#include "Common/RuntimeNumerics.h"
#include "Common/RuntimeNumericsTruncation.h"

using numerics::TruncateToSInt32;
using numerics::TruncateToSInt64;
using numerics::WrapToSInt64;

namespace {

const long long kCurrencyScale = 10000;

// Values of 2^63 and above do not fit the signed conversion: they are
// brought below it, converted, and the top bit is put back.
unsigned long long TruncateToUInt64(double value) {
  if (value >= numerics::kTwoTo63)
    return static_cast<unsigned long long>(
               TruncateToSInt64(value - numerics::kTwoTo63)) ^
           0x8000000000000000ULL;
  return static_cast<unsigned long long>(TruncateToSInt64(value));
}

long long ScaleToCurrency(unsigned long long units) {
  return WrapToSInt64(units * kCurrencyScale);
}

long long RoundToCurrency(double value) {
  return TruncateToSInt64(round(value * 10000.0));
}

long long CurrencyUnits(long long value) { return value / kCurrencyScale; }

}  // namespace

double RuntimeCvtSInt32ToReal64(long value) { return value; }

double RuntimeCvtUInt32ToReal64(unsigned long value) {
  return static_cast<double>(static_cast<long long>(value));
}

double RuntimeCvtSInt64ToReal64(long long value) {
  return static_cast<double>(value);
}

// The signed reading is off by exactly 2^64 when the top bit is set; the
// correction is exact in extended precision, so the one rounding is the
// final one to Double.
double RuntimeCvtUInt64ToReal64(unsigned long long value) {
  long double extended = static_cast<long long>(value);
  if (extended < 0) extended += 18446744073709551616.0L;
  return static_cast<double>(extended);
}

long RuntimeCvtReal32ToSInt32(float value) { return TruncateToSInt32(value); }
long RuntimeCvtReal64ToSInt32(double value) { return TruncateToSInt32(value); }

unsigned long RuntimeCvtReal32ToUInt32(float value) {
  return static_cast<unsigned long>(TruncateToSInt64(value));
}

unsigned long RuntimeCvtReal64ToUInt32(double value) {
  return static_cast<unsigned long>(TruncateToSInt64(value));
}

long long RuntimeCvtReal32ToSInt64(float value) {
  return TruncateToSInt64(value);
}

long long RuntimeCvtReal64ToSInt64(double value) {
  return TruncateToSInt64(value);
}

unsigned long long RuntimeCvtReal32ToUInt64(float value) {
  return TruncateToUInt64(value);
}

unsigned long long RuntimeCvtReal64ToUInt64(double value) {
  return TruncateToUInt64(value);
}

long long RuntimeCvtSInt32ToCurrency(long value) {
  return ScaleToCurrency(static_cast<unsigned long long>(value));
}

long long RuntimeCvtUInt32ToCurrency(unsigned long value) {
  return ScaleToCurrency(value);
}

long long RuntimeCvtSInt64ToCurrency(long long value) {
  return ScaleToCurrency(static_cast<unsigned long long>(value));
}

long long RuntimeCvtUInt64ToCurrency(unsigned long long value) {
  return ScaleToCurrency(value);
}

long long RuntimeCvtReal32ToCurrency(float value) {
  return RoundToCurrency(value);
}

long long RuntimeCvtReal64ToCurrency(double value) {
  return RoundToCurrency(value);
}

long RuntimeCvtCurrencyToSInt32(long long value) {
  return static_cast<long>(CurrencyUnits(value));
}

unsigned long RuntimeCvtCurrencyToUInt32(long long value) {
  return static_cast<unsigned long>(CurrencyUnits(value));
}

long long RuntimeCvtCurrencyToSInt64(long long value) {
  return CurrencyUnits(value);
}

unsigned long long RuntimeCvtCurrencyToUInt64(long long value) {
  return static_cast<unsigned long long>(CurrencyUnits(value));
}

double RuntimeCvtCurrencyToReal64(long long value) {
  return static_cast<double>(value) / 10000.0;
}
