// Strings (whose storage record is shared with generated code and the host)
// and the byte helpers.
#include <gtest/gtest.h>
#include <locale.h>
#include <stdint.h>
#include <string.h>

#include "Universal/ByteHelpers.h"
#include "Universal/Encodings.h"
#include "Universal/ustring.h"

namespace {

const unsigned long kLatin1 = 513;

uint32_t Word(stringStorage* s, int offset) {
  uint32_t value;
  memcpy(&value, reinterpret_cast<char*>(s) + offset, 4);
  return value;
}

string Tagged(char const* bytes, unsigned long tag) {
  string s(bytes);
  s.SetEncoding(tag);
  return s;
}

TEST(StringStorage, LayoutOfTheRecord) {
  stringStorage* s = NewStringStorage("hello", 5, kEncodingUTF8);
  EXPECT_EQ(Word(s, 0), 1u);  // reference count
  unsigned char* pascal = reinterpret_cast<unsigned char*>(Word(s, 4));
  uintptr_t offset = pascal - reinterpret_cast<unsigned char*>(s);
  EXPECT_TRUE(offset == 20 || offset == 21);
  EXPECT_EQ(reinterpret_cast<uintptr_t>(pascal) % 2, 0u);
  EXPECT_EQ(Word(s, 8), 5u + 5);  // capacity
  EXPECT_EQ(Word(s, 12), 5u);     // length
  EXPECT_EQ(Word(s, 16), (uint32_t)kEncodingUTF8);
  EXPECT_EQ(pascal[0], 5);
  EXPECT_EQ(memcmp(pascal + 1, "hello", 5), 0);
  EXPECT_EQ(Word(s, (int)offset + 1 + 5), 0u);  // 32-bit terminator
  UnlockStringStorage(s);
}

TEST(StringStorage, LengthByteSaturatesAt255) {
  char text[300];
  memset(text, 'x', sizeof text);
  string s;
  for (int length : {254, 255, 300}) {
    s.ConstructFromBuffer(text, length);
    EXPECT_EQ(s.PString()[0], length > 255 ? 255 : length);
  }
  EXPECT_EQ(s.GetStringStorage()->mLength, 300u);
  EXPECT_EQ(s.GetStringStorage()->mCapacity, 305u);
}

TEST(StringStorage, NilStringBehaviourAndConstructorTags) {
  string fromEmpty(""), fromNull((char const*)0), fromDefault, buffer;
  for (string const* s : {&fromEmpty, &fromNull, &fromDefault}) {
    EXPECT_EQ(s->GetStringStorage(), nullptr);
    EXPECT_STREQ(s->CString(), "");
    EXPECT_EQ(s->PString()[0], 0);
    EXPECT_EQ(s->Encoding(), (unsigned long)kEncodingASCII);
  }
  fromDefault.SetEncoding(kEncodingUTF8);  // no effect, no crash
  EXPECT_EQ(fromDefault.Encoding(), (unsigned long)kEncodingASCII);
  buffer.ConstructFromBuffer("raw", 3);
  EXPECT_EQ(buffer.Encoding(), (unsigned long)kEncodingUnknown);
  unsigned char pascal[] = "\x03xyz";
  EXPECT_STREQ(string(pascal).CString(), "xyz");
  string s("abcdef");
  s.ConstructFromBuffer(s.CString() + 2, 3);  // may read its own text
  EXPECT_STREQ(s.CString(), "cde");
  unsigned short units[] = {'o', 'k', 0x263A};
  string utf16;
  utf16.ConstructFromUTF16String(units, 3);
  EXPECT_EQ(utf16.Encoding(), (unsigned long)kEncodingUTF16);
  EXPECT_EQ(utf16.Length(), 6u);
  EXPECT_EQ(utf16.WLength(), 3u);
  string wide;
  wide.ConstructFromWString(L"hi", 2);
  EXPECT_EQ(wide.Encoding(), (unsigned long)kEncodingUTF32);
  EXPECT_EQ(wide.Length(), 8u);
}

TEST(StringStorage, SharingCountsReferences) {
  string a("shared");
  stringStorage* storage = a.GetStringStorage();
  {
    string b = a;
    string c(storage);
    EXPECT_EQ(storage->mRefCount, 3);
  }
  EXPECT_EQ(storage->mRefCount, 1);
  string adopted;
  adopted.AdoptReference(a.ExtractStringStorage());
  EXPECT_EQ(storage->mRefCount, 2);
  a = a;  // self-assignment keeps the storage alive
  EXPECT_STREQ(a.CString(), "shared");
  LockStringStorage(nullptr);
  UnlockStringStorage(nullptr);
}

TEST(StringStorage, MutableCharCopiesSharedStorageAndChecksTheIndex) {
  string a = Tagged("hello", kEncodingUTF8);
  string b = a;
  b.MutableChar(0) = 'j';
  EXPECT_STREQ(a.CString(), "hello");
  EXPECT_STREQ(b.CString(), "jello");
  EXPECT_EQ(b.Encoding(), (unsigned long)kEncodingUnknown);
  stringStorage* own = b.GetStringStorage();
  b.MutableChar(1) = 'E';  // sole owner: written in place
  EXPECT_EQ(b.GetStringStorage(), own);
  string nil;
  nil.MutableChar(0) = 'x';
  EXPECT_EQ(nil.Length(), 0u);
  EXPECT_EXIT(nil.MutableChar(1), testing::ExitedWithCode(1), "");
  EXPECT_EXIT(a.MutableChar(5), testing::ExitedWithCode(1), "");
  EXPECT_EXIT(a.MutableChar(-1), testing::ExitedWithCode(1), "");
  EXPECT_EXIT(a.WString(), testing::ExitedWithCode(1), "");
}

TEST(StringStorage, UnicodeCharForms) {
  EXPECT_STREQ(UnicodeChar(0xE9, kEncodingUTF8).CString(), "\xC3\xA9");
  string utf16 = UnicodeChar(0x263A, kEncodingUTF16);
  EXPECT_EQ(utf16.Length(), 3u);
  EXPECT_EQ((unsigned char)utf16[0], 0x3A);
  string latin1 = UnicodeChar(0xE9, kLatin1);
  EXPECT_EQ(latin1.Length(), 1u);
  EXPECT_EQ((unsigned char)latin1[0], 0xE9);
}

TEST(StringSlices, LeftRightMidShareTheWholeAndClamp) {
  string s = Tagged("abcdef", kEncodingUTF8);
  for (string const& whole : {left(s, 6), left(s, 100), right(s, 6), mid(s, 0),
                              mid(s, -2), mid(s, 0, 6)})
    EXPECT_EQ(whole.GetStringStorage(), s.GetStringStorage());
  struct { string got; char const* want; } rows[] = {
      {left(s, 0), ""}, {left(s, -3), ""}, {left(s, 2), "ab"},
      {right(s, 2), "ef"}, {right(s, 0), ""}, {mid(s, 4), "ef"},
      {mid(s, 6), ""}, {mid(s, 1, 3), "bcd"}, {mid(s, -1, 3), "ab"},
      {mid(s, -3, 3), ""}, {mid(s, 2, 0), ""}, {mid(s, 6, 1), ""},
      {mid(s, 4, 10), "ef"}};
  for (auto const& row : rows) EXPECT_STREQ(row.got.CString(), row.want);
  EXPECT_EQ(left(s, 2).Encoding(), (unsigned long)kEncodingUTF8);
}

TEST(StringSlices, TrimsDropOnlyBlanksAndTabs) {
  string s(" \t x y \t ");
  EXPECT_STREQ(trim(s).CString(), "x y");
  EXPECT_STREQ(ltrim(s).CString(), "x y \t ");
  EXPECT_STREQ(rtrim(s).CString(), " \t x y");
  EXPECT_STREQ(trim(string("\nx\r")).CString(), "\nx\r");
  string clean("clean");
  EXPECT_EQ(trim(clean).GetStringStorage(), clean.GetStringStorage());
}

TEST(StringConcat, EncodingsOfTheSum) {
  string a("abc"), nil;
  EXPECT_EQ((a + nil).GetStringStorage(), a.GetStringStorage());
  EXPECT_EQ((nil + a).GetStringStorage(), a.GetStringStorage());
  string sum = Tagged("caf\xE9", kLatin1) + Tagged("\xE2\x82\xAC", kEncodingUTF8);
  EXPECT_EQ(sum.Encoding(), (unsigned long)kEncodingUTF8);
  EXPECT_STREQ(sum.CString(), "caf\xC3\xA9\xE2\x82\xAC");
  EXPECT_EQ((string("x") + Tagged("\xE9", kLatin1)).Encoding(), kLatin1);
  nil += "abc";
  EXPECT_EQ(nil.Encoding(), (unsigned long)kEncodingASCII);
  EXPECT_EQ((Tagged("x", kEncodingUTF8) + 'y').Encoding(), (unsigned long)kEncodingUTF8);
  EXPECT_EQ((string("x") + (char)0xE9).Encoding(), (unsigned long)kEncodingUnknown);
}

TEST(StringCompare, EqualityIgnoresCaseOrderingIsSigned) {
  string a("Hello"), b("hELLO");
  EXPECT_TRUE(a == b);
  EXPECT_NE(a.CompareWithCase(b), 0);
  EXPECT_TRUE(a != "HELL");
  EXPECT_TRUE(string("ab") < string("abc"));
  EXPECT_TRUE(string("ABC") > string("ab"));
  EXPECT_EQ(string().Compare(string("a")), -1);
  EXPECT_EQ(string("a\x80").CompareWithCase(string("aab")), -1);
  string x, y, z;
  x.ConstructFromBuffer("ab\0xy", 5);
  y.ConstructFromBuffer("ab\0zz", 5);
  z.ConstructFromBuffer("ab\0zzz", 6);
  EXPECT_TRUE(x == y) << "equal lengths stop at a NUL";
  EXPECT_FALSE(x == z);
  EXPECT_TRUE(Tagged("caf\xE9", kLatin1) == Tagged("CAF\xC3\xA9", kEncodingUTF8));
}

TEST(StringEncodingViews, UTF8UTF16AndAsciiOnly) {
  string utf8 = Tagged("x", kEncodingUTF8);
  EXPECT_EQ(utf8.GetUTF8String().GetStringStorage(), utf8.GetStringStorage());
  string untagged;
  untagged.ConstructFromBuffer("\xC3\xA9", 2);  // the system encoding: UTF-8
  string utf16 = untagged.GetUTF16String();
  ASSERT_EQ(utf16.Length(), 2u);
  EXPECT_EQ((unsigned char)utf16[0], 0xE9);
  EXPECT_TRUE(string("plain").ContainsOnlyASCII());
  EXPECT_FALSE(Tagged("caf\xC3\xA9", kEncodingUTF8).ContainsOnlyASCII());
  EXPECT_FALSE(utf16.ContainsOnlyASCII());
}

TEST(ByteHelpers, PrimitivesAndSignedComparisons) {
  EXPECT_EQ(ustrlen(nullptr), 0u);
  char buffer[16] = "ab";
  char* cursor = buffer;
  ustrcat(&cursor, "cd");
  EXPECT_EQ(cursor, buffer + 4);
  char overlap[8] = "abcdef";
  umemcpy(overlap + 1, overlap, 5);
  EXPECT_STREQ(overlap, "aabcde");
  EXPECT_EQ(ustrcmpi("abcd", "ABC"), 1);
  EXPECT_EQ(ustrcmp("abc", "ABC"), 1);
  EXPECT_EQ(ustrcmp("\x80", "a"), -1);  // signed: 0x80 is negative
  EXPECT_EQ(ustrcmpi("\x8A", "\x80"), 0) << "Mac Roman a umlaut folds";
  EXPECT_EQ(upperMap[0xF5], 0x49);
  EXPECT_EQ(ustrcmpi(nullptr, ""), 0);
}

TEST(ByteHelpers, NumbersFromAndToText) {
  EXPECT_EQ(uatol("  42xyz"), 42);
  EXPECT_EQ(uatol("-17"), -17);
  EXPECT_EQ(uatol("x1"), 0);
  EXPECT_EQ(uatol("12345", 3), 123);
  char const* previous = setlocale(LC_NUMERIC, "de_DE.UTF-8");
  EXPECT_DOUBLE_EQ(uatod("2.5"), 2.5) << "the locale is ignored";
  if (previous) setlocale(LC_NUMERIC, "C");
  EXPECT_STREQ(ulltoa(-9000000000LL).CString(), "-9000000000");
  EXPECT_STREQ(uulltoa(18446744073709551615ULL).CString(), "18446744073709551615");
  EXPECT_STREQ(ultohexa(255).CString(), "000000FF");
  EXPECT_STREQ(udtoa(1.5, true).CString(), "1.500000e+00");
  EXPECT_STREQ(udtoa(1.0 / 0.0, false).CString(), "0");
}

TEST(NetworkOrder, FourCharCodesAndBits) {
  EXPECT_STREQ(FourCharCodeToString(0x54455854).CString(), "TEXT");
  EXPECT_EQ(StringToFourCharCode(string("TEXT")), 0x54455854u);
  string s = WriteShortAsBits(static_cast<short>(0x1234));
  EXPECT_EQ((unsigned char)s[0], 0x12);
  EXPECT_EQ(ReadShortAsBits(WriteShortAsBits(-2)), -2);
  string l = WriteLongAsBits(0x01000000);
  ASSERT_EQ(l.Length(), 4u);
  EXPECT_EQ((unsigned char)l[0], 0x01);
  EXPECT_EQ(ReadLongAsBits(WriteLongAsBits(-5)), -5);
}

}  // namespace
