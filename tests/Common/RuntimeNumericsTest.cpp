// Conversions, 64-bit and Currency arithmetic, math and random numbers.
#include <gtest/gtest.h>

#include <errno.h>
#include <math.h>
#include <stdint.h>
#include <time.h>

#include "Common/RuntimeNumerics.h"

namespace {

const double kTwo63 = 9223372036854775808.0;
const long long kMin64 = INT64_MIN;
const long kMin32 = INT32_MIN;

TEST(RuntimeNumericConversion, RealToUnsigned) {
  struct { double in; unsigned long long out; } to64[] = {
      {kTwo63, 0x8000000000000000ull}, {kTwo63 + 4096, 0x8000000000001000ull},
      {1.8e19, 18000000000000000000ull}, {kTwo63 - 1024, 0x7FFFFFFFFFFFFC00ull},
      {2.99, 2u}, {-1.0, 0xFFFFFFFFFFFFFFFFull}, {2 * kTwo63, 0u}};
  for (auto& r : to64) EXPECT_EQ(RuntimeCvtReal64ToUInt64(r.in), r.out) << r.in;
  struct { double in; unsigned long out; } to32[] = {
      {-1.0, 0xFFFFFFFFul}, {-2.7, 0xFFFFFFFEul}, {4294967295.9, 0xFFFFFFFFul},
      {4294967296.0 + 5, 5ul}};
  for (auto& r : to32) EXPECT_EQ(RuntimeCvtReal64ToUInt32(r.in), r.out) << r.in;
  EXPECT_EQ(RuntimeCvtReal32ToUInt32(3e9f), 3000000000ul);
}

TEST(RuntimeNumericConversion, RealToSignedTruncatesAndOverflowGivesLowest) {
  struct { double in; long out; } to32[] = {
      {-0.5, 0}, {-2.9, -2}, {-2147483648.9, kMin32}, {2147483647.9, 2147483647},
      {NAN, kMin32}, {3e9, kMin32}};
  for (auto& r : to32) EXPECT_EQ(RuntimeCvtReal64ToSInt32(r.in), r.out) << r.in;
  EXPECT_EQ(RuntimeCvtReal32ToSInt32(-INFINITY), kMin32);
  struct { double in; long long out; } to64[] = {
      {-1e15 - 0.5, -1000000000000000ll}, {-kTwo63, kMin64}, {NAN, kMin64}, {kTwo63, kMin64}};
  for (auto& r : to64) EXPECT_EQ(RuntimeCvtReal64ToSInt64(r.in), r.out) << r.in;
  EXPECT_EQ(RuntimeCvtReal64ToCurrency(1e300), kMin64);
}

TEST(RuntimeNumericConversion, UInt64WithTheTopBitToDoubleRoundsOnce) {
  EXPECT_EQ(RuntimeCvtUInt64ToReal64(0x8000000000000000ull), kTwo63);
  EXPECT_EQ(RuntimeCvtUInt64ToReal64(0xFFFFFFFFFFFFFFFFull), 2 * kTwo63);
  // Rounding the signed reading first would give 2^63.
  EXPECT_EQ(RuntimeCvtUInt64ToReal64(0x8000000000000401ull), kTwo63 + 2048);
}

TEST(RuntimeCurrencyConversion, ScalingRoundingAndTruncation) {
  EXPECT_EQ(RuntimeCvtUInt32ToCurrency(0xFFFFFFFFul), 42949672950000ll);
  EXPECT_EQ(RuntimeCvtUInt64ToCurrency(0xFFFFFFFFFFFFFFFFull), -10000);
  struct { double in; long long out; } fromReal[] = {
      {0.03125, 313}, {-0.03125, -313}, {-0.5, -5000}, {1.2345, 12345}, {0.00004, 0}};
  for (auto& r : fromReal) EXPECT_EQ(RuntimeCvtReal64ToCurrency(r.in), r.out) << r.in;
  EXPECT_EQ(RuntimeCvtCurrencyToSInt32(-15000), -1);
  EXPECT_EQ(RuntimeCvtCurrencyToSInt32(0x100000005ll * 10000), 5);
  EXPECT_EQ(RuntimeCvtCurrencyToUInt32(-10000), 0xFFFFFFFFul);
  EXPECT_EQ(RuntimeCvtCurrencyToUInt64(-10000), 0xFFFFFFFFFFFFFFFFull);
  EXPECT_DOUBLE_EQ(RuntimeCvtCurrencyToReal64(12345), 1.2345);
}

TEST(RuntimeInt64Arithmetic, MultiplyDivideAndShift) {
  EXPECT_EQ(RuntimeMulSInt64(INT64_MAX, 2), -2);
  EXPECT_EQ(RuntimeMulUInt64(0xFFFFFFFFull, 0xFFFFFFFFull), 0xFFFFFFFE00000001ull);
  EXPECT_EQ(RuntimeDivSInt64(-7, 2), -3);
  EXPECT_EQ(RuntimeModSInt64(7, -2), 1);
  EXPECT_EQ(RuntimeDivSInt64(42, 0), 0);
  EXPECT_EQ(RuntimeDivSInt64(kMin64, -1), kMin64) << "wraps";
  EXPECT_EQ(RuntimeModSInt64(kMin64, -1), 0);
  EXPECT_EQ(RuntimeDivUInt64(0xFFFFFFFFFFFFFFFFull, 3), 0x5555555555555555ull);
  EXPECT_EQ(RuntimeDivUInt64(9, 0), 0u);
  long long v = 0x0123456789ABCDEFll;
  EXPECT_EQ(RuntimeShiftLeftInt64(v, 64), v) << "the low six bits of the count";
  EXPECT_EQ(RuntimeShiftLeftInt64(v, 36), static_cast<long long>(0x9ABCDEF000000000ull));
  EXPECT_EQ(RuntimeShiftRightInt64(kMin64, 63), -1) << "arithmetic";
  EXPECT_EQ(RuntimeShiftRightInt64(v, 0x7FFFFFC4), v >> 4);
}


TEST(RuntimeCurrencyAndMath, ArithmeticAndDomainErrors) {
  EXPECT_EQ(RuntimeMulCurrency(25000, 25000), 62500) << "2.5 * 2.5 = 6.25";
  EXPECT_EQ(RuntimeMulCurrency(-1, 5000), 0) << "truncated";
  long long big = 3037000500ll;  // the product wraps before the division
  long long wrapped = static_cast<long long>(static_cast<unsigned long long>(big) * big);
  EXPECT_EQ(RuntimeMulCurrency(big, big), wrapped / 10000);
  EXPECT_EQ(RuntimeDivCurrency(75000, 20000), 30000) << "7.5 / 2 = 3: whole units";
  EXPECT_EQ(RuntimeDivCurrency(-75000, 20000), -30000);
  EXPECT_EQ(RuntimeDivCurrency(100000, 0), 0);
  errno = 0;
  EXPECT_TRUE(isnan(RuntimeACos(1.0000001)));
  EXPECT_EQ(errno, 0) << "no C library error";
  EXPECT_EQ(RuntimeSign(-0.0), 0);
  EXPECT_EQ(RuntimeSign(-1e-300), -1);
}

TEST(RuntimeRandom, SequenceAndSeeds) {
  srnd(1);
  EXPECT_EQ(rndNum(), 16807);
  EXPECT_EQ(rndNum(), 67796602) << "not the textbook quotient 127773";
  srnd(1);
  EXPECT_EQ(rnd(), 16807 / 1048576.0);
  EXPECT_EQ(rnd(), 687738 / 1048576.0) << "the low twenty bits";
  srnd(-1);
  EXPECT_EQ(rndNum(), 2147466840);
  srnd(1e12);
  EXPECT_EQ(srnd(9.9), static_cast<double>(kMin32)) << "seed past Int32";
  EXPECT_EQ(srnd(-3.7), 9) << "truncated";
  EXPECT_EQ(srnd(0), -3);
}

}  // namespace
