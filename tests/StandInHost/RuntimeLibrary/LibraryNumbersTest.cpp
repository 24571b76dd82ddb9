// Val, CDbl and Format at the edges the scripts do not reach.
#include "LibraryTestSupport.h"

#include <math.h>

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

}  // namespace
