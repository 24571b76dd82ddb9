// Val, CDbl, Str, CStr, Hex, Oct and Bin.
#include "LibraryTestSupport.h"

#include <math.h>

namespace {

class NumberText : public LibraryTest {
 protected:
  double Val(char const* text) {
    return Library<double(Str)>("StringVal")(S(text));
  }
  double CDbl(char const* text) {
    return Library<double(Str)>("runCDbl")(S(text));
  }
};

TEST_F(NumberText, ValReadsALeadingDecimal) {
  EXPECT_EQ(Val("42"), 42);
  EXPECT_EQ(Val("  -3.5xyz"), -3.5);
  EXPECT_EQ(Val("+.25"), 0.25);
  EXPECT_EQ(Val("1e3"), 1000);
  EXPECT_EQ(Val("2.5E-1 rest"), 0.25);
  EXPECT_EQ(Val("7e"), 7) << "an exponent needs digits";
  EXPECT_EQ(Val("7e+x"), 7);
  EXPECT_EQ(Val("1,234"), 1) << "Val stops at a comma";
  EXPECT_EQ(Val("12.34.56"), 12.34);
}

TEST_F(NumberText, ValGivesZeroWithoutANumber) {
  EXPECT_EQ(Val(""), 0);
  EXPECT_EQ(Val("abc"), 0);
  EXPECT_EQ(Val("-"), 0);
  EXPECT_EQ(Val("."), 0);
  EXPECT_EQ(Val("x12"), 0);
}

TEST_F(NumberText, ValReadsRadixPrefixes) {
  EXPECT_EQ(Val("&hFF"), 255);
  EXPECT_EQ(Val("&Hff tail"), 255);
  EXPECT_EQ(Val("&hFFFFFFFF"), 4294967295.0);
  EXPECT_EQ(Val("&o17"), 15);
  EXPECT_EQ(Val("&b1011"), 11);
  EXPECT_EQ(Val("&b102"), 2);
  EXPECT_EQ(Val("&x1"), 0);
}

TEST_F(NumberText, CDblSkipsThousandsSeparators) {
  EXPECT_EQ(CDbl("1,234.5"), 1234.5);
  EXPECT_EQ(CDbl("-12,345,678"), -12345678);
  EXPECT_EQ(CDbl("3.5e2"), 350);
  EXPECT_EQ(CDbl(",5"), 0);
  EXPECT_EQ(CDbl(""), 0);
}

TEST_F(NumberText, StrUsesFifteenSignificantDigits) {
  EXPECT_EQ(Text("StringStrDouble", 3.0), "3");
  EXPECT_EQ(Text("StringStrDouble", 0.1 + 0.2), "0.3");
  EXPECT_EQ(Text("StringStrDouble", -2.5), "-2.5");
  EXPECT_EQ(Text("StringStrDouble", 1e20), "1e+20");
  EXPECT_EQ(Text("StringStrDouble", 123456789012.0), "123456789012");
  EXPECT_EQ(Text("StringStrDouble", -0.0), "0");
  EXPECT_EQ(Text("StringStrDouble", double(NAN)), "NaN");
  EXPECT_EQ(Text("StringStrDouble", -double(INFINITY)), "-INF");
  EXPECT_EQ(Text("runCStr", 1.0 / 3), "0.333333333333333");
  Str three = Call("StringStrDouble", 3.0);
  EXPECT_EQ(three->mEncoding, (uint32_t)kEncodingASCII);
  UnlockStringStorage(three);
}

TEST_F(NumberText, StrAndValRoundTrip) {
  for (double value : {0.5, -1234.125, 6.02e23, 1e-7, 99999.0}) {
    Str text = Library<Str(double)>("StringStrDouble")(value);
    EXPECT_DOUBLE_EQ(Library<double(Str)>("StringVal")(text), value);
    UnlockStringStorage(text);
  }
}

TEST_F(NumberText, HexOctBinShowTwosComplement) {
  EXPECT_EQ(Text("RuntimeHex", 255L), "FF");
  EXPECT_EQ(Text("RuntimeHex", 0L), "0");
  EXPECT_EQ(Text("RuntimeHex", -1L), "FFFFFFFF");
  EXPECT_EQ(Text("RuntimeHex", 0x1234ABCDL), "1234ABCD");
  EXPECT_EQ(Text("RuntimeOct", 8L), "10");
  EXPECT_EQ(Text("RuntimeOct", -1L), "37777777777");
  EXPECT_EQ(Text("RuntimeBin", 5L), "101");
  EXPECT_EQ(Text("RuntimeBin", 0L), "0");
  EXPECT_EQ(Text("RuntimeBin", -2L), std::string(31, '1') + "0");
}

}  // namespace
