// Byte helpers, number text and network-order byte strings.
#include <gtest/gtest.h>
#include <locale.h>

#include "Universal/ByteHelpers.h"

TEST(ByteHelpers, CStringPrimitives) {
  EXPECT_EQ(ustrlen(nullptr), 0u);
  EXPECT_EQ(ustrlen("abc"), 3u);
  char buffer[16] = "ab";
  char* cursor = buffer;
  ustrcat(&cursor, "cd");
  ustrcat(&cursor, "ef");
  EXPECT_STREQ(buffer, "abcdef");
  EXPECT_EQ(cursor, buffer + 6);
  EXPECT_EQ(utoupper('q'), 'Q');
  EXPECT_EQ(utoupper('5'), '5');
  unsigned char pascal[8];
  pstrcpy(pascal, (unsigned char const*)"\x03xyz");
  EXPECT_EQ(memcmp(pascal, "\x03xyz", 4), 0);
  char overlap[8] = "abcdef";
  umemcpy(overlap + 1, overlap, 5);
  EXPECT_STREQ(overlap, "aabcde");
  EXPECT_EQ(umemcmp("ab", "ac", 2), -1);
}

TEST(ByteHelpers, ComparisonsUseSignedBytesAndTheUpperMap) {
  EXPECT_EQ(ustrcmpi("abc", "ABC"), 0);
  EXPECT_EQ(ustrcmpi("abc", "ABD"), -1);
  EXPECT_EQ(ustrcmpi("abcd", "ABC"), 1);
  EXPECT_EQ(ustrcmp("abc", "ABC"), 1);
  EXPECT_EQ(ustrcmp("\x80", "a"), -1);  // signed: 0x80 is negative
  // Mac Roman pairs: 0x8A (a umlaut) folds to 0x80 (A umlaut).
  EXPECT_EQ(ustrcmpi("\x8A", "\x80"), 0);
  EXPECT_EQ(upperMap[(unsigned char)'z'], 'Z');
  EXPECT_EQ(upperMap[0xF5], 0x49);
  EXPECT_EQ(ustrcmpi(nullptr, ""), 0);
}

TEST(ByteHelpers, Uatol) {
  EXPECT_EQ(uatol("  42xyz"), 42);
  EXPECT_EQ(uatol("-17"), -17);
  EXPECT_EQ(uatol("+8"), 8);
  EXPECT_EQ(uatol("x1"), 0);
  EXPECT_EQ(uatol("12345", 3), 123);
  EXPECT_EQ(uatol(nullptr), 0);
}

TEST(ByteHelpers, UatodIgnoresTheLocale) {
  char const* previous = setlocale(LC_NUMERIC, "de_DE.UTF-8");
  EXPECT_DOUBLE_EQ(uatod("2.5"), 2.5);
  if (previous) setlocale(LC_NUMERIC, "C");
}

TEST(NumberText, DecimalAndHex) {
  EXPECT_STREQ(ultoa(-12).CString(), "-12");
  EXPECT_EQ(ultoa(5).Encoding(), (unsigned long)kEncodingASCII);
  EXPECT_STREQ(ulltoa(-9000000000LL).CString(), "-9000000000");
  EXPECT_STREQ(uulltoa(18446744073709551615ULL).CString(),
               "18446744073709551615");
  EXPECT_STREQ(ultohexa(255).CString(), "000000FF");
  EXPECT_STREQ(ultohexa(0xDEADBEEF).CString(), "DEADBEEF");
  EXPECT_STREQ(ultohexa(0).CString(), "00000000");
}

TEST(NumberText, Udtoa) {
  EXPECT_STREQ(udtoa(1.5, false).CString(), "1.5");
  EXPECT_STREQ(udtoa(1.5, true).CString(), "1.500000e+00");
  EXPECT_STREQ(udtoa(1.0 / 0.0, false).CString(), "0");
  EXPECT_STREQ(udtoa(0.0 / 0.0, true).CString(), "0.000000e+00");
}

TEST(NetworkOrder, FourCharCodesAndBits) {
  string code = FourCharCodeToString(0x54455854);
  EXPECT_EQ(std::string(code.CString(), code.Length()), "TEXT");
  EXPECT_EQ(StringToFourCharCode(string("TEXT")), 0x54455854u);

  string s = WriteShortAsBits(static_cast<short>(0x1234));
  ASSERT_EQ(s.Length(), 2u);
  EXPECT_EQ((unsigned char)s[0], 0x12);
  EXPECT_EQ(ReadShortAsBits(s), 0x1234);
  EXPECT_EQ(ReadShortAsBits(WriteShortAsBits(-2)), -2);

  string l = WriteLongAsBits(0x01000000);
  ASSERT_EQ(l.Length(), 4u);
  EXPECT_EQ((unsigned char)l[0], 0x01);
  EXPECT_EQ((unsigned char)l[3], 0x00);
  EXPECT_EQ(ReadLongAsBits(l), 0x01000000);
  EXPECT_EQ(ReadLongAsBits(WriteLongAsBits(-5)), -5);
}
