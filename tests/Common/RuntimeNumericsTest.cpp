// Conversions, 64-bit and Currency arithmetic, math wrappers and the random
// number generator, called directly as compiled code calls them.
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

TEST(RuntimeNumericConversion, RealToUInt64AtAndAboveTwoTo63) {
  EXPECT_EQ(RuntimeCvtReal64ToUInt64(kTwo63), 0x8000000000000000ull);
  EXPECT_EQ(RuntimeCvtReal64ToUInt64(kTwo63 + 4096), 0x8000000000001000ull);
  EXPECT_EQ(RuntimeCvtReal64ToUInt64(1.8e19), 18000000000000000000ull);
  EXPECT_EQ(RuntimeCvtReal32ToUInt64(static_cast<float>(kTwo63)),
            0x8000000000000000ull);
  EXPECT_EQ(RuntimeCvtReal64ToUInt64(kTwo63 - 1024), 0x7FFFFFFFFFFFFC00ull);
  EXPECT_EQ(RuntimeCvtReal64ToUInt64(2.99), 2u);
  EXPECT_EQ(RuntimeCvtReal64ToUInt64(-1.0), 0xFFFFFFFFFFFFFFFFull)
      << "negative values wrap";
}

TEST(RuntimeNumericConversion, RealToUInt32KeepsTheLow32BitsOf64) {
  EXPECT_EQ(RuntimeCvtReal64ToUInt32(-1.0), 0xFFFFFFFFul);
  EXPECT_EQ(RuntimeCvtReal64ToUInt32(-2.7), 0xFFFFFFFEul);
  EXPECT_EQ(RuntimeCvtReal32ToUInt32(-1.0f), 0xFFFFFFFFul);
  EXPECT_EQ(RuntimeCvtReal64ToUInt32(4294967295.9), 0xFFFFFFFFul);
  EXPECT_EQ(RuntimeCvtReal64ToUInt32(4294967296.0 + 5), 5ul);
  EXPECT_EQ(RuntimeCvtReal32ToUInt32(3e9f), 3000000000ul);
}

TEST(RuntimeNumericConversion, RealToSignedTruncatesTowardZero) {
  EXPECT_EQ(RuntimeCvtReal64ToSInt32(-0.5), 0);
  EXPECT_EQ(RuntimeCvtReal64ToSInt32(-2.9), -2);
  EXPECT_EQ(RuntimeCvtReal32ToSInt32(2.9f), 2);
  EXPECT_EQ(RuntimeCvtReal64ToSInt32(-2147483648.9), kMin32);
  EXPECT_EQ(RuntimeCvtReal64ToSInt32(2147483647.9), 2147483647);
  EXPECT_EQ(RuntimeCvtReal64ToSInt64(-1e15 - 0.5), -1000000000000000ll);
  EXPECT_EQ(RuntimeCvtReal32ToSInt64(-16777216.0f), -16777216ll);
  EXPECT_EQ(RuntimeCvtReal64ToSInt64(-kTwo63), kMin64);
}

TEST(RuntimeNumericConversion, UnrepresentableRealsGiveTheLowestValue) {
  EXPECT_EQ(RuntimeCvtReal64ToSInt32(NAN), kMin32);
  EXPECT_EQ(RuntimeCvtReal64ToSInt32(3e9), kMin32);
  EXPECT_EQ(RuntimeCvtReal32ToSInt32(-INFINITY), kMin32);
  EXPECT_EQ(RuntimeCvtReal64ToSInt64(NAN), kMin64);
  EXPECT_EQ(RuntimeCvtReal64ToSInt64(kTwo63), kMin64);
  EXPECT_EQ(RuntimeCvtReal64ToCurrency(1e300), kMin64);
  EXPECT_EQ(RuntimeCvtReal64ToUInt64(2 * kTwo63), 0u)
      << "2^64 is past the top: the indefinite value with its top bit flipped";
}

TEST(RuntimeNumericConversion, IntegersToDouble) {
  EXPECT_EQ(RuntimeCvtSInt32ToReal64(-7), -7.0);
  EXPECT_EQ(RuntimeCvtUInt32ToReal64(0xFFFFFFFFul), 4294967295.0);
  EXPECT_EQ(RuntimeCvtSInt64ToReal64(-1), -1.0);
  EXPECT_EQ(RuntimeCvtSInt64ToReal64((1ll << 53) + 1), 9007199254740992.0)
      << "to nearest even";
  EXPECT_EQ(RuntimeCvtUInt64ToReal64(5), 5.0);
}

TEST(RuntimeNumericConversion, UInt64WithTheTopBitToDoubleRoundsOnce) {
  EXPECT_EQ(RuntimeCvtUInt64ToReal64(0x8000000000000000ull), kTwo63);
  EXPECT_EQ(RuntimeCvtUInt64ToReal64(0xFFFFFFFFFFFFFFFFull), 2 * kTwo63);
  // Rounding the signed reading first would land on the tie 2^63 + 1024 and
  // go down to 2^63; the exact value is nearer 2^63 + 2048.
  EXPECT_EQ(RuntimeCvtUInt64ToReal64(0x8000000000000401ull), kTwo63 + 2048);
  EXPECT_EQ(RuntimeCvtUInt64ToReal64(0xC000000000000000ull), 1.5 * kTwo63);
}

TEST(RuntimeCurrencyConversion, IntegersScaleAndWrap) {
  EXPECT_EQ(RuntimeCvtSInt32ToCurrency(-3), -30000);
  EXPECT_EQ(RuntimeCvtUInt32ToCurrency(0xFFFFFFFFul), 42949672950000ll);
  EXPECT_EQ(RuntimeCvtSInt64ToCurrency(123456789012ll), 1234567890120000ll);
  EXPECT_EQ(RuntimeCvtSInt64ToCurrency(1ll << 62),
            static_cast<long long>((1ull << 62) * 10000u));
  EXPECT_EQ(RuntimeCvtUInt64ToCurrency(0xFFFFFFFFFFFFFFFFull), -10000);
}

TEST(RuntimeCurrencyConversion, RealsRoundHalvesAwayFromZero) {
  // 2^-5 is exact in binary and is 312.5 ten-thousandths.
  EXPECT_EQ(RuntimeCvtReal64ToCurrency(0.03125), 313);
  EXPECT_EQ(RuntimeCvtReal64ToCurrency(-0.03125), -313);
  EXPECT_EQ(RuntimeCvtReal32ToCurrency(0.03125f), 313);
  EXPECT_EQ(RuntimeCvtReal64ToCurrency(-0.5), -5000);
  EXPECT_EQ(RuntimeCvtReal64ToCurrency(1.2345), 12345);
  EXPECT_EQ(RuntimeCvtReal64ToCurrency(0.00004), 0);
}

TEST(RuntimeCurrencyConversion, ToIntegersTruncatesAndToDoubleScales) {
  EXPECT_EQ(RuntimeCvtCurrencyToSInt32(-15000), -1);
  EXPECT_EQ(RuntimeCvtCurrencyToSInt32(29999), 2);
  EXPECT_EQ(RuntimeCvtCurrencyToUInt32(-10000), 0xFFFFFFFFul);
  EXPECT_EQ(RuntimeCvtCurrencyToSInt32(0x100000005ll * 10000), 5)
      << "the low 32 bits";
  EXPECT_EQ(RuntimeCvtCurrencyToSInt64(-99999), -9);
  EXPECT_EQ(RuntimeCvtCurrencyToUInt64(-10000), 0xFFFFFFFFFFFFFFFFull);
  EXPECT_DOUBLE_EQ(RuntimeCvtCurrencyToReal64(12345), 1.2345);
  EXPECT_DOUBLE_EQ(RuntimeCvtCurrencyToReal64(-5000), -0.5);
}

TEST(RuntimeInt64Arithmetic, MultiplyKeepsTheLow64Bits) {
  EXPECT_EQ(RuntimeMulSInt64(-3, 5), -15);
  EXPECT_EQ(RuntimeMulSInt64(0x100000000ll, 0x100000000ll), 0);
  EXPECT_EQ(RuntimeMulSInt64(INT64_MAX, 2), -2);
  EXPECT_EQ(RuntimeMulSInt64(0x123456789ll, -0x1000ll), -0x123456789000ll);
  EXPECT_EQ(RuntimeMulUInt64(0xFFFFFFFFFFFFFFFFull, 0xFFFFFFFFFFFFFFFFull),
            1u);
  EXPECT_EQ(RuntimeMulUInt64(0xFFFFFFFFull, 0xFFFFFFFFull),
            0xFFFFFFFE00000001ull);
}

TEST(RuntimeInt64Arithmetic, SignedDivisionTruncatesAndNeverFaults) {
  EXPECT_EQ(RuntimeDivSInt64(-7, 2), -3);
  EXPECT_EQ(RuntimeModSInt64(-7, 2), -1);
  EXPECT_EQ(RuntimeModSInt64(7, -2), 1);
  EXPECT_EQ(RuntimeDivSInt64(0x123456789ABCDEF0ll, 0x12345),
            0x123456789ABCDEF0ll / 0x12345);
  EXPECT_EQ(RuntimeModSInt64(0x123456789ABCDEF0ll, 0x12345),
            0x123456789ABCDEF0ll % 0x12345);
  EXPECT_EQ(RuntimeDivSInt64(42, 0), 0);
  EXPECT_EQ(RuntimeModSInt64(42, 0), 0);
  EXPECT_EQ(RuntimeDivSInt64(kMin64, -1), kMin64) << "wraps";
  EXPECT_EQ(RuntimeModSInt64(kMin64, -1), 0);
}

TEST(RuntimeInt64Arithmetic, UnsignedDivisionUsesAll64Bits) {
  EXPECT_EQ(RuntimeDivUInt64(0xFFFFFFFFFFFFFFFFull, 3), 0x5555555555555555ull);
  EXPECT_EQ(RuntimeModUInt64(0xFFFFFFFFFFFFFFFFull, 10), 5u);
  EXPECT_EQ(RuntimeDivUInt64(0x8000000000000000ull, 0x100000000ull),
            0x80000000ull);
  EXPECT_EQ(RuntimeDivUInt64(9, 0), 0u);
  EXPECT_EQ(RuntimeModUInt64(9, 0), 0u);
}

TEST(RuntimeInt64Arithmetic, ShiftsUseTheLowSixBitsOfTheCount) {
  long long v = 0x0123456789ABCDEFll;
  EXPECT_EQ(RuntimeShiftLeftInt64(v, 0), v);
  EXPECT_EQ(RuntimeShiftLeftInt64(1, 63), kMin64);
  EXPECT_EQ(RuntimeShiftLeftInt64(v, 64), v) << "64 is a shift by 0";
  EXPECT_EQ(RuntimeShiftLeftInt64(v, 65), v << 1);
  EXPECT_EQ(RuntimeShiftLeftInt64(v, 36),
            static_cast<long long>(0x9ABCDEF000000000ull));
  EXPECT_EQ(RuntimeShiftRightInt64(kMin64, 63), -1) << "arithmetic";
  EXPECT_EQ(RuntimeShiftRightInt64(-8, 1), -4);
  EXPECT_EQ(RuntimeShiftRightInt64(v, 64), v);
  EXPECT_EQ(RuntimeShiftRightInt64(v, 0x7FFFFFC4), v >> 4);
  EXPECT_EQ(RuntimeShiftRightInt64(v, 32), 0x01234567ll);
}

TEST(RuntimeCurrencyArithmetic, MultiplyScalesTheProductBackDown) {
  EXPECT_EQ(RuntimeMulCurrency(25000, 25000), 62500) << "2.5 * 2.5 = 6.25";
  EXPECT_EQ(RuntimeMulCurrency(-15000, 20000), -30000);
  EXPECT_EQ(RuntimeMulCurrency(1, 5000), 0) << "truncated";
  EXPECT_EQ(RuntimeMulCurrency(-1, 5000), 0);
  // Past 2^63 the product wraps before the division: kept as it is.
  long long big = 3037000500ll;
  long long wrapped =
      static_cast<long long>(static_cast<unsigned long long>(big) * big);
  EXPECT_LT(wrapped, 0);
  EXPECT_EQ(RuntimeMulCurrency(big, big), wrapped / 10000);
}

TEST(RuntimeCurrencyArithmetic, DivideTruncatesToWholeUnitsBeforeScaling) {
  EXPECT_EQ(RuntimeDivCurrency(10000, 30000), 0) << "1 / 3";
  EXPECT_EQ(RuntimeDivCurrency(75000, 20000), 30000) << "7.5 / 2 = 3";
  EXPECT_EQ(RuntimeDivCurrency(-75000, 20000), -30000);
  EXPECT_EQ(RuntimeDivCurrency(100000, 0), 0);
}

// The host's library tests cover the wrappers through the resolver; these
// are the edges that only show here.
TEST(RuntimeMathWrappers, DomainErrorsLeaveErrnoAndSignsAlone) {
  errno = 0;
  EXPECT_TRUE(isnan(RuntimeACos(1.0000001)));
  EXPECT_TRUE(isnan(RuntimeASin(-1.0000001)));
  EXPECT_EQ(errno, 0) << "no C library error";
  EXPECT_EQ(RuntimeSign(-0.0), 0);
  EXPECT_EQ(RuntimeSign(-1e-300), -1);
  EXPECT_TRUE(isnan(RuntimeAbs(NAN)));
  EXPECT_EQ(RuntimeAbs(-INFINITY), INFINITY);
}

TEST(RuntimeRandom, SequenceFromASeedFollowsTheScriptRule) {
  srnd(1);
  EXPECT_EQ(rndNum(), 16807) << "hi is 0 for the first step";
  // With the textbook quotient 127773 the next state would be 282475249.
  EXPECT_EQ(rndNum(), 67796602);
  EXPECT_EQ(rndNum(), 157910185);
  srnd(1);
  EXPECT_EQ(rnd(), 16807 / 1048576.0);
  EXPECT_EQ(rnd(), 687738 / 1048576.0) << "the low twenty bits";
  EXPECT_EQ(rnd(), 623785 / 1048576.0);
}

TEST(RuntimeRandom, NegativeAndLargeSeedsStayPositive) {
  srnd(-1);
  EXPECT_EQ(rndNum(), 2147466840);
  srnd(2147483647);
  EXPECT_EQ(rndNum(), 1842933254);
  srnd(-2147483648.0);
  long next = rndNum();
  EXPECT_GE(next, 1);
  srnd(1e12);
  EXPECT_EQ(srnd(0), static_cast<double>(kMin32)) << "seed past Int32";
}

TEST(RuntimeRandom, SeedingReturnsThePreviousState) {
  srnd(5);
  EXPECT_EQ(srnd(9.9), 5);
  EXPECT_EQ(srnd(-3.7), 9) << "truncated";
  EXPECT_EQ(srnd(0), -3);
}

// Unseeded, rnd() takes the clock's low 31 bits and throws seven draws away
// before the one it returns.
TEST(RuntimeRandom, UnseededGeneratorSeedsFromTheClock) {
  for (int attempt = 0; attempt < 5; attempt++) {
    time_t before = time(nullptr);
    srnd(0);
    double first = rnd();
    long state = static_cast<long>(srnd(0));
    if (time(nullptr) != before) continue;
    EXPECT_GE(first, 0);
    EXPECT_LT(first, 1);
    srnd(static_cast<double>(static_cast<unsigned long>(before) & 0x7FFFFFFF));
    for (int i = 0; i < 7; i++) rndNum();
    EXPECT_EQ(rndNum(), state);
    return;
  }
  FAIL() << "the clock kept moving";
}

}  // namespace
