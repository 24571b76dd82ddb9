// The B forms: bytes, 1-based, exact comparison.
#include "LibraryTestSupport.h"

namespace {

class ByteStrings : public LibraryTest {};

TEST_F(ByteStrings, SlicesCountBytes) {
  Str text = S("\xC3\xA9t\xC3\xA9");  // "été": 3 characters, 5 bytes
  EXPECT_EQ(Text("StringLeft", text, 2L), "\xC3\xA9");
  EXPECT_EQ(Text("StringRight", text, 3L), "t\xC3\xA9");
  EXPECT_EQ(Text("StringMid3", text, 3L, 1L), "t");
  EXPECT_EQ(Text("StringMid2", text, 4L), "\xC3\xA9");
  EXPECT_EQ(Text("StringMid3", text, 0L, 1L), "\xC3");
  EXPECT_EQ(Text("StringMid3", text, 6L, 1L), "");
  EXPECT_EQ(Text("StringLeft", text, -1L), "");
  EXPECT_EQ(Text("StringRight", text, 0L), "");
  Str whole = Call("StringRight", text, 50L);
  EXPECT_EQ(whole, text);
  UnlockStringStorage(whole);
  EXPECT_EQ(Text("StringMid2", S(""), 1L), "");
}

TEST_F(ByteStrings, LenAscAndChr) {
  auto len = Library<long(Str)>("StringLen");
  auto asc = Library<long(Str)>("StringAsc");
  EXPECT_EQ(len(S("\xC3\xA9t\xC3\xA9")), 5);
  EXPECT_EQ(len(nullptr), 0);
  EXPECT_EQ(asc(S("\xC3\xA9")), 0xC3) << "bytes are unsigned";
  EXPECT_EQ(asc(nullptr), 0);
  Str a = Call("StringChr", 65L);
  EXPECT_EQ(Bytes(a), "A");
  EXPECT_EQ(a->mEncoding, (uint32_t)kEncodingASCII);
  UnlockStringStorage(a);
  Str high = Call("StringChr", 200L);
  EXPECT_EQ(Bytes(high), "\xC8");
  EXPECT_EQ(high->mEncoding, (uint32_t)kEncodingUnknown);
  UnlockStringStorage(high);
  EXPECT_EQ(Text("StringChr", 256L), "");
  EXPECT_EQ(Text("StringChr", -1L), "");
}

TEST_F(ByteStrings, InStrBIsExactAndCountsBytes) {
  auto inStrB = Library<long(long, Str, Str)>("StringInStrB");
  auto extends = Library<long(Str, long, Str)>("StringExtendsInStrB");
  Str text = S("\xC3\xA9t\xC3\xA9 abc ABC");
  EXPECT_EQ(inStrB(0, text, S("ABC")), 11);
  EXPECT_EQ(inStrB(0, text, S("abc")), 7);
  EXPECT_EQ(inStrB(8, text, S("abc")), 0) << "case counts";
  EXPECT_EQ(inStrB(2, text, S("\xC3\xA9")), 4);
  EXPECT_EQ(inStrB(0, text, nullptr), 0);
  EXPECT_EQ(extends(text, 1, S("t")), 3);
}

}  // namespace
