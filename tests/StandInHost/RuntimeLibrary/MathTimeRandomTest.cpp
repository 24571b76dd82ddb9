// Math wrappers, bitwise forms, clocks and Rnd.
#include "LibraryTestSupport.h"

#include <math.h>
#include <time.h>

namespace {

typedef double Unary(double);

double Call1(char const* name, double x) { return Library<Unary>(name)(x); }

TEST(RuntimeLibraryMath, WrappersFollowTheCLibrary) {
  EXPECT_DOUBLE_EQ(Call1("RuntimeSqrt", 16), 4);
  EXPECT_DOUBLE_EQ(Call1("RuntimeCos", 0), 1);
  EXPECT_DOUBLE_EQ(Call1("RuntimeSin", M_PI / 2), 1);
  EXPECT_DOUBLE_EQ(Call1("RuntimeTan", M_PI / 4), 1);
  EXPECT_DOUBLE_EQ(Call1("RuntimeATan", 1), M_PI / 4);
  EXPECT_DOUBLE_EQ(Call1("RuntimeExp", 1), M_E);
  EXPECT_DOUBLE_EQ(Call1("RuntimeLog", M_E), 1);
  EXPECT_DOUBLE_EQ(Call1("RuntimeCeil", -1.5), -1);
  EXPECT_DOUBLE_EQ(Call1("RuntimeFloor", -1.5), -2);
  EXPECT_DOUBLE_EQ(Library<double(double, double)>("RuntimePow")(2, 10), 1024);
  EXPECT_DOUBLE_EQ(Library<double(double, double)>("RuntimeATan2")(1, -1),
                   3 * M_PI / 4);
}

TEST(RuntimeLibraryMath, EdgesOfAbsSignRoundAndInverseTrig) {
  EXPECT_EQ(Call1("RuntimeRound", 2.5), 3);
  EXPECT_EQ(Call1("RuntimeRound", -2.5), -3);
  EXPECT_EQ(Call1("RuntimeRound", 2.4999), 2);
  EXPECT_EQ(Call1("RuntimeAbs", -3), 3);
  EXPECT_TRUE(signbit(Call1("RuntimeAbs", -0.0))) << "-0 passes unchanged";
  EXPECT_EQ(Call1("RuntimeSign", -7), -1);
  EXPECT_EQ(Call1("RuntimeSign", 0.1), 1);
  EXPECT_EQ(Call1("RuntimeSign", 0), 0);
  EXPECT_EQ(Call1("RuntimeSign", NAN), 0);
  EXPECT_TRUE(isnan(Call1("RuntimeACos", 1.0000001)));
  EXPECT_TRUE(isnan(Call1("RuntimeASin", NAN)));
  EXPECT_DOUBLE_EQ(Call1("RuntimeACos", -1), M_PI);
  EXPECT_DOUBLE_EQ(Call1("RuntimeASin", 1), M_PI / 2);
}

TEST(RuntimeLibraryMath, BitwiseOnSixtyFourBits) {
  typedef unsigned long long Bits(unsigned long long, unsigned long long);
  unsigned long long a = 0xF0F0F0F000000001ull, b = 0x0FF0000F00000003ull;
  EXPECT_EQ(Library<Bits>("BitwiseAnd")(a, b), 0x00F0000000000001ull);
  EXPECT_EQ(Library<Bits>("BitwiseOr")(a, b), 0xFFF0F0FF00000003ull);
  EXPECT_EQ(Library<Bits>("BitwiseXor")(a, b), 0xFF00F0FF00000002ull);
}

TEST(RuntimeLibraryTime, ClocksAdvanceFromTheStart) {
  auto micro = Library<double()>("RuntimeMicroseconds");
  auto ticks = Library<long()>("RuntimeTicks");
  double first = micro();
  EXPECT_GE(first, 0);
  EXPECT_LT(first, 60e6) << "counted from the host's start";
  timespec pause = {0, 50 * 1000 * 1000};
  long tick0 = ticks();
  nanosleep(&pause, nullptr);
  double elapsed = micro() - first;
  EXPECT_GE(elapsed, 50000);
  EXPECT_LT(elapsed, 5e6);
  EXPECT_GE(ticks() - tick0, 2) << "50 ms is three ticks";
}

TEST(RuntimeLibraryRandom, ValuesLieInTheUnitIntervalAndVary) {
  auto rnd = Library<double()>("rnd");
  double low = 1, high = 0, sum = 0;
  const int kDraws = 4000;
  for (int i = 0; i < kDraws; i++) {
    double x = rnd();
    ASSERT_GE(x, 0);
    ASSERT_LT(x, 1);
    EXPECT_EQ(x * 1048576.0, floor(x * 1048576.0)) << "twenty bits";
    low = fmin(low, x);
    high = fmax(high, x);
    sum += x;
  }
  EXPECT_LT(low, 0.01);
  EXPECT_GT(high, 0.99);
  EXPECT_NEAR(sum / kDraws, 0.5, 0.05);
}

}  // namespace
