// The string entry points as generated code uses them: counts, the sum,
// structure fields and the external-call conversions.
#include <gtest/gtest.h>

#include <string.h>

#include <string>

#include "Common/RuntimeStringFoundation.h"
#include "Universal/Encodings.h"

namespace {

stringStorage* Make(char const* text, unsigned long tag = kEncodingASCII) {
  return NewStringStorage(text, strlen(text), tag);
}

std::string Text(stringStorage* s) {
  return s ? std::string(s->CString(), s->mLength) : std::string();
}

}  // namespace

TEST(RuntimeStringCounts, LockUnlockAndAssignment) {
  stringStorage* s = Make("abc");
  RuntimeLockString(s);
  EXPECT_EQ(s->mRefCount, 2);
  RuntimeLockUnlockStrings(s, s);
  EXPECT_EQ(s->mRefCount, 2) << "a = a changes nothing";
  stringStorage* t = Make("xyz");
  RuntimeLockUnlockStrings(t, s);
  EXPECT_EQ(t->mRefCount, 2);
  EXPECT_EQ(s->mRefCount, 1);
  RuntimeLockString(nullptr);
  RuntimeUnlockString(nullptr);
  RuntimeLockUnlockStrings(nullptr, t);
  EXPECT_EQ(t->mRefCount, 1);
  RuntimeUnlockString(s);
  RuntimeUnlockString(t);
}

TEST(RuntimeStringSum, NilAndSharedSides) {
  EXPECT_EQ(RuntimeAddString(nullptr, nullptr), nullptr);
  stringStorage* a = Make("abc");
  stringStorage* sum = RuntimeAddString(a, nullptr);
  EXPECT_EQ(sum, a);
  EXPECT_EQ(a->mRefCount, 2);
  RuntimeUnlockString(sum);
  sum = RuntimeAddString(nullptr, a);
  EXPECT_EQ(sum, a);
  RuntimeUnlockString(sum);
  EXPECT_EQ(a->mRefCount, 1);
  RuntimeUnlockString(a);
}

TEST(RuntimeStringSum, JoinsAcrossEncodings) {
  stringStorage* latin = Make("caf\xE9", 513);
  stringStorage* utf8 = Make(" \xC3\xA0", kEncodingUTF8);
  stringStorage* sum = RuntimeAddString(latin, utf8);
  EXPECT_EQ(Text(sum), "caf\xC3\xA9 \xC3\xA0");
  EXPECT_EQ(sum->mEncoding, (uint32_t)kEncodingUTF8);
  EXPECT_EQ(sum->mRefCount, 1);
  EXPECT_EQ(utf8->mRefCount, 1);  // the converted side may stay cached
  for (stringStorage* s : {latin, utf8, sum}) RuntimeUnlockString(s);
}

TEST(RuntimeStringCompare, IgnoresCase) {
  stringStorage* a = Make("Hello");
  stringStorage* b = Make("hELLO");
  stringStorage* c = Make("help");
  EXPECT_EQ(RuntimeStringCompare(a, b), 0);
  EXPECT_LT(RuntimeStringCompare(a, c), 0);
  EXPECT_GT(RuntimeStringCompare(c, a), 0);
  EXPECT_GT(RuntimeStringCompare(a, nullptr), 0);
  EXPECT_EQ(RuntimeStringCompare(nullptr, nullptr), 0);
  for (stringStorage* s : {a, b, c}) RuntimeUnlockString(s);
}

TEST(RuntimeStructureStrings, FieldIsPaddedAndReadsBackTrimmed) {
  unsigned char record[12];
  memset(record, 0xAA, sizeof record);
  stringStorage* abc = Make("abc");
  RuntimeSetStructureString(record, 2, 8, abc);
  EXPECT_EQ(0, memcmp(record + 2, "abc\0\0\0\0\0", 8));
  EXPECT_EQ(record[1], 0xAA);
  EXPECT_EQ(record[10], 0xAA) << "nothing past the field";
  stringStorage* back = RuntimeGetStructureString(record, 2, 8);
  EXPECT_EQ(Text(back), "abc");
  EXPECT_EQ(back->mEncoding, (uint32_t)kEncodingUnknown);
  EXPECT_EQ(back->mRefCount, 1);
  RuntimeUnlockString(back);
  RuntimeUnlockString(abc);
}

TEST(RuntimeStructureStrings, TruncatesNilClearsAndZeroSizeIsIgnored) {
  char record[6] = {'x', 'x', 'x', 'x', 'x', 'x'};
  stringStorage* longer = Make("abcdefgh");
  RuntimeSetStructureString(record, 0, 4, longer);
  EXPECT_EQ(0, memcmp(record, "abcdxx", 6));
  RuntimeSetStructureString(record, 0, 0, longer);
  EXPECT_EQ(0, memcmp(record, "abcdxx", 6));
  RuntimeSetStructureString(record, 1, 3, nullptr);
  EXPECT_EQ(0, memcmp(record, "a\0\0\0xx", 6));
  EXPECT_EQ(RuntimeGetStructureString(record, 1, 3), nullptr)
      << "only NULs read as nil";
  RuntimeUnlockString(longer);
}

TEST(RuntimeStructureStrings, ContentsKeepEveryByte) {
  char bytes[4] = {'a', 0, 'b', 0};
  stringStorage* all = RuntimeGetStructureContents(bytes, 4);
  ASSERT_NE(all, nullptr);
  EXPECT_EQ(Text(all), std::string("a\0b\0", 4));
  EXPECT_EQ(all->mEncoding, (uint32_t)kEncodingUnknown);
  RuntimeUnlockString(all);
  EXPECT_EQ(RuntimeGetStructureContents(bytes, 0), nullptr);
}

TEST(RuntimeStructureStrings, WideFieldLeavesRoomForItsTerminator) {
  unsigned char record[8];
  memset(record, 0xAA, sizeof record);
  stringStorage* ab = Make("ab");
  RuntimeSetStructureWString(record, 0, 8, ab);
  EXPECT_EQ(0, memcmp(record, "a\0b\0\0\0\0\0", 8));
  memset(record, 0xAA, sizeof record);
  stringStorage* abc = Make("abc");
  RuntimeSetStructureWString(record, 0, 6, abc);
  EXPECT_EQ(0, memcmp(record, "a\0b\0\0\0", 6)) << "the last unit goes";
  EXPECT_EQ(record[6], 0xAA);
  RuntimeSetStructureWString(record, 0, 0, abc);
  EXPECT_EQ(record[0], 'a');
  RuntimeUnlockString(ab);
  RuntimeUnlockString(abc);
}

TEST(RuntimeStringViews, PascalAndCViews) {
  stringStorage* s = Make("hello");
  EXPECT_STREQ(StringToCString(s), "hello");
  EXPECT_EQ(StringToPString(s)[0], 5);
  EXPECT_EQ(s->mRefCount, 1);
  EXPECT_STREQ(StringToCString(nullptr), "");
  EXPECT_EQ(StringToPString(nullptr)[0], 0);
  RuntimeUnlockString(s);

  stringStorage* fromC = StringFromCString(const_cast<char*>("text"));
  EXPECT_EQ(Text(fromC), "text");
  EXPECT_EQ(fromC->mEncoding, (uint32_t)kEncodingASCII);
  EXPECT_EQ(fromC->mRefCount, 1);
  unsigned char pascal[] = "\003abcdef";
  stringStorage* fromP = StringFromPString(pascal);
  EXPECT_EQ(Text(fromP), "abc");
  EXPECT_EQ(StringFromCString(nullptr), nullptr);
  EXPECT_EQ(StringFromCString(const_cast<char*>("")), nullptr);
  RuntimeUnlockString(fromC);
  RuntimeUnlockString(fromP);
}

TEST(RuntimeStringOSType, PaddingCuttingAndEmpty) {
  EXPECT_EQ(StringToOSType(nullptr), 0x3F3F3F3Ful) << "\"????\"";
  stringStorage* text = Make("TEXT");
  stringStorage* ab = Make("ab");
  stringStorage* longer = Make("APPLxyz");
  EXPECT_EQ(StringToOSType(text), 0x54455854ul);
  EXPECT_EQ(StringToOSType(ab), 0x61620000ul);
  EXPECT_EQ(StringToOSType(longer), 0x4150504Cul);
  stringStorage* back = StringFromOSType(0x54455854ul);
  EXPECT_EQ(Text(back), "TEXT");
  EXPECT_EQ(back->mEncoding, 0u);
  for (stringStorage* s : {text, ab, longer, back}) RuntimeUnlockString(s);
}

TEST(RuntimeWideStrings, RoundTripThroughUTF16Units) {
  stringStorage* s = Make("A\xC3\xA9\xF0\x9F\x98\x80", kEncodingUTF8);
  wchar_t* wide = StringToWString(s);
  ASSERT_NE(wide, nullptr);
  EXPECT_EQ(wide[0], L'A');
  EXPECT_EQ(wide[1], 0xE9);
  EXPECT_EQ(wide[2], 0xD83D) << "one element per 16-bit unit";
  EXPECT_EQ(wide[3], 0xDE00);
  EXPECT_EQ(wide[4], 0);
  UnlockWString(wide);
  RuntimeUnlockString(s);

  wchar_t text[] = L"h\u00e9";
  stringStorage* back = StringFromWString(text);
  ASSERT_NE(back, nullptr);
  EXPECT_EQ(back->mLength, 8u);
  EXPECT_EQ(back->mEncoding, (uint32_t)kEncodingUTF32);
  RuntimeUnlockString(back);
  EXPECT_EQ(StringFromWString(nullptr), nullptr);
}

TEST(RuntimeWideStrings, CountsOnlyArraysTheyMade) {
  wchar_t* wide = StringToWString(nullptr);
  ASSERT_NE(wide, nullptr);
  EXPECT_EQ(wide[0], 0);
  LockWString(wide);
  UnlockWString(wide);
  SwapWStringLocks(wide, wide);
  wchar_t stranger[] = L"mine";
  UnlockWString(stranger);  // unknown: must not be freed
  LockWString(stranger);
  LockWString(nullptr);
  UnlockWString(nullptr);
  EXPECT_EQ(stranger[0], L'm');
  UnlockWString(wide);  // the last reference: freed (ASan would see misuse)
}

TEST(RuntimeCFStrings, AbsentOnThisPlatform) {
  stringStorage* s = Make("x");
  EXPECT_EQ(StringToCFString(s), nullptr);
  EXPECT_EQ(StringFromCFString(s), nullptr);
  LockCFString(s);
  UnlockCFString(s);
  SwapCFStringLocks(s, s);
  EXPECT_EQ(s->mRefCount, 1);
  RuntimeUnlockString(s);
}
