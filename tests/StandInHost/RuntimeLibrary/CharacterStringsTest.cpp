// Left, Right, Mid, Len, Asc, Chr and InStr: code points, 1-based.
#include "LibraryTestSupport.h"

namespace {

class CharacterStrings : public LibraryTest {};

// "Grüße, 世界": 9 code points in 15 bytes.
char const kMixed[] = "Gr\xC3\xBC\xC3\x9F" "e, \xE4\xB8\x96\xE7\x95\x8C";

TEST_F(CharacterStrings, LeftAndRightCountCodePoints) {
  Str mixed = S(kMixed);
  EXPECT_EQ(Text("StringDBCSLeft", mixed, 3L), "Gr\xC3\xBC");
  EXPECT_EQ(Text("StringDBCSRight", mixed, 2L), "\xE4\xB8\x96\xE7\x95\x8C");
  EXPECT_EQ(Text("StringDBCSLeft", mixed, 0L), "");
  EXPECT_EQ(Text("StringDBCSLeft", mixed, -4L), "");
  EXPECT_EQ(Text("StringDBCSRight", mixed, -1L), "");
  Str whole = Call("StringDBCSLeft", mixed, 99L);
  EXPECT_EQ(whole, mixed) << "the whole text is shared, not copied";
  UnlockStringStorage(whole);
  EXPECT_EQ(Text("StringDBCSRight", mixed, 9L), kMixed);
  EXPECT_EQ(Text("StringDBCSLeft", S(""), 3L), "");
}

TEST_F(CharacterStrings, MidIsOneBasedAndClamped) {
  Str hello = S("Hello");
  EXPECT_EQ(Text("StringDBCSMid3", hello, 2L, 3L), "ell");
  EXPECT_EQ(Text("StringDBCSMid3", hello, 4L, 10L), "lo");
  EXPECT_EQ(Text("StringDBCSMid3", hello, 0L, 2L), "He") << "start 0 is 1";
  EXPECT_EQ(Text("StringDBCSMid3", hello, -3L, 2L), "He");
  EXPECT_EQ(Text("StringDBCSMid3", hello, 6L, 1L), "");
  EXPECT_EQ(Text("StringDBCSMid3", hello, 2L, 0L), "");
  EXPECT_EQ(Text("StringDBCSMid3", hello, 2L, -1L), "");
  EXPECT_EQ(Text("StringDBCSMid2", hello, 3L), "llo");
  EXPECT_EQ(Text("StringDBCSMid2", hello, 9L), "");
  Str mixed = S(kMixed);
  EXPECT_EQ(Text("StringDBCSMid3", mixed, 3L, 2L), "\xC3\xBC\xC3\x9F");
  EXPECT_EQ(Text("StringDBCSMid2", mixed, 8L), "\xE4\xB8\x96\xE7\x95\x8C");
}

TEST_F(CharacterStrings, ResultsKeepTheUTF8Tag) {
  Str part = Call("StringDBCSMid3", S(kMixed), 2L, 2L);
  ASSERT_NE(part, nullptr);
  EXPECT_EQ(part->mEncoding, (uint32_t)kEncodingUTF8);
  UnlockStringStorage(part);
}

TEST_F(CharacterStrings, LenAscAndChr) {
  auto len = Library<long(Str)>("StringDBCSLen");
  auto asc = Library<long(Str)>("StringDBCSAsc");
  EXPECT_EQ(len(S(kMixed)), 9);
  EXPECT_EQ(len(nullptr), 0);
  EXPECT_EQ(asc(S("\xE4\xB8\x96!")), 0x4E16);
  EXPECT_EQ(asc(S("A")), 65);
  EXPECT_EQ(asc(nullptr), 0);
  EXPECT_EQ(Text("StringDBCSChr", 0x4E16L), "\xE4\xB8\x96");
  EXPECT_EQ(Text("StringDBCSChr", 65L), "A");
  EXPECT_EQ(Text("StringDBCSChr", -1L), "");
  EXPECT_EQ(Text("StringDBCSChr", 0x110000L), "");
  Str chr = Call("StringDBCSChr", 0xE9L);
  EXPECT_EQ(chr->mEncoding, (uint32_t)kEncodingUTF8);
  UnlockStringStorage(chr);
}

TEST_F(CharacterStrings, TextInOtherEncodingsIsReadAsCharacters) {
  auto len = Library<long(Str)>("StringDBCSLen");
  Str latin1 = NewStringStorage("caf\xE9", 4, 513);
  EXPECT_EQ(len(latin1), 4);
  Str left = Library<Str(Str, long)>("StringDBCSLeft")(latin1, 4L);
  EXPECT_EQ(Bytes(left), "caf\xC3\xA9");
  EXPECT_EQ(left->mEncoding, (uint32_t)kEncodingUTF8);
  UnlockStringStorage(left);
  UnlockStringStorage(latin1);
}

TEST_F(CharacterStrings, InStrIgnoresCaseAndCountsCharacters) {
  auto inStr = Library<long(long, Str, Str)>("StringInStr");
  auto extends = Library<long(Str, long, Str)>("StringExtendsInStr");
  Str text = S("\xC3\xA9t\xC3\xA9 Hello hello");
  EXPECT_EQ(inStr(0, text, S("HELLO")), 5);
  EXPECT_EQ(inStr(1, text, S("hello")), 5);
  EXPECT_EQ(inStr(6, text, S("hello")), 11);
  EXPECT_EQ(inStr(12, text, S("hello")), 0);
  EXPECT_EQ(inStr(99, text, S("h")), 0);
  EXPECT_EQ(inStr(-5, text, S("T")), 2);
  EXPECT_EQ(inStr(0, text, S("\xC3\x89T\xC3\x89")), 1) << "É matches é";
  EXPECT_EQ(inStr(0, text, S("xyz")), 0);
  EXPECT_EQ(inStr(0, text, nullptr), 0) << "an empty needle is not found";
  EXPECT_EQ(inStr(0, nullptr, S("a")), 0);
  EXPECT_EQ(extends(text, 6, S("HELLO")), 11);
}

}  // namespace
