// Encoding tags, conversion, UTF-8 coding and Unicode case mapping.
#include <gtest/gtest.h>
#include <stdlib.h>
#include <string.h>

#include "Universal/Encodings.h"
#include "Universal/ustring.h"

namespace {

const unsigned long kLatin1 = 513;
const unsigned long kMacRoman = 0;

string Tagged(char const* bytes, unsigned long tag) {
  string s(bytes);
  s.SetEncoding(tag);
  return s;
}

std::string Bytes(string const& s) {
  return std::string(s.CString(), s.Length());
}

}  // namespace

TEST(CommonEncoding, Rules) {
  EXPECT_EQ(CommonEncoding(kLatin1, kLatin1, false), kLatin1);
  EXPECT_EQ(CommonEncoding(kEncodingASCII, kEncodingUTF8, false),
            (unsigned long)kEncodingUTF8);
  EXPECT_EQ(CommonEncoding(kEncodingUTF8, kEncodingASCII, true),
            (unsigned long)kEncodingUTF8);
  EXPECT_EQ(CommonEncoding(kEncodingASCII, kEncodingUTF16, false),
            (unsigned long)kEncodingUnknown);
  EXPECT_EQ(CommonEncoding(kEncodingASCII, kLatin1, false), kLatin1);
  EXPECT_EQ(CommonEncoding(kMacRoman, kEncodingASCII, false), kMacRoman);
  EXPECT_EQ(CommonEncoding(kLatin1, kMacRoman, false),
            (unsigned long)kEncodingUnknown);
  EXPECT_EQ(CommonEncoding(kLatin1, kMacRoman, true),
            (unsigned long)kEncodingUTF8);
  EXPECT_EQ(CommonEncoding(kLatin1, kEncodingUTF16, true),
            (unsigned long)kEncodingUTF16);
  EXPECT_EQ(CommonEncoding(kEncodingUTF8, kEncodingUTF16, true),
            (unsigned long)kEncodingUTF8);
}

TEST(ConvertToSameEncoding, NilUnknownAndFallbackTargets) {
  string nil1, nil2;
  EXPECT_EQ(ConvertToSameEncoding(&nil1, &nil2),
            (unsigned long)kEncodingASCII);
  string latin = Tagged("\xE9", kLatin1);
  EXPECT_EQ(ConvertToSameEncoding(&nil1, &latin), kLatin1);

  string untagged;
  untagged.ConstructFromBuffer("x", 1);
  string utf8 = Tagged("y", kEncodingUTF8);
  EXPECT_EQ(ConvertToSameEncoding(&untagged, &utf8),
            (unsigned long)kEncodingUnknown);

  string mac = Tagged("\x8E", kMacRoman);  // e acute in Mac Roman
  string latin2 = Tagged("\xE9", kLatin1);
  EXPECT_EQ(ConvertToSameEncoding(&mac, &latin2),
            (unsigned long)kEncodingUTF8);
  EXPECT_EQ(Bytes(mac), "\xC3\xA9");
  EXPECT_EQ(Bytes(latin2), "\xC3\xA9");

  string ascii("a");
  unsigned short unit = 'b';
  string utf16;
  utf16.ConstructFromUTF16String(&unit, 1);
  EXPECT_EQ(ConvertToSameEncoding(&ascii, &utf16),
            (unsigned long)kEncodingUTF16);
  EXPECT_EQ(ascii.Length(), 2u);
  EXPECT_EQ(ascii.Encoding(), (unsigned long)kEncodingUTF16);
}

TEST(ConvertEncoding, ShortcutsReturnTheSameStorage) {
  string s = Tagged("abc", kLatin1);
  EXPECT_EQ(ConvertEncoding(s, kLatin1).GetStringStorage(),
            s.GetStringStorage());
  EXPECT_EQ(ConvertEncoding(s, kEncodingUnknown).GetStringStorage(),
            s.GetStringStorage());
  string untagged;
  untagged.ConstructFromBuffer("abc", 3);
  EXPECT_EQ(ConvertEncoding(untagged, kEncodingUTF8).GetStringStorage(),
            untagged.GetStringStorage());
  EXPECT_EQ(ConvertEncoding(string(), kEncodingUTF8).GetStringStorage(),
            nullptr);
}

TEST(ConvertEncoding, AsciiTextIsRetaggedNotConverted) {
  string s = Tagged("plain", kLatin1);
  string u = ConvertEncoding(s, kEncodingUTF8);
  EXPECT_EQ(Bytes(u), "plain");
  EXPECT_EQ(u.Encoding(), (unsigned long)kEncodingUTF8);
  string wide = ConvertEncoding(string("ab"), kEncodingUTF16);
  EXPECT_EQ(Bytes(wide), std::string("a\0b\0", 4));
}

TEST(ConvertEncoding, RepeatedConversionIsCachedAndCorrect) {
  string s = Tagged("caf\xE9", kLatin1);
  string first = ConvertEncoding(s, kEncodingUTF8);
  string second = ConvertEncoding(s, kEncodingUTF8);
  EXPECT_EQ(first.GetStringStorage(), second.GetStringStorage());
  s.SetEncoding(kMacRoman);  // retagging must not hit the cache
  string third = ConvertEncoding(s, kEncodingUTF8);
  EXPECT_EQ(Bytes(third), "caf\xC3\x88");  // 0xE9 is E grave in Mac Roman
}

TEST(ConvertEncoding, InvalidByteBecomesOneQuestionMarkAndGoesOn) {
  string bad = Tagged("a\xFF" "b", kEncodingUTF8);
  string latin = ConvertEncoding(bad, kLatin1);
  EXPECT_EQ(Bytes(latin), "a?b");
  EXPECT_EQ(latin.Encoding(), kLatin1);

  string truncated = Tagged("x\xC3", kEncodingUTF8);
  EXPECT_EQ(Bytes(ConvertEncoding(truncated, kLatin1)), "x?");
}

TEST(ConvertEncoding, WideTargetsUseWholeUnits) {
  string bad = Tagged("a\xFF", kEncodingUTF8);
  string utf16 = ConvertEncoding(bad, kEncodingUTF16);
  EXPECT_EQ(Bytes(utf16), std::string("a\0?\0", 4));
  string utf32 = ConvertEncoding(Tagged("\xC3\xA9", kEncodingUTF8),
                                 kEncodingUTF32);
  EXPECT_EQ(Bytes(utf32), std::string("\xE9\0\0\0", 4));  // no byte-order mark
  EXPECT_EQ(Bytes(ConvertEncoding(utf32, kEncodingUTF8)), "\xC3\xA9");
}

TEST(ConvertTextUnix, UnknownNameGivesTheInput) {
  string s = Tagged("abc", 0x7777);
  stringStorage* out = ConvertTextUnix(s.GetStringStorage(), 0x7777,
                                       kEncodingUTF8);
  EXPECT_EQ(out, s.GetStringStorage());
  EXPECT_EQ(out->mRefCount, 2);
  UnlockStringStorage(out);
}

TEST(ConvertTextUnix, UnderscoreNamesFallBackToDashes) {
  string koi = Tagged("\xC1", 2562);  // Cyrillic a in KOI8-R
  EXPECT_EQ(Bytes(ConvertEncoding(koi, kEncodingUTF8)), "\xD0\xB0");
}

TEST(EncodingNames, TableAndSystem) {
  EXPECT_STREQ(GetCodeNameFromEncoding(kEncodingUTF8), "UTF8");
  EXPECT_STREQ(GetCodeNameFromEncoding(1536), "US-ASCII");
  EXPECT_STREQ(GetCodeNameFromEncoding(3074), "CP037");
  EXPECT_EQ(GetCodeNameFromEncoding(12345), nullptr);
  EXPECT_EQ(GetSystemEncoding(), (unsigned long)kEncodingUTF8);
  EXPECT_STREQ(GetCodeNameFromEncoding(kEncodingUnknown), "UTF8");
  EXPECT_EQ(GetKeyboardEncoding(), (unsigned long)kEncodingUTF8);
  int base, variant, format;
  GetEncodingAttributes(kEncodingUTF8, base, variant, format);
  EXPECT_EQ(base, 256);
  EXPECT_EQ(format, 2);
  GetEncodingAttributes(kLatin1, base, variant, format);
  EXPECT_EQ(base, 513);
  EXPECT_EQ(variant, 0);
  EXPECT_EQ(format, 0);
}

TEST(UTF8, EncodeDecodeRoundTrip) {
  unsigned long const codes[] = {0x41, 0x7F, 0x80, 0x7FF, 0x800, 0xFFFF,
                                 0x10000, 0x10FFFF, 0x1FFFFF};
  int const lengths[] = {1, 1, 2, 2, 3, 3, 4, 4, 4};
  for (int i = 0; i < 9; i++) {
    unsigned char buf[5];
    EXPECT_EQ(UTF8Encode(codes[i], buf), lengths[i]);
    EXPECT_EQ(buf[lengths[i]], 0);
    EXPECT_EQ(UTF8Decode(buf), codes[i]);
  }
  unsigned char buf[5] = {1, 1, 1, 1, 1};
  EXPECT_EQ(UTF8Encode(0x200000, buf), 0);
  EXPECT_EQ(buf[0], 0);
}

TEST(UTF8, AdvanceAndBackupStopAtLimits) {
  unsigned char text[] = "a\xC3\xA9\xE2\x82\xAC" "b";  // a e-acute euro b
  unsigned char* end = text + 7;
  unsigned char* p = text;
  AdvanceUTF8(&p, end, 2);
  EXPECT_EQ(p, text + 3);
  AdvanceUTF8(&p, end, 10);
  EXPECT_EQ(p, end);
  BackupUTF8(&p, text, 2);
  EXPECT_EQ(p, text + 3);
  BackupUTF8(&p, text, 10);
  EXPECT_EQ(p, text);
  p = text + 1;
  EXPECT_EQ(UTF8DecodeAndAdvance(&p), 0xE9u);
  EXPECT_EQ(p, text + 3);
}

TEST(UnicodeCase, CharacterMapping) {
  EXPECT_EQ(UnicodeCharToUpper('a'), (unsigned long)'A');
  EXPECT_EQ(UnicodeCharToLower(0xC9), 0xE9u);
  EXPECT_EQ(UnicodeCharToUpper(0x3B1), 0x391u);  // Greek alpha
  EXPECT_EQ(UnicodeCharToLower(0x42F), 0x44Fu);  // Cyrillic ya
  EXPECT_EQ(UnicodeCharToUpper('1'), (unsigned long)'1');
  EXPECT_EQ(UnicodeCharToUpper(0x10061), 0x10061u);  // beyond 16 bits
  EXPECT_EQ(UnicodeCharToLower(0x212A), 0x212Au);    // Kelvin: not a pair
  EXPECT_EQ(UnicodeCharCompare('a', 'A', true), 0);
  EXPECT_EQ(UnicodeCharCompare('a', 'A', false), 1);
  EXPECT_EQ(UnicodeCharCompare('a', 'B', true), -1);
}

TEST(UnicodeCase, Whitespace) {
  for (unsigned long c : {9ul, 13ul, 32ul, 133ul, 160ul, 5760ul, 6158ul,
                          0x2000ul, 0x200Aul, 8232ul, 8233ul, 0x3000ul})
    EXPECT_TRUE(UnicodeCharIsWhitespace(c)) << c;
  for (unsigned long c : {8ul, 14ul, 'a' + 0ul, 0x200Bul})
    EXPECT_FALSE(UnicodeCharIsWhitespace(c)) << c;
}

TEST(UnicodeCase, StringCompares) {
  unsigned char const a[] = "stra\xC3\x9F" "e";
  unsigned char const b[] = "STRA\xC3\x9F" "E";
  EXPECT_EQ(UTF8StringCompare(a, 7, b, 7, true), 0);
  EXPECT_EQ(UTF8StringCompare(a, 7, b, 7, false), 1);
  EXPECT_EQ(UTF8StringCompare(a, 4, b, 7, true), -1);
  unsigned short u[] = {0x3B1, 'x'}, v[] = {0x391, 'X'};
  EXPECT_EQ(UCS2StringCompare(u, 2, v, 2, true), 0);
  EXPECT_NE(UCS2StringCompare(u, 2, v, 2, false), 0);
  EXPECT_EQ(UCS2StringCompare(u, 1, v, 2, true), -1);
}

TEST(UnicodeCase, UTF8Conversions) {
  unsigned char const text[] = "\xC3\xA9t\xC3\xA9 ALPHA \xCE\xB1";
  unsigned long length = strlen((char const*)text);
  unsigned char* out;
  unsigned long outLength;
  UTF8ToUpper(text, length, &out, &outLength);
  EXPECT_STREQ((char*)out, "\xC3\x89T\xC3\x89 ALPHA \xCE\x91");
  EXPECT_EQ(outLength, length);
  free(out);
  UTF8ToLower(text, length, &out, &outLength);
  EXPECT_STREQ((char*)out, "\xC3\xA9t\xC3\xA9 alpha \xCE\xB1");
  free(out);
  UTF8Capitalize(text, length, &out, &outLength);
  EXPECT_STREQ((char*)out, "\xC3\x89t\xC3\xA9 Alpha \xCE\x91");
  free(out);
}

TEST(UnicodeCase, UpperCaseThatGrowsStaysInBounds) {
  // U+0250 (2 bytes) upper-cases to U+2C6F (3 bytes).
  std::string text;
  for (int i = 0; i < 100; i++) text += "\xC9\x90";
  unsigned char* out;
  unsigned long outLength;
  UTF8ToUpper((unsigned char const*)text.data(), text.size(), &out,
              &outLength);
  EXPECT_EQ(outLength, 300u);
  EXPECT_EQ(memcmp(out, "\xE2\xB1\xAF", 3), 0);
  EXPECT_EQ(out[outLength], 0);
  free(out);
}

TEST(UnicodeCase, UCS2InPlaceAndCaseless) {
  unsigned short units[] = {'h', 'I', ' ', 0x3B1, 'B'};
  UCS2Capitalize(units, 5);
  unsigned short expected[] = {'H', 'i', ' ', 0x391, 'b'};
  EXPECT_EQ(memcmp(units, expected, sizeof units), 0);
  UCS2ToLower(units, 5);
  EXPECT_EQ(units[0], 'h');
  UCS2ToUpper(units, 5);
  EXPECT_EQ(units[4], 'B');
  EXPECT_TRUE(UTF8IsCaseless((unsigned char const*)"123 +-", 6));
  EXPECT_FALSE(UTF8IsCaseless((unsigned char const*)"12a", 3));
  EXPECT_TRUE(UTF8IsCaseless((unsigned char const*)"\xE2\x82\xAC", 3));
}
