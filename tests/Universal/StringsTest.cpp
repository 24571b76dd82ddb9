// Strings (whose storage record is shared with generated code and the host)
// and the byte helpers.
#include <gtest/gtest.h>
#include <locale.h>
#include <stdint.h>
#include <string.h>

#include <string>

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

// Sums whose length a script decides: past the length field, or past what
// the heap can give, the sum is nil and nothing is copied. The sides are
// records that claim lengths they do not have, so that nothing large is
// ever allocated; only their headers are read.
TEST(StringStorage, SumsThatCannotBeStoredAreNilBeforeAnyCopy) {
  stringStorage* small = NewStringStorage("ab", 2, kEncodingASCII);
  stringStorage huge = *small;
  huge.mLength = 0xC0000000u;
  EXPECT_EQ(ConcatenateStorages(&huge, &huge), nullptr) << "past 32 bits";
  stringStorage longest = *small;
  longest.mLength = kLongestStringLength;
  EXPECT_EQ(ConcatenateStorages(&longest, small), nullptr) << "one byte over";
  EXPECT_EQ(TryNewStringStorage(nullptr, kLongestStringLength + 1,
                                kEncodingASCII), nullptr);
  stringStorage* sum = ConcatenateStorages(small, small);
  ASSERT_NE(sum, nullptr);
  EXPECT_EQ(std::string(sum->CString(), sum->mLength), "abab");
  EXPECT_EQ(small->mRefCount, 1) << "no side was locked by the failed sums";
  FreeStringStorage(sum);
  FreeStringStorage(small);
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
}

TEST(StringStorage, NilStringsAndConstructorTags) {
  string fromEmpty(""), fromNull((char const*)0), buffer;
  for (string const* s : {&fromEmpty, &fromNull}) {
    EXPECT_EQ(s->GetStringStorage(), nullptr);
    EXPECT_STREQ(s->CString(), "");
    EXPECT_EQ(s->Encoding(), (unsigned long)kEncodingASCII);
  }
  buffer.ConstructFromBuffer("raw", 3);
  EXPECT_EQ(buffer.Encoding(), (unsigned long)kEncodingUnknown);
  string s("abcdef");
  s.ConstructFromBuffer(s.CString() + 2, 3);  // may read its own text
  EXPECT_STREQ(s.CString(), "cde");
}

TEST(StringStorage, MutableCharCopiesSharedStorageAndChecksTheIndex) {
  string a = Tagged("hello", kEncodingUTF8);
  string b = a;
  b.MutableChar(0) = 'j';
  EXPECT_STREQ(a.CString(), "hello");
  EXPECT_STREQ(b.CString(), "jello");
  EXPECT_EQ(b.Encoding(), (unsigned long)kEncodingUnknown);
  EXPECT_EXIT(a.MutableChar(5), testing::ExitedWithCode(1), "");
  EXPECT_EXIT(a.MutableChar(-1), testing::ExitedWithCode(1), "");
}

TEST(StringSlices, LeftRightMidShareTheWholeAndClamp) {
  string s = Tagged("abcdef", kEncodingUTF8);
  for (string const& whole : {left(s, 100), right(s, 6), mid(s, -2)})
    EXPECT_EQ(whole.GetStringStorage(), s.GetStringStorage());
  struct { string got; char const* want; } rows[] = {
      {left(s, -3), ""}, {left(s, 2), "ab"}, {right(s, 2), "ef"},
      {mid(s, 6), ""}, {mid(s, -1, 3), "ab"}, {mid(s, -3, 3), ""},
      {mid(s, 6, 1), ""}, {mid(s, 4, 10), "ef"}};
  for (auto const& row : rows) EXPECT_STREQ(row.got.CString(), row.want);
  EXPECT_EQ(left(s, 2).Encoding(), (unsigned long)kEncodingUTF8);
}

TEST(StringSlices, TrimsDropOnlyBlanksAndTabs) {
  EXPECT_STREQ(trim(string(" \t x y \t ")).CString(), "x y");
  EXPECT_STREQ(trim(string("\nx\r")).CString(), "\nx\r");
}

TEST(StringConcat, EncodingsOfTheSum) {
  string a("abc"), nil;
  EXPECT_EQ((a + nil).GetStringStorage(), a.GetStringStorage());
  string sum = Tagged("caf\xE9", kLatin1) + Tagged("\xE2\x82\xAC", kEncodingUTF8);
  EXPECT_EQ(sum.Encoding(), (unsigned long)kEncodingUTF8);
  EXPECT_STREQ(sum.CString(), "caf\xC3\xA9\xE2\x82\xAC");
  EXPECT_EQ((string("x") + Tagged("\xE9", kLatin1)).Encoding(), kLatin1);
  EXPECT_EQ((string("x") + (char)0xE9).Encoding(), (unsigned long)kEncodingUnknown);
}

// The joined name carries the tag the two sums would give it, and text
// that is not UTF-8 goes through the sums themselves.
TEST(StringConcat, JoinAroundIsTheTwoSums) {
  string method("Main"), local = Tagged("caf\xC3\xA9", kEncodingUTF8);
  string joined = JoinAround(method, '.', string("total"));
  EXPECT_STREQ(joined.CString(), "Main.total");
  EXPECT_EQ(joined.Encoding(), (unsigned long)kEncodingASCII);
  joined = JoinAround(method, ' ', local);
  EXPECT_STREQ(joined.CString(), "Main caf\xC3\xA9");
  EXPECT_EQ(joined.Encoding(), (unsigned long)kEncodingUTF8);
  string latin = Tagged("caf\xE9", kLatin1);
  joined = JoinAround(latin, '.', local);
  string summed = latin + string(".") + local;
  EXPECT_STREQ(joined.CString(), summed.CString());
  EXPECT_EQ(joined.Encoding(), summed.Encoding());
  EXPECT_STREQ(JoinAround(string(), '.', method).CString(), ".Main");
}

TEST(StringCompare, EqualityIgnoresCaseOrderingIsSigned) {
  string a("Hello"), b("hELLO");
  EXPECT_TRUE(a == b);
  EXPECT_NE(a.CompareWithCase(b), 0);
  EXPECT_EQ(string().Compare(string("a")), -1);
  EXPECT_EQ(string("a\x80").CompareWithCase(string("aab")), -1);
  string x, y;
  x.ConstructFromBuffer("ab\0xy", 5);
  y.ConstructFromBuffer("ab\0zz", 5);
  EXPECT_TRUE(x == y) << "equal lengths stop at a NUL";
  EXPECT_TRUE(Tagged("caf\xE9", kLatin1) == Tagged("CAF\xC3\xA9", kEncodingUTF8));
}

TEST(ByteHelpers, SignedComparisonsAndMacRomanFolding) {
  char overlap[8] = "abcdef";
  umemcpy(overlap + 1, overlap, 5);
  EXPECT_STREQ(overlap, "aabcde");
  EXPECT_EQ(ustrcmp("\x80", "a"), -1);  // signed: 0x80 is negative
  EXPECT_EQ(ustrcmpi("\x8A", "\x80"), 0) << "Mac Roman a umlaut folds";
}

TEST(ByteHelpers, NumbersFromAndToText) {
  EXPECT_EQ(uatol("  42xyz"), 42);
  EXPECT_EQ(uatol("12345", 3), 123);
  char const* previous = setlocale(LC_NUMERIC, "de_DE.UTF-8");
  EXPECT_DOUBLE_EQ(uatod("2.5"), 2.5) << "the locale is ignored";
  if (previous) setlocale(LC_NUMERIC, "C");
  EXPECT_STREQ(ulltoa(-9000000000LL).CString(), "-9000000000");
  EXPECT_STREQ(ultohexa(255).CString(), "000000FF");
  EXPECT_STREQ(udtoa(1.5, true).CString(), "1.500000e+00");
  EXPECT_STREQ(udtoa(1.0 / 0.0, false).CString(), "0");
}

TEST(NetworkOrder, FourCharCodesAndBits) {
  EXPECT_EQ(StringToFourCharCode(string("TEXT")), 0x54455854u);
  EXPECT_EQ((unsigned char)WriteShortAsBits(static_cast<short>(0x1234))[0], 0x12);
  EXPECT_EQ(ReadLongAsBits(WriteLongAsBits(-5)), -5);
}

}  // namespace
