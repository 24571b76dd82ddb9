// The string entry points of generated code and external calls.
#include <gtest/gtest.h>

#include <string.h>

#include <string>

#include "Common/RuntimeStringFoundation.h"
#include "Universal/Encodings.h"
#include "Universal/StringWorkCounters.h"

namespace {

stringStorage* Make(char const* text, unsigned long tag = kEncodingASCII) {
  return NewStringStorage(text, strlen(text), tag);
}

std::string Text(stringStorage* s) {
  return s ? std::string(s->CString(), s->mLength) : std::string();
}

}  // namespace

TEST(RuntimeStringCounts, AssignmentSumAndCompare) {
  stringStorage* s = Make("Hello");
  RuntimeLockString(s);
  RuntimeLockUnlockStrings(s, s);
  EXPECT_EQ(s->mRefCount, 2) << "a = a changes nothing";
  stringStorage* t = Make("hELLO");
  RuntimeLockUnlockStrings(t, s);
  EXPECT_EQ(t->mRefCount, 2);
  EXPECT_EQ(s->mRefCount, 1);
  RuntimeLockUnlockStrings(nullptr, t);
  EXPECT_EQ(t->mRefCount, 1);
  EXPECT_EQ(RuntimeAddString(nullptr, nullptr), nullptr);
  stringStorage* sum = RuntimeAddString(s, nullptr);
  EXPECT_EQ(sum, s) << "a nil side shares the other";
  EXPECT_EQ(s->mRefCount, 2);
  RuntimeUnlockString(sum);
  EXPECT_EQ(RuntimeStringCompare(s, t), 0) << "case is ignored";
  EXPECT_GT(RuntimeStringCompare(s, nullptr), 0);
  RuntimeUnlockString(s);
  RuntimeUnlockString(t);
}

TEST(RuntimeStringSum, JoinsAcrossEncodings) {
  stringStorage* latin = Make("caf\xE9", 513);
  stringStorage* utf8 = Make(" \xC3\xA0", kEncodingUTF8);
  stringStorage* sum = RuntimeAddString(latin, utf8);
  EXPECT_EQ(Text(sum), "caf\xC3\xA9 \xC3\xA0");
  EXPECT_EQ(sum->mEncoding, (uint32_t)kEncodingUTF8);
  EXPECT_EQ(sum->mRefCount, 1);
  EXPECT_EQ(utf8->mRefCount, 1);
  for (stringStorage* s : {latin, utf8, sum}) RuntimeUnlockString(s);
}

// A chain gives what the sums two at a time give: one storage of the final
// size where the bytes stand as they are, the pairwise sums where an
// encoding must be converted, and a lone piece with text shared.
TEST(RuntimeStringSum, ChainsAddAsThePairsWould) {
  stringStorage* ascii = Make("id ");
  stringStorage* utf8 = Make("\xC3\xA0,", kEncodingUTF8);
  stringStorage* latin = Make("caf\xE9", 513);
  ResetStringWork();
  stringStorage* sum = RuntimeAddStrings(5, ascii, nullptr, utf8, ascii, utf8);
  EXPECT_EQ(Text(sum), "id \xC3\xA0,id \xC3\xA0,");
  EXPECT_EQ(sum->mEncoding, (uint32_t)kEncodingUTF8);
  EXPECT_EQ(CurrentStringWork().allocations, 1u) << "one storage of the final size";
  EXPECT_EQ(CurrentStringWork().copiedBytes, sum->mLength);
  RuntimeUnlockString(sum);

  stringStorage* pairwise = RuntimeAddString(latin, utf8);
  stringStorage* expected = RuntimeAddString(pairwise, ascii);
  sum = RuntimeAddStrings(3, latin, utf8, ascii);
  EXPECT_EQ(Text(sum), Text(expected));
  EXPECT_EQ(sum->mEncoding, expected->mEncoding);
  for (stringStorage* s : {pairwise, expected, sum}) RuntimeUnlockString(s);

  // The conversion above keeps the last text it converted.
  sum = RuntimeAddStrings(3, nullptr, ascii, nullptr);
  EXPECT_EQ(sum, ascii) << "a lone piece is shared";
  EXPECT_EQ(ascii->mRefCount, 2);
  RuntimeUnlockString(sum);
  EXPECT_EQ(RuntimeAddStrings(3, nullptr, nullptr, nullptr), nullptr);
  for (stringStorage* s : {ascii, utf8}) EXPECT_EQ(s->mRefCount, 1);
  for (stringStorage* s : {ascii, utf8, latin}) RuntimeUnlockString(s);
}

TEST(RuntimeStructureStrings, PaddedTruncatedReadBackTrimmedAndWide) {
  unsigned char record[12];
  memset(record, 0xAA, sizeof record);
  stringStorage* abc = Make("abc");
  RuntimeSetStructureString(record, 2, 8, abc);
  EXPECT_EQ(0, memcmp(record + 2, "abc\0\0\0\0\0", 8));
  EXPECT_EQ(record[10], 0xAA) << "nothing past the field";
  stringStorage* back = RuntimeGetStructureString(record, 2, 8);
  EXPECT_EQ(Text(back), "abc");
  EXPECT_EQ(back->mEncoding, (uint32_t)kEncodingUnknown);
  RuntimeSetStructureString(record, 0, 2, abc);
  RuntimeSetStructureString(record, 0, 0, back);
  EXPECT_EQ(0, memcmp(record, "abab", 4)) << "cut to the field; size 0 ignored";
  RuntimeSetStructureString(record, 1, 3, nullptr);
  EXPECT_EQ(RuntimeGetStructureString(record, 1, 3), nullptr) << "only NULs read as nil";
  memset(record, 0xAA, sizeof record);
  RuntimeSetStructureWString(record, 0, 6, abc);
  EXPECT_EQ(0, memcmp(record, "a\0b\0\0\0", 6)) << "a wide field leaves room for its terminator";
  EXPECT_EQ(record[6], 0xAA);
  RuntimeUnlockString(back);
  RuntimeUnlockString(abc);
}

