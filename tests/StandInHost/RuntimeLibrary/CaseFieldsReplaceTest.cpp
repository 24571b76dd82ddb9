// Case mapping, trimming, comparison, fields and replacement.
#include "LibraryTestSupport.h"

namespace {

class CaseAndTrim : public LibraryTest {};
class FieldsAndReplace : public LibraryTest {};

TEST_F(CaseAndTrim, CaseMappingCoversUnicode) {
  EXPECT_EQ(Text("StringUCase", S("stra\xC3\x9F" "e \xC3\xA9t\xC3\xA9")),
            "STRA\xC3\x9F" "E \xC3\x89T\xC3\x89");
  EXPECT_EQ(Text("StringLCase", S("\xC3\x89T\xC3\x89 ABC")),
            "\xC3\xA9t\xC3\xA9 abc");
  EXPECT_EQ(Text("StringTitleCase", S("hello WORLD \xC3\xA9t\xC3\xA9")),
            "Hello World \xC3\x89t\xC3\xA9");
  EXPECT_EQ(Text("StringUCase", S("")), "");
  Str upper = Call("StringUCase", S("abc", kEncodingASCII));
  EXPECT_EQ(upper->mEncoding, (uint32_t)kEncodingASCII);
  UnlockStringStorage(upper);
}

TEST_F(CaseAndTrim, TrimsDropUnicodeWhiteSpace) {
  Str padded = S(" \t\r\n\xC2\xA0x y\xC2\xA0 \n");
  EXPECT_EQ(Text("runTrim", padded), "x y");
  EXPECT_EQ(Text("runLTrim", padded), "x y\xC2\xA0 \n");
  EXPECT_EQ(Text("runRTrim", padded), " \t\r\n\xC2\xA0x y");
  EXPECT_EQ(Text("runTrim", S("   ")), "");
  EXPECT_EQ(Text("runTrim", S("")), "");
  Str clean = S("clean");
  Str same = Call("runTrim", clean);
  EXPECT_EQ(same, clean);
  UnlockStringStorage(same);
}

TEST_F(CaseAndTrim, StrCompModes) {
  auto strComp = Library<long(Str, Str, long)>("StringStrCompare");
  EXPECT_EQ(strComp(S("abc"), S("ABC"), 0), 1) << "byte order: a after A";
  EXPECT_EQ(strComp(S("abc"), S("ABC"), 1), 0);
  EXPECT_EQ(strComp(S("abc"), S("abd"), 1), -1);
  EXPECT_EQ(strComp(S("ab"), S("abc"), 0), -1);
  EXPECT_EQ(strComp(S("\xC3\xA9"), S("z"), 0), 1) << "bytes are unsigned";
  EXPECT_EQ(strComp(S("\xC3\xA9"), S("\xC3\x89"), 1), 0);
  EXPECT_EQ(strComp(nullptr, nullptr, 0), 0);
  EXPECT_EQ(strComp(nullptr, S("a"), 1), -1);
}

TEST_F(FieldsAndReplace, CountFields) {
  auto count = Library<long(Str, Str)>("StringCountFields");
  EXPECT_EQ(count(S("a,b,,c"), S(",")), 4);
  EXPECT_EQ(count(S("a,b,"), S(",")), 3);
  EXPECT_EQ(count(S("oneXtwoxthree"), S("x")), 3) << "case ignored";
  EXPECT_EQ(count(S("a::b::c"), S("::")), 3);
  EXPECT_EQ(count(S("abc"), nullptr), 1);
  EXPECT_EQ(count(nullptr, S(",")), 0);
}

TEST_F(FieldsAndReplace, NthField) {
  Str list = S("\xC3\xA9t\xC3\xA9 SEP hiver sep printemps");
  Str sep = S(" sep ");
  EXPECT_EQ(Text("StringNthField", list, sep, 1L), "\xC3\xA9t\xC3\xA9");
  EXPECT_EQ(Text("StringNthField", list, sep, 2L), "hiver");
  EXPECT_EQ(Text("StringNthField", list, sep, 3L), "printemps");
  EXPECT_EQ(Text("StringNthField", list, sep, 4L), "");
  EXPECT_EQ(Text("StringNthField", list, sep, 0L), "");
  EXPECT_EQ(Text("StringNthField", S("a,,c"), S(","), 2L), "");
  EXPECT_EQ(Text("StringNthField", S("abc"), S(""), 1L), "abc");
  EXPECT_EQ(Text("StringNthField", S(""), S(","), 1L), "");
}

TEST_F(FieldsAndReplace, ReplaceIgnoresCase) {
  Str text = S("One one ONE");
  EXPECT_EQ(Text("StringReplace", text, S("one"), S("2")), "2 one ONE");
  EXPECT_EQ(Text("StringReplaceAll", text, S("one"), S("2")), "2 2 2");
  EXPECT_EQ(Text("StringReplaceAll", text, S("one"), S("")), "  ");
  EXPECT_EQ(Text("StringReplaceAll", S("aaaa"), S("aa"), S("b")), "bb");
  EXPECT_EQ(Text("StringReplaceAll", S("\xC3\xA9t\xC3\xA9"), S("\xC3\x89"),
                 S("e")),
            "ete");
  Str same = Call("StringReplace", text, S("zzz"), S("y"));
  EXPECT_EQ(same, text) << "nothing found: the text itself";
  UnlockStringStorage(same);
  same = Call("StringReplaceAll", text, S(""), S("y"));
  EXPECT_EQ(same, text);
  UnlockStringStorage(same);
  EXPECT_EQ(Text("StringReplace", S(""), S("a"), S("b")), "");
}

TEST_F(FieldsAndReplace, ReplaceBIsExact) {
  Str text = S("One one ONE");
  EXPECT_EQ(Text("StringReplaceB", text, S("ONE"), S("3")), "One one 3");
  EXPECT_EQ(Text("StringReplaceAllB", text, S("one"), S("1")), "One 1 ONE");
  EXPECT_EQ(Text("StringReplaceAllB", S("a.b.c"), S("."), S("::")),
            "a::b::c");
}

TEST_F(FieldsAndReplace, ReplacementInAnotherEncodingIsConverted) {
  Str text = S("price: X", kEncodingASCII);
  Str euro = S("\xE2\x82\xAC");
  Str result = Call("StringReplace", text, S("x"), euro);
  EXPECT_EQ(Bytes(result), "price: \xE2\x82\xAC");
  EXPECT_EQ(result->mEncoding, (uint32_t)kEncodingUTF8);
  UnlockStringStorage(result);
}

}  // namespace
