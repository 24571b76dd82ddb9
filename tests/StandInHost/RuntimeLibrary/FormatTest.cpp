// Format: placeholders, grouping, percent, sections, literals, rounding.
#include "LibraryTestSupport.h"

#include <math.h>

namespace {

class Format : public LibraryTest {
 protected:
  std::string F(double value, char const* formatText) {
    return Text("StringFormat", value, S(formatText));
  }
};

TEST_F(Format, DigitPlaceholders) {
  EXPECT_EQ(F(5, "000"), "005");
  EXPECT_EQ(F(12345, "###"), "12345") << "extra digits are never lost";
  EXPECT_EQ(F(3.14159, "0.00"), "3.14");
  EXPECT_EQ(F(3.1, "0.00"), "3.10");
  EXPECT_EQ(F(3.1, "#.##"), "3.1");
  EXPECT_EQ(F(3, "#.##"), "3") << "no point without a digit after it";
  EXPECT_EQ(F(0.5, "#.##"), ".5");
  EXPECT_EQ(F(0.5, "0.##"), "0.5");
  EXPECT_EQ(F(0, "#"), "");
  EXPECT_EQ(F(0, "0.0"), "0.0");
  EXPECT_EQ(F(42, "#0.0#"), "42.0");
}

TEST_F(Format, RoundsHalvesAwayFromZero) {
  EXPECT_EQ(F(2.5, "0"), "3");
  EXPECT_EQ(F(-2.5, "0"), "-3");
  EXPECT_EQ(F(0.125, "0.00"), "0.13");
  EXPECT_EQ(F(9.995, "0.0"), "10.0");
  EXPECT_EQ(F(-0.004, "0.00"), "0.00") << "no sign on a rounded zero";
}

TEST_F(Format, GroupingAndPercent) {
  EXPECT_EQ(F(1234567.891, "#,##0.00"), "1,234,567.89");
  EXPECT_EQ(F(123, "#,##0"), "123");
  EXPECT_EQ(F(-1234, "#,###"), "-1,234");
  EXPECT_EQ(F(0.256, "0%"), "26%");
  EXPECT_EQ(F(0.256, "0.0%"), "25.6%");
}

TEST_F(Format, SignSections) {
  EXPECT_EQ(F(5, "0;(0);zero"), "5");
  EXPECT_EQ(F(-5, "0;(0);zero"), "(5)");
  EXPECT_EQ(F(0, "0;(0);zero"), "zero");
  EXPECT_EQ(F(-5, "0;;zero"), "-5") << "an empty section falls back";
  EXPECT_EQ(F(0, "0;(0)"), "0");
  EXPECT_EQ(F(-5, "+0;-0"), "-5");
  EXPECT_EQ(F(5, "+0;-0"), "+5");
}

TEST_F(Format, LiteralsEscapesAndQuotes) {
  EXPECT_EQ(F(9.5, "$#0.00"), "$9.50");
  EXPECT_EQ(F(-9.5, "$#0.00"), "-$9.50");
  EXPECT_EQ(F(5551234, "###-####"), "555-1234");
  EXPECT_EQ(F(3, "\\#0"), "#3");
  EXPECT_EQ(F(3, "0\" items; each\""), "3 items; each");
  EXPECT_EQ(F(1.5, "0.0 \xE2\x82\xAC"), "1.5 \xE2\x82\xAC");
  Str euro = Call("StringFormat", 1.5, S("0.0 \xE2\x82\xAC"));
  EXPECT_EQ(euro->mEncoding, (uint32_t)kEncodingUTF8);
  UnlockStringStorage(euro);
}

TEST_F(Format, EmptyPatternAndNonNumbersGiveStrText) {
  EXPECT_EQ(F(0.1 + 0.2, ""), "0.3");
  EXPECT_EQ(F(NAN, "0.00"), "NaN");
  EXPECT_EQ(F(INFINITY, "#"), "INF");
  EXPECT_EQ(F(1e300, "0").size(), 301u);
}

}  // namespace
