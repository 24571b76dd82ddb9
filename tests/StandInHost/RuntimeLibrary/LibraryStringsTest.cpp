// String functions: character forms are 1-based code points, B forms bytes.
#include "LibraryTestSupport.h"

namespace {

class LibraryStrings : public LibraryTest {};

// "Grüße, 世界": 9 code points in 15 bytes.
char const kMixed[] = "Gr\xC3\xBC\xC3\x9F" "e, \xE4\xB8\x96\xE7\x95\x8C";

TEST_F(LibraryStrings, CharacterSlicesCountCodePointsAndClamp) {
  Str mixed = S(kMixed), hello = S("Hello");
  EXPECT_EQ(Text("StringDBCSLeft", mixed, 3L), "Gr\xC3\xBC");
  EXPECT_EQ(Text("StringDBCSRight", mixed, 2L), "\xE4\xB8\x96\xE7\x95\x8C");
  EXPECT_EQ(Text("StringDBCSRight", mixed, 9L), kMixed);
  for (long n : {0L, -4L}) EXPECT_EQ(Text("StringDBCSLeft", mixed, n) + Text("StringDBCSRight", mixed, n), "");
  EXPECT_TRUE(Shares(mixed, "StringDBCSLeft", mixed, 99L)) << "the whole text is shared, not copied";
  struct { long start, count; char const* want; } mids[] = {
      {2, 3, "ell"}, {4, 10, "lo"}, {0, 2, "He"}, {-3, 2, "He"}, {6, 1, ""}, {2, 0, ""}, {2, -1, ""}};
  for (auto const& m : mids) EXPECT_EQ(Text("StringDBCSMid3", hello, m.start, m.count), m.want) << m.start;
  EXPECT_EQ(Text("StringDBCSMid2", hello, 3L) + Text("StringDBCSMid2", hello, 9L), "llo");
  EXPECT_EQ(Text("StringDBCSMid3", mixed, 3L, 2L), "\xC3\xBC\xC3\x9F");
  EXPECT_EQ(Tag("StringDBCSMid3", mixed, 2L, 2L), (uint32_t)kEncodingUTF8);
  Str latin1 = NewStringStorage("caf\xE9", 4, 513);  // converted through a cache: no count checks
  EXPECT_EQ(Library<long(Str)>("StringDBCSLen")(latin1), 4);
  Str left = Library<Str(Str, long)>("StringDBCSLeft")(latin1, 4L);
  EXPECT_EQ(Bytes(left), "caf\xC3\xA9");
  EXPECT_EQ(left->mEncoding, (uint32_t)kEncodingUTF8);
  UnlockStringStorage(left);
  UnlockStringStorage(latin1);
}

TEST_F(LibraryStrings, ByteSlicesCountBytes) {
  Str text = S("\xC3\xA9t\xC3\xA9");  // 3 characters, 5 bytes
  EXPECT_EQ(Text("StringLeft", text, 2L), "\xC3\xA9");
  EXPECT_EQ(Text("StringRight", text, 3L), "t\xC3\xA9");
  EXPECT_EQ(Text("StringMid3", text, 3L, 1L), "t");
  EXPECT_EQ(Text("StringMid2", text, 4L), "\xC3\xA9");
  EXPECT_EQ(Text("StringMid3", text, 0L, 1L), "\xC3");
  EXPECT_EQ(Text("StringMid3", text, 6L, 1L) + Text("StringLeft", text, -1L), "");
  EXPECT_TRUE(Shares(text, "StringRight", text, 50L));
}

TEST_F(LibraryStrings, LenAscAndChrInBothForms) {
  auto len = Library<long(Str)>("StringDBCSLen"), lenB = Library<long(Str)>("StringLen");
  auto asc = Library<long(Str)>("StringDBCSAsc"), ascB = Library<long(Str)>("StringAsc");
  EXPECT_EQ(len(S(kMixed)), 9);
  EXPECT_EQ(lenB(S(kMixed)), 15);
  EXPECT_EQ(len(nullptr) + lenB(nullptr) + asc(nullptr) + ascB(nullptr), 0);
  EXPECT_EQ(asc(S("\xE4\xB8\x96!")), 0x4E16);
  EXPECT_EQ(ascB(S("\xC3\xA9")), 0xC3) << "bytes are unsigned";
  EXPECT_EQ(Text("StringDBCSChr", 0x4E16L), "\xE4\xB8\x96");
  EXPECT_EQ(Tag("StringDBCSChr", 0xE9L), (uint32_t)kEncodingUTF8);
  EXPECT_EQ(Text("StringDBCSChr", -1L) + Text("StringDBCSChr", 0x110000L), "");
  EXPECT_EQ(Text("StringChr", 65L), "A");
  EXPECT_EQ(Tag("StringChr", 65L), (uint32_t)kEncodingASCII);
  EXPECT_EQ(Text("StringChr", 200L), "\xC8");
  EXPECT_EQ(Tag("StringChr", 200L), (uint32_t)kEncodingUnknown);
  EXPECT_EQ(Text("StringChr", 256L) + Text("StringChr", -1L), "");
}

TEST_F(LibraryStrings, InStrIgnoresCaseInStrBIsExact) {
  auto inStr = Library<long(long, Str, Str)>("StringInStr");
  auto inStrB = Library<long(long, Str, Str)>("StringInStrB");
  Str text = S("\xC3\xA9t\xC3\xA9 Hello hello");
  struct { long start; char const* needle; long want; } rows[] = {
      {0, "HELLO", 5}, {6, "hello", 11}, {12, "hello", 0}, {99, "h", 0}, {-5, "T", 2},
      {0, "\xC3\x89T\xC3\x89", 1}, {0, "xyz", 0}};
  for (auto const& r : rows) EXPECT_EQ(inStr(r.start, text, S(r.needle)), r.want) << r.needle;
  EXPECT_EQ(inStr(0, text, nullptr), 0) << "an empty needle is not found";
  EXPECT_EQ(inStr(0, nullptr, S("a")), 0);
  EXPECT_EQ(Library<long(Str, long, Str)>("StringExtendsInStr")(text, 6, S("HELLO")), 11);
  EXPECT_EQ(inStrB(0, text, S("hello")), 13);
  EXPECT_EQ(inStrB(0, text, S("Hello")), 7);
  EXPECT_EQ(inStrB(2, text, S("\xC3\xA9")), 4);
  EXPECT_EQ(Library<long(Str, long, Str)>("StringExtendsInStrB")(text, 1, S("t")), 3);
}

TEST_F(LibraryStrings, CaseTrimAndStrComp) {
  EXPECT_EQ(Text("StringUCase", S("stra\xC3\x9F" "e \xC3\xA9t\xC3\xA9")), "STRA\xC3\x9F" "E \xC3\x89T\xC3\x89");
  EXPECT_EQ(Text("StringLCase", S("\xC3\x89T\xC3\x89 ABC")), "\xC3\xA9t\xC3\xA9 abc");
  EXPECT_EQ(Text("StringTitleCase", S("hello WORLD \xC3\xA9t\xC3\xA9")), "Hello World \xC3\x89t\xC3\xA9");
  EXPECT_EQ(Tag("StringUCase", S("abc", kEncodingASCII)), (uint32_t)kEncodingASCII);
  Str padded = S(" \t\r\n\xC2\xA0x y\xC2\xA0 \n"), clean = S("clean");
  EXPECT_EQ(Text("runTrim", padded), "x y");
  EXPECT_EQ(Text("runLTrim", padded), "x y\xC2\xA0 \n");
  EXPECT_EQ(Text("runRTrim", padded), " \t\r\n\xC2\xA0x y");
  EXPECT_EQ(Text("runTrim", S("   ")), "");
  EXPECT_TRUE(Shares(clean, "runTrim", clean));
  auto strComp = Library<long(Str, Str, long)>("StringStrCompare");
  EXPECT_EQ(strComp(S("abc"), S("ABC"), 0), 1) << "byte order: a after A";
  EXPECT_EQ(strComp(S("abc"), S("ABC"), 1), 0);
  EXPECT_EQ(strComp(S("ab"), S("abc"), 0), -1);
  EXPECT_EQ(strComp(S("\xC3\xA9"), S("z"), 0), 1) << "bytes are unsigned";
  EXPECT_EQ(strComp(S("\xC3\xA9"), S("\xC3\x89"), 1), 0);
  EXPECT_EQ(strComp(nullptr, S("a"), 1), -1);
}

TEST_F(LibraryStrings, FieldsAndReplace) {
  auto count = Library<long(Str, Str)>("StringCountFields");
  EXPECT_EQ(count(S("a,b,,c"), S(",")), 4);
  EXPECT_EQ(count(S("oneXtwoxthree"), S("x")), 3) << "case ignored";
  EXPECT_EQ(count(S("abc"), nullptr), 1);
  EXPECT_EQ(count(nullptr, S(",")), 0);
  Str list = S("\xC3\xA9t\xC3\xA9 SEP hiver sep printemps"), sep = S(" sep ");
  char const* fields[] = {"", "\xC3\xA9t\xC3\xA9", "hiver", "printemps", ""};
  for (long n = 0; n <= 4; n++) EXPECT_EQ(Text("StringNthField", list, sep, n), fields[n]) << n;
  EXPECT_EQ(Text("StringNthField", S("a,,c"), S(","), 2L), "");
  EXPECT_EQ(Text("StringNthField", S("abc"), S(""), 1L), "abc");
  Str text = S("One one ONE");
  EXPECT_EQ(Text("StringReplace", text, S("one"), S("2")), "2 one ONE");
  EXPECT_EQ(Text("StringReplaceAll", text, S("one"), S("")), "  ");
  EXPECT_EQ(Text("StringReplaceAll", S("aaaa"), S("aa"), S("b")), "bb");
  EXPECT_EQ(Text("StringReplaceAll", S("\xC3\xA9t\xC3\xA9"), S("\xC3\x89"), S("e")), "ete");
  EXPECT_TRUE(Shares(text, "StringReplace", text, S("zzz"), S("y"))) << "nothing found: the text itself";
  EXPECT_TRUE(Shares(text, "StringReplaceAll", text, S(""), S("y")));
  EXPECT_EQ(Text("StringReplaceB", text, S("ONE"), S("3")), "One one 3");
  EXPECT_EQ(Text("StringReplaceAllB", text, S("one"), S("1")), "One 1 ONE");
  Str euro = Call("StringReplace", S("price: X", kEncodingASCII), S("x"), S("\xE2\x82\xAC"));
  EXPECT_EQ(Bytes(euro), "price: \xE2\x82\xAC");
  EXPECT_EQ(euro->mEncoding, (uint32_t)kEncodingUTF8) << "the replacement is converted";
  UnlockStringStorage(euro);
}

}  // namespace
