// Encoding tags, conversion, UTF-8 coding and Unicode case mapping.
#include <gtest/gtest.h>
#include <stdlib.h>
#include <string.h>

#include "Universal/Encodings.h"
#include "Universal/ustring.h"

namespace {

const unsigned long kLatin1 = 513, kMacRoman = 0, kUTF8 = kEncodingUTF8,
                    kUTF16 = kEncodingUTF16, kASCII = kEncodingASCII,
                    kUnknown = kEncodingUnknown;

string Tagged(char const* bytes, unsigned long tag) {
  string s(bytes);
  s.SetEncoding(tag);
  return s;
}

std::string Bytes(string const& s) { return std::string(s.CString(), s.Length()); }

TEST(CommonEncoding, Rules) {
  struct { unsigned long a, b; bool convert; unsigned long result; } rows[] = {
      {kLatin1, kLatin1, false, kLatin1}, {kASCII, kUTF8, false, kUTF8},
      {kASCII, kUTF16, false, kUnknown}, {kASCII, kLatin1, false, kLatin1},
      {kMacRoman, kASCII, false, kMacRoman}, {kLatin1, kMacRoman, false, kUnknown},
      {kLatin1, kMacRoman, true, kUTF8}, {kLatin1, kUTF16, true, kUTF16},
      {kUTF8, kUTF16, true, kUTF8}};
  for (auto const& r : rows)
    EXPECT_EQ(CommonEncoding(r.a, r.b, r.convert), r.result) << r.a << " " << r.b;
}

TEST(ConvertToSameEncoding, NilUnknownAndFallbackTargets) {
  string nil1, nil2, untagged, latin = Tagged("\xE9", kLatin1);
  EXPECT_EQ(ConvertToSameEncoding(&nil1, &nil2), kASCII);
  EXPECT_EQ(ConvertToSameEncoding(&nil1, &latin), kLatin1);
  untagged.ConstructFromBuffer("x", 1);
  string utf8 = Tagged("y", kUTF8);
  EXPECT_EQ(ConvertToSameEncoding(&untagged, &utf8), kUnknown);
  string mac = Tagged("\x8E", kMacRoman);  // e acute in Mac Roman
  EXPECT_EQ(ConvertToSameEncoding(&mac, &latin), kUTF8);
  EXPECT_EQ(Bytes(mac), "\xC3\xA9");
  EXPECT_EQ(Bytes(latin), "\xC3\xA9");
}

TEST(ConvertEncoding, ShortcutsRetaggingAndCache) {
  string s = Tagged("caf\xE9", kLatin1);
  EXPECT_EQ(ConvertEncoding(s, kLatin1).GetStringStorage(), s.GetStringStorage());
  EXPECT_EQ(ConvertEncoding(s, kUnknown).GetStringStorage(), s.GetStringStorage());
  EXPECT_EQ(ConvertEncoding(string(), kUTF8).GetStringStorage(), nullptr);
  string u = ConvertEncoding(Tagged("plain", kLatin1), kUTF8);
  EXPECT_EQ(Bytes(u), "plain");
  EXPECT_EQ(u.Encoding(), kUTF8);
  EXPECT_EQ(Bytes(ConvertEncoding(string("ab"), kUTF16)), std::string("a\0b\0", 4));
  string first = ConvertEncoding(s, kUTF8);
  EXPECT_EQ(first.GetStringStorage(), ConvertEncoding(s, kUTF8).GetStringStorage());
  s.SetEncoding(kMacRoman);  // retagging must not hit the cache
  EXPECT_EQ(Bytes(ConvertEncoding(s, kUTF8)), "caf\xC3\x88");
}

TEST(ConvertEncoding, InvalidBytesBecomeOneReplacementUnitEach) {
  string latin = ConvertEncoding(Tagged("a\xFF" "b", kUTF8), kLatin1);
  EXPECT_EQ(Bytes(latin), "a?b");
  EXPECT_EQ(latin.Encoding(), kLatin1);
  EXPECT_EQ(Bytes(ConvertEncoding(Tagged("x\xC3", kUTF8), kLatin1)), "x?");
  EXPECT_EQ(Bytes(ConvertEncoding(Tagged("a\xFF", kUTF8), kUTF16)),
            std::string("a\0?\0", 4));
  string utf32 = ConvertEncoding(Tagged("\xC3\xA9", kUTF8), kEncodingUTF32);
  EXPECT_EQ(Bytes(utf32), std::string("\xE9\0\0\0", 4));  // no byte-order mark
  EXPECT_EQ(Bytes(ConvertEncoding(utf32, kUTF8)), "\xC3\xA9");
}

TEST(ConvertTextUnix, UnknownNamesAndUnderscoreFallback) {
  string s = Tagged("abc", 0x7777);
  stringStorage* out = ConvertTextUnix(s.GetStringStorage(), 0x7777, kUTF8);
  EXPECT_EQ(out, s.GetStringStorage());
  EXPECT_EQ(out->mRefCount, 2);
  UnlockStringStorage(out);
  EXPECT_EQ(Bytes(ConvertEncoding(Tagged("\xC1", 2562), kUTF8)), "\xD0\xB0");  // KOI8-R
  EXPECT_STREQ(GetCodeNameFromEncoding(3074), "CP037");
  EXPECT_EQ(GetCodeNameFromEncoding(12345), nullptr);
  EXPECT_EQ(GetSystemEncoding(), kUTF8);
}

// Where iconv has no UTF-16 converter the text converts without it, and
// must come out as iconv's does: supplementary characters as surrogate
// pairs, a malformed byte as one "?" unit.
TEST(ConvertWithoutIconv, AgreesWithIconv) {
  char const* const texts[] = {"", "plain", "h\xC3\xA9llo \xE2\x82\xAC",
                               "clef \xF0\x9D\x84\x9E!", "a\xFF" "b", "cut\xE2\x82"};
  for (char const* text : texts) {
    string utf8 = Tagged(text, kUTF8);
    ASSERT_TRUE(ConvertsWithoutIconv(kUTF8, kUTF16));
    stringStorage* mine = ConvertWithoutIconv(utf8.GetStringStorage(), kUTF8, kUTF16);
    stringStorage* theirs = ConvertTextUnix(utf8.GetStringStorage(), kUTF8, kUTF16);
    string wide, reference;
    wide.AdoptReference(mine);
    reference.AdoptReference(theirs);
    EXPECT_EQ(Bytes(wide), Bytes(reference)) << text;
    EXPECT_EQ(wide.Encoding(), kUTF16);
    string back;
    back.AdoptReference(ConvertWithoutIconv(reference.GetStringStorage(), kUTF16, kUTF8));
    string iconvBack = ConvertEncoding(reference, kUTF8);
    EXPECT_EQ(Bytes(back), Bytes(iconvBack)) << text;
  }
  string lone;
  lone.ConstructFromBuffer("\x3D\xD8" "a\0b", 5);
  lone.SetEncoding(kUTF16);
  string fixed;
  fixed.AdoptReference(ConvertWithoutIconv(lone.GetStringStorage(), kUTF16, kUTF8));
  EXPECT_EQ(Bytes(fixed), "?a?");
  EXPECT_FALSE(ConvertsWithoutIconv(kLatin1, kUTF16));
  EXPECT_FALSE(ConvertsWithoutIconv(kUTF16, kASCII));
}

TEST(GetEncodingFromName, IconvAndCommonSpellings) {
  struct { char const* name; unsigned long tag; } rows[] = {
      {"UTF-8", kUTF8},         {"utf8", kUTF8},        {"ISO-8859-1", kLatin1},
      {"iso_8859-1", kLatin1},  {"Latin 1", kLatin1},   {"UTF-16", kUTF16},
      {"ascii", kASCII},        {"US-ASCII", kASCII},   {"MacRoman", kMacRoman},
      {"KOI8-R", 2562},         {"Windows-1252", 1280}, {"CP037", 3073},
      {"ISO-8859-15:1998", 527}, {"Klingon", kUnknown}, {"", kUnknown},
      {"--", kUnknown}};
  for (auto const& r : rows)
    EXPECT_EQ(GetEncodingFromName(string(r.name)), r.tag) << r.name;
}

// A text too long to convert in memory gives nil, not a failed assertion:
// its bytes are never read.
TEST(ConvertTextUnix, TextPastTheHeapGivesNil) {
  stringStorage huge = {1, nullptr, 0, 0x7FFFFFF0u, kLatin1};
  EXPECT_EQ(ConvertTextUnix(&huge, kLatin1, kUTF8), nullptr);
  EXPECT_EQ(huge.mRefCount, 1);
}

TEST(UTF8, EncodeDecodeAdvanceBackup) {
  unsigned long const codes[] = {0x7F, 0x80, 0x7FF, 0x800, 0xFFFF, 0x10000, 0x1FFFFF};
  int const lengths[] = {1, 2, 2, 3, 3, 4, 4};
  for (int i = 0; i < 7; i++) {
    unsigned char buf[5];
    EXPECT_EQ(UTF8Encode(codes[i], buf), lengths[i]);
    EXPECT_EQ(UTF8Decode(buf), codes[i]);
  }
  unsigned char buf[5] = {1, 1, 1, 1, 1};
  EXPECT_EQ(UTF8Encode(0x200000, buf), 0);
  unsigned char text[] = "a\xC3\xA9\xE2\x82\xAC" "b";
  unsigned char* p = text;
  AdvanceUTF8(&p, text + 7, 2);
  EXPECT_EQ(p, text + 3);
  AdvanceUTF8(&p, text + 7, 10);
  EXPECT_EQ(p, text + 7);
  BackupUTF8(&p, text, 10);
  EXPECT_EQ(p, text);
}

TEST(UnicodeCase, CharactersAndWhitespace) {
  EXPECT_EQ(UnicodeCharToUpper(0x3B1), 0x391u);
  EXPECT_EQ(UnicodeCharToLower(0x42F), 0x44Fu);
  EXPECT_EQ(UnicodeCharToUpper(0x10061), 0x10061u);  // beyond 16 bits
  EXPECT_EQ(UnicodeCharToLower(0x212A), 0x212Au);    // Kelvin: not a pair
  EXPECT_EQ(UnicodeCharCompare('a', 'A', false), 1);
  for (unsigned long c : {9ul, 133ul, 160ul, 5760ul, 6158ul, 0x200Aul, 8233ul, 0x3000ul})
    EXPECT_TRUE(UnicodeCharIsWhitespace(c)) << c;
  for (unsigned long c : {8ul, 14ul, 0x200Bul}) EXPECT_FALSE(UnicodeCharIsWhitespace(c)) << c;
  unsigned char const a[] = "stra\xC3\x9F" "e", b[] = "STRA\xC3\x9F" "E";
  EXPECT_EQ(UTF8StringCompare(a, 7, b, 7, true), 0);
  EXPECT_EQ(UTF8StringCompare(a, 4, b, 7, true), -1);
  unsigned short u[] = {0x3B1, 'x'}, v[] = {0x391, 'X'};
  EXPECT_EQ(UCS2StringCompare(u, 2, v, 2, true), 0);
}

TEST(UnicodeCase, StringConversions) {
  unsigned char const text[] = "\xC3\xA9t\xC3\xA9 ALPHA \xCE\xB1";
  unsigned char* out;
  unsigned long n;
  UTF8Capitalize(text, strlen((char const*)text), &out, &n);
  EXPECT_STREQ((char*)out, "\xC3\x89t\xC3\xA9 Alpha \xCE\x91");
  free(out);
  std::string grows;  // U+0250 (2 bytes) upper-cases to U+2C6F (3 bytes)
  for (int i = 0; i < 100; i++) grows += "\xC9\x90";
  UTF8ToUpper((unsigned char const*)grows.data(), grows.size(), &out, &n);
  EXPECT_EQ(n, 300u);
  EXPECT_EQ(memcmp(out, "\xE2\xB1\xAF", 3), 0);
  EXPECT_EQ(out[n], 0);
  free(out);
  unsigned short units[] = {'h', 'I', ' ', 0x3B1, 'B'};
  UCS2Capitalize(units, 5);
  unsigned short expected[] = {'H', 'i', ' ', 0x391, 'b'};
  EXPECT_EQ(memcmp(units, expected, sizeof units), 0);
  EXPECT_TRUE(UTF8IsCaseless((unsigned char const*)"\xE2\x82\xAC", 3));
  EXPECT_FALSE(UTF8IsCaseless((unsigned char const*)"12a", 3));
}

}  // namespace
