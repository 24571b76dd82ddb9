// Slicing, trimming, concatenation across encodings and comparison.
#include <gtest/gtest.h>

#include "Universal/Encodings.h"
#include "Universal/ustring.h"

namespace {

const unsigned long kLatin1 = 513;

string Tagged(char const* bytes, unsigned long tag) {
  string s(bytes);
  s.SetEncoding(tag);
  return s;
}

}  // namespace

TEST(StringSlices, LeftRightShareWholeAndKeepTag) {
  string s = Tagged("abcdef", kEncodingUTF8);
  EXPECT_EQ(left(s, s.Length()).GetStringStorage(), s.GetStringStorage());
  EXPECT_EQ(left(s, 100).GetStringStorage(), s.GetStringStorage());
  EXPECT_EQ(right(s, 6).GetStringStorage(), s.GetStringStorage());
  EXPECT_EQ(left(s, 0).Length(), 0u);
  EXPECT_EQ(left(s, -3).Length(), 0u);
  EXPECT_STREQ(left(s, 2).CString(), "ab");
  EXPECT_STREQ(right(s, 2).CString(), "ef");
  EXPECT_EQ(left(s, 2).Encoding(), (unsigned long)kEncodingUTF8);
  EXPECT_EQ(right(s, 0).Length(), 0u);
}

TEST(StringSlices, MidRules) {
  string s("abcdef");
  EXPECT_EQ(mid(s, 0).GetStringStorage(), s.GetStringStorage());
  EXPECT_EQ(mid(s, -2).GetStringStorage(), s.GetStringStorage());
  EXPECT_STREQ(mid(s, 4).CString(), "ef");
  EXPECT_EQ(mid(s, 6).Length(), 0u);

  EXPECT_STREQ(mid(s, 1, 3).CString(), "bcd");
  EXPECT_STREQ(mid(s, -1, 3).CString(), "ab");  // start moves to 0, count 2
  EXPECT_EQ(mid(s, -3, 3).Length(), 0u);
  EXPECT_EQ(mid(s, 2, 0).Length(), 0u);
  EXPECT_EQ(mid(s, 6, 1).Length(), 0u);
  EXPECT_STREQ(mid(s, 4, 10).CString(), "ef");
  EXPECT_EQ(mid(s, 0, 6).GetStringStorage(), s.GetStringStorage());
}

TEST(StringSlices, TrimsDropOnlyBlanksAndTabs) {
  string s(" \t x y \t ");
  EXPECT_STREQ(trim(s).CString(), "x y");
  EXPECT_STREQ(ltrim(s).CString(), "x y \t ");
  EXPECT_STREQ(rtrim(s).CString(), " \t x y");
  EXPECT_STREQ(trim(string("\nx\r")).CString(), "\nx\r");
  EXPECT_EQ(trim(string(" \t ")).Length(), 0u);
  string clean("clean");
  EXPECT_EQ(trim(clean).GetStringStorage(), clean.GetStringStorage());
}

TEST(StringConcat, EmptySideGivesTheOtherShared) {
  string a("abc"), nil;
  EXPECT_EQ((a + nil).GetStringStorage(), a.GetStringStorage());
  EXPECT_EQ((nil + a).GetStringStorage(), a.GetStringStorage());
}

TEST(StringConcat, SameTagIsPlainConcatenation) {
  string sum = string("ab") + string("cd");
  EXPECT_STREQ(sum.CString(), "abcd");
  EXPECT_EQ(sum.Encoding(), (unsigned long)kEncodingASCII);
}

TEST(StringConcat, Latin1PlusUTF8GivesUTF8) {
  string latin = Tagged("caf\xE9", kLatin1);
  string utf8 = Tagged("\xE2\x82\xAC", kEncodingUTF8);  // euro sign
  string sum = latin + utf8;
  EXPECT_EQ(sum.Encoding(), (unsigned long)kEncodingUTF8);
  EXPECT_STREQ(sum.CString(), "caf\xC3\xA9\xE2\x82\xAC");
}

TEST(StringConcat, AsciiPlusLatin1TakesLatin1) {
  string sum = string("x") + Tagged("\xE9", kLatin1);
  EXPECT_EQ(sum.Encoding(), kLatin1);
  EXPECT_STREQ(sum.CString(), "x\xE9");
}

TEST(StringConcat, AppendOperators) {
  string nil;
  nil += "abc";
  EXPECT_EQ(nil.Encoding(), (unsigned long)kEncodingASCII);
  string utf8 = Tagged("a", kEncodingUTF8);
  utf8 += "b";
  EXPECT_EQ(utf8.Encoding(), (unsigned long)kEncodingUTF8);
  EXPECT_STREQ(utf8.CString(), "ab");

  string x = Tagged("x", kEncodingUTF8) + 'y';
  EXPECT_EQ(x.Encoding(), (unsigned long)kEncodingUTF8);
  string high = string("x") + (char)0xE9;
  EXPECT_EQ(high.Encoding(), (unsigned long)kEncodingUnknown);
  EXPECT_EQ(high.Length(), 2u);

  string left("L");
  left += string("R");
  EXPECT_STREQ(left.CString(), "LR");
}

TEST(StringCompare, EqualityIgnoresCaseCompareWithCaseDoesNot) {
  string a("Hello"), b("hELLO");
  EXPECT_TRUE(a == b);
  EXPECT_FALSE(a != b);
  EXPECT_EQ(a.Compare(b), 0);
  EXPECT_NE(a.CompareWithCase(b), 0);
  EXPECT_TRUE(a == "HELLO");
  EXPECT_TRUE(a != "HELL");
}

TEST(StringCompare, OrderingAndLongerIsGreater) {
  EXPECT_TRUE(string("abc") < string("abd"));
  EXPECT_TRUE(string("ab") < string("abc"));
  EXPECT_TRUE(string("ABC") > string("ab"));
  EXPECT_TRUE(string("abc") >= string("ABC"));
  EXPECT_TRUE(string("abc") <= string("ABC"));
  EXPECT_EQ(string("b").Compare(string("a")), 1);
  EXPECT_EQ(string("a").Compare(string("b")), -1);
  EXPECT_EQ(string().Compare(string("a")), -1);
  // Bytes compare as signed 8-bit values: 0x80 sorts before 'a'.
  EXPECT_EQ(string("a\x80").CompareWithCase(string("aab")), -1);
}

TEST(StringCompare, EqualLengthStopsAtNul) {
  string a, b;
  a.ConstructFromBuffer("ab\0xy", 5);
  b.ConstructFromBuffer("ab\0zz", 5);
  EXPECT_TRUE(a == b);
  EXPECT_EQ(a.CompareWithCase(b), 0);
  string c;
  c.ConstructFromBuffer("ab\0zzz", 6);
  EXPECT_FALSE(a == c);  // different lengths walk past the NUL
}

TEST(StringCompare, DifferentTagsCompareInOneEncoding) {
  string latin = Tagged("caf\xE9", kLatin1);
  string utf8 = Tagged("CAF\xC3\xA9", kEncodingUTF8);
  EXPECT_TRUE(latin == utf8);
}

TEST(StringEncodingViews, UTF8AndUTF16) {
  string utf8 = Tagged("x", kEncodingUTF8);
  EXPECT_EQ(utf8.GetUTF8String().GetStringStorage(), utf8.GetStringStorage());
  string ascii("hi");
  string converted = ascii.GetUTF8String();
  EXPECT_EQ(converted.Encoding(), (unsigned long)kEncodingUTF8);
  EXPECT_STREQ(converted.CString(), "hi");

  string untagged;
  untagged.ConstructFromBuffer("\xC3\xA9", 2);  // the system encoding: UTF-8
  string utf16 = untagged.GetUTF16String();
  EXPECT_EQ(utf16.Encoding(), (unsigned long)kEncodingUTF16);
  ASSERT_EQ(utf16.Length(), 2u);
  EXPECT_EQ((unsigned char)utf16[0], 0xE9);
  EXPECT_EQ((unsigned char)utf16[1], 0x00);
}

TEST(StringEncodingViews, ContainsOnlyASCII) {
  EXPECT_TRUE(string("plain").ContainsOnlyASCII());
  EXPECT_FALSE(Tagged("caf\xC3\xA9", kEncodingUTF8).ContainsOnlyASCII());
  string utf16;
  unsigned short units[] = {'a'};
  utf16.ConstructFromUTF16String(units, 1);
  EXPECT_FALSE(utf16.ContainsOnlyASCII());
}
