// Val, CDbl, Str, CStr, Hex, Oct, Bin, Format, math, clocks and Rnd.
#include "LibraryTestSupport.h"

#include <math.h>
#include <time.h>

#include <tuple>

namespace {

class LibraryNumbers : public LibraryTest {};

TEST_F(LibraryNumbers, ValAndCDbl) {
  auto val = Library<double(Str)>("StringVal");
  auto cdbl = Library<double(Str)>("runCDbl");
  std::pair<char const*, double> vals[] = {
      {"  -3.5xyz", -3.5}, {"+.25", 0.25}, {"2.5E-1 rest", 0.25}, {"7e", 7}, {"7e+x", 7},
      {"1,234", 1}, {"12.34.56", 12.34}, {"", 0}, {"-", 0}, {".", 0}, {"x12", 0},
      {"&Hff tail", 255}, {"&hFFFFFFFF", 4294967295.0}, {"&o17", 15}, {"&b102", 2}, {"&x1", 0}};
  for (auto const& v : vals) EXPECT_EQ(val(S(v.first)), v.second) << v.first;
  std::pair<char const*, double> cdbls[] = {
      {"1,234.5", 1234.5}, {"-12,345,678", -12345678}, {"3.5e2", 350}, {",5", 0}, {"", 0}};
  for (auto const& v : cdbls) EXPECT_EQ(cdbl(S(v.first)), v.second) << v.first;
}

TEST_F(LibraryNumbers, StrUsesFifteenSignificantDigitsAndRoundTrips) {
  std::pair<double, char const*> rows[] = {
      {3.0, "3"}, {0.1 + 0.2, "0.3"}, {1e20, "1e+20"}, {123456789012.0, "123456789012"},
      {-0.0, "0"}, {NAN, "NaN"}, {-INFINITY, "-INF"}};
  for (auto const& r : rows) EXPECT_EQ(Text("StringStrDouble", r.first), r.second);
  EXPECT_EQ(Text("runCStr", 1.0 / 3), "0.333333333333333");
  EXPECT_EQ(Tag("StringStrDouble", 3.0), (uint32_t)kEncodingASCII);
  EXPECT_DOUBLE_EQ(Library<double(Str)>("StringVal")(S(Text("StringStrDouble", 6.02e23).c_str())), 6.02e23);
}

TEST_F(LibraryNumbers, HexOctBinShowTwosComplement) {
  std::tuple<char const*, long, std::string> rows[] = {
      {"RuntimeHex", 255, "FF"}, {"RuntimeHex", 0, "0"}, {"RuntimeHex", -1, "FFFFFFFF"},
      {"RuntimeOct", 8, "10"}, {"RuntimeOct", -1, "37777777777"}, {"RuntimeBin", 5, "101"},
      {"RuntimeBin", -2, std::string(31, '1') + "0"}};
  for (auto const& r : rows) EXPECT_EQ(Text(std::get<0>(r), std::get<1>(r)), std::get<2>(r));
}

TEST_F(LibraryNumbers, Format) {
  std::tuple<double, char const*, char const*> rows[] = {
      {5, "000", "005"}, {12345, "###", "12345"}, {3.14159, "0.00", "3.14"}, {3.1, "#.##", "3.1"},
      {3, "#.##", "3"}, {0.5, "#.##", ".5"}, {0.5, "0.##", "0.5"}, {0, "#", ""},
      {42, "#0.0#", "42.0"}, {2.5, "0", "3"}, {-2.5, "0", "-3"}, {0.125, "0.00", "0.13"},
      {9.995, "0.0", "10.0"}, {-0.004, "0.00", "0.00"}, {1234567.891, "#,##0.00", "1,234,567.89"},
      {123, "#,##0", "123"}, {-1234, "#,###", "-1,234"}, {0.256, "0.0%", "25.6%"},
      {-5, "0;(0);zero", "(5)"}, {0, "0;(0);zero", "zero"}, {-5, "0;;zero", "-5"}, {0, "0;(0)", "0"},
      {5, "+0;-0", "+5"}, {-9.5, "$#0.00", "-$9.50"}, {5551234, "###-####", "555-1234"},
      {3, "\\#0", "#3"}, {3, "0\" items; each\"", "3 items; each"},
      {1.5, "0.0 \xE2\x82\xAC", "1.5 \xE2\x82\xAC"}, {0.1 + 0.2, "", "0.3"}, {NAN, "0.00", "NaN"},
      {INFINITY, "#", "INF"}};
  for (auto const& r : rows)
    EXPECT_EQ(Text("StringFormat", std::get<0>(r), S(std::get<1>(r))), std::get<2>(r)) << std::get<1>(r);
  EXPECT_EQ(Text("StringFormat", 1e300, S("0")).size(), 301u);
  EXPECT_EQ(Tag("StringFormat", 1.5, S("0.0 \xE2\x82\xAC")), (uint32_t)kEncodingUTF8);
}

TEST(LibraryMath, WrappersEdgesAndBitwise) {
  std::tuple<char const*, double, double> rows[] = {
      {"RuntimeSqrt", 16, 4}, {"RuntimeSin", M_PI / 2, 1}, {"RuntimeTan", M_PI / 4, 1},
      {"RuntimeATan", 1, M_PI / 4}, {"RuntimeExp", 1, M_E}, {"RuntimeLog", M_E, 1},
      {"RuntimeCeil", -1.5, -1}, {"RuntimeFloor", -1.5, -2}, {"RuntimeRound", 2.5, 3},
      {"RuntimeRound", -2.5, -3}, {"RuntimeRound", 2.4999, 2}, {"RuntimeAbs", -3, 3},
      {"RuntimeSign", -7, -1}, {"RuntimeSign", 0.1, 1}, {"RuntimeSign", 0, 0},
      {"RuntimeSign", NAN, 0}, {"RuntimeACos", -1, M_PI}, {"RuntimeASin", 1, M_PI / 2}};
  for (auto const& r : rows)
    EXPECT_DOUBLE_EQ(Library<double(double)>(std::get<0>(r))(std::get<1>(r)), std::get<2>(r))
        << std::get<0>(r) << " " << std::get<1>(r);
  EXPECT_TRUE(signbit(Library<double(double)>("RuntimeAbs")(-0.0))) << "-0 passes unchanged";
  EXPECT_TRUE(isnan(Library<double(double)>("RuntimeACos")(1.0000001)));
  EXPECT_DOUBLE_EQ(Library<double(double, double)>("RuntimePow")(2, 10), 1024);
  EXPECT_DOUBLE_EQ(Library<double(double, double)>("RuntimeATan2")(1, -1), 3 * M_PI / 4);
  typedef unsigned long long Bits(unsigned long long, unsigned long long);
  unsigned long long a = 0xF0F0F0F000000001ull, b = 0x0FF0000F00000003ull;
  EXPECT_EQ(Library<Bits>("BitwiseAnd")(a, b), 0x00F0000000000001ull);
  EXPECT_EQ(Library<Bits>("BitwiseOr")(a, b), 0xFFF0F0FF00000003ull);
  EXPECT_EQ(Library<Bits>("BitwiseXor")(a, b), 0xFF00F0FF00000002ull);
}

TEST(LibraryTime, ClocksAdvanceFromTheStartAndRndIsUniform) {
  auto micro = Library<double()>("RuntimeMicroseconds");
  auto ticks = Library<long()>("RuntimeTicks");
  double first = micro();
  EXPECT_TRUE(first >= 0 && first < 60e6) << first << ": counted from the host's start";
  timespec pause = {0, 50 * 1000 * 1000};
  long tick0 = ticks();
  nanosleep(&pause, nullptr);
  EXPECT_GE(micro() - first, 50000);
  EXPECT_GE(ticks() - tick0, 2) << "50 ms is three ticks";
  auto rnd = Library<double()>("rnd");
  double low = 1, high = 0, sum = 0;
  for (int i = 0; i < 4000; i++) {
    double x = rnd();
    ASSERT_TRUE(x >= 0 && x < 1 && x * 1048576.0 == floor(x * 1048576.0)) << x << ": twenty bits";
    low = fmin(low, x), high = fmax(high, x), sum += x;
  }
  EXPECT_TRUE(low < 0.01 && high > 0.99) << low << " " << high;
  EXPECT_NEAR(sum / 4000, 0.5, 0.05);
}

}  // namespace
