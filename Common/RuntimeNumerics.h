// The numeric functions that generated code calls by name: conversions the
// processor lacks, 64-bit arithmetic on a 32-bit target, Currency
// arithmetic, the math wrappers of the script library, and the random number
// generator.
//
// A 64-bit operand is passed as two 32-bit words, low first, which is how
// the C calling convention passes `long long`; 64-bit results come back in
// EDX:EAX, Double results in ST0. A Single argument is pushed as 4 bytes.
//
// Currency is a signed 64-bit integer scaled by 10000: 12345 is 1.2345.
//
// Integer division and remainder never fault: a divisor of 0 gives 0, and
// the one overflowing signed quotient (the lowest value divided by -1) wraps.
// A Double that does not fit the 64-bit integer it is converted to (NaN,
// infinities, magnitudes of 2^63 and more) gives the lowest 64-bit value,
// the processor's "integer indefinite"; for 32-bit targets of SInt32
// conversions, the lowest 32-bit value likewise.
#ifndef COMMON_RUNTIMENUMERICS_H
#define COMMON_RUNTIMENUMERICS_H

extern "C" {

// ---- integer and floating-point conversions

double RuntimeCvtSInt32ToReal64(long value);
double RuntimeCvtUInt32ToReal64(unsigned long value);
double RuntimeCvtSInt64ToReal64(long long value);
// Correctly rounded, also with the top bit set.
double RuntimeCvtUInt64ToReal64(unsigned long long value);
// Truncate toward zero.
long RuntimeCvtReal32ToSInt32(float value);
long RuntimeCvtReal64ToSInt32(double value);
// Truncate toward zero to 64 bits, keep the low 32: -1.0 gives 0xFFFFFFFF.
unsigned long RuntimeCvtReal32ToUInt32(float value);
unsigned long RuntimeCvtReal64ToUInt32(double value);
long long RuntimeCvtReal32ToSInt64(float value);
long long RuntimeCvtReal64ToSInt64(double value);
// Values from 2^63 up to 2^64 convert exactly; negative values wrap.
unsigned long long RuntimeCvtReal32ToUInt64(float value);
unsigned long long RuntimeCvtReal64ToUInt64(double value);

// ---- Currency conversions

// Times 10000 in 64 bits, wrapping.
long long RuntimeCvtSInt32ToCurrency(long value);
long long RuntimeCvtUInt32ToCurrency(unsigned long value);
long long RuntimeCvtSInt64ToCurrency(long long value);
long long RuntimeCvtUInt64ToCurrency(unsigned long long value);
// Rounded to four places, halves away from zero.
long long RuntimeCvtReal32ToCurrency(float value);
long long RuntimeCvtReal64ToCurrency(double value);
// Whole units, truncated toward zero; the narrow forms keep the low bits.
long RuntimeCvtCurrencyToSInt32(long long value);
unsigned long RuntimeCvtCurrencyToUInt32(long long value);
long long RuntimeCvtCurrencyToSInt64(long long value);
unsigned long long RuntimeCvtCurrencyToUInt64(long long value);
double RuntimeCvtCurrencyToReal64(long long value);

// ---- 64-bit arithmetic

// The low 64 bits of the product; one body serves both signednesses.
long long RuntimeMulSInt64(long long a, long long b);
unsigned long long RuntimeMulUInt64(unsigned long long a,
                                    unsigned long long b);
// Truncating division and its remainder (which takes the dividend's sign).
long long RuntimeDivSInt64(long long a, long long b);
long long RuntimeModSInt64(long long a, long long b);
unsigned long long RuntimeDivUInt64(unsigned long long a,
                                    unsigned long long b);
unsigned long long RuntimeModUInt64(unsigned long long a,
                                    unsigned long long b);
// Only the low 6 bits of the count matter: a count of 64 shifts by 0.
long long RuntimeShiftLeftInt64(long long value, long count);
// Arithmetic: the sign bit comes in from the left.
long long RuntimeShiftRightInt64(long long value, long count);
unsigned long long BitwiseAnd(unsigned long long a, unsigned long long b);
unsigned long long BitwiseOr(unsigned long long a, unsigned long long b);
unsigned long long BitwiseXor(unsigned long long a, unsigned long long b);

// ---- Currency arithmetic (addition and subtraction are plain 64-bit)

// The product wraps in 64 bits before it is scaled back down, so products
// beyond 2^63 come out wrong; that is the type's behaviour.
long long RuntimeMulCurrency(long long a, long long b);
// The quotient is truncated to whole units before it is scaled: 7.5 / 2
// gives 3. A divisor of 0 gives 0.
long long RuntimeDivCurrency(long long a, long long b);

// ---- math wrappers of the script library

// NaN outside -1..1 (a NaN argument included), without touching errno.
double RuntimeACos(double x);
double RuntimeASin(double x);
double RuntimeATan(double x);
double RuntimeATan2(double a, double b);
double RuntimeCos(double x);
double RuntimeSin(double x);
double RuntimeTan(double x);
double RuntimeExp(double x);
double RuntimeLog(double x);
double RuntimePow(double a, double b);
double RuntimeSqrt(double x);
double RuntimeCeil(double x);
double RuntimeFloor(double x);
// Halves away from zero.
double RuntimeRound(double x);
// Only values below 0 lose their sign: -0.0 and NaN pass unchanged.
double RuntimeAbs(double x);
// -1, 1, or 0 for zero and NaN. The script declares Sign to return a
// Double, and compiled code reads the result from ST0, so it is one.
double RuntimeSign(double x);

// ---- random numbers

// One step of the generator: the new state, masked to 31 bits.
long rndNum();
// Twenty random bits in [0, 1); the first call of an unseeded generator
// seeds it from the clock.
double rnd();
// Seeds the generator with the value truncated to Int32 and returns the
// previous state. A seed of 0 makes the next rnd() seed from the clock.
double srnd(double seed);

}  // extern "C"

// The quiet NaN the math wrappers give outside their domain.
double NaN();

#endif
