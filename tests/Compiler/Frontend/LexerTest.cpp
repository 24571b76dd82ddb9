// Token rules that are easy to get wrong, literal types and values, and
// tokens longer than the token buffer.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "Compiler/Frontend/Lexer.h"
#include "Compiler/Frontend/SrcContext.h"
#include "Compiler/SemBase.h"

namespace {

typedef std::vector<int> Toks;
const int kId = kTokIdent, kAs = kTokAssign, kInt = kTokInteger, kEol = kTokEOL;

class LexerFixture : public testing::Test {
 protected:
  void SetUp() override { mContext = new SrcContext; }
  void TearDown() override { delete mContext; }
  void Start(std::string const& text) {
    mText = text;
    InitLexer(mText.c_str());
  }
  Toks Tokens(std::string const& text) {  // bounded, so a loop shows
    Start(text);
    Toks tokens;
    for (int i = 0, t; i < 10000 && (t = GetToken()) != kTokEndOfText; i++)
      tokens.push_back(t);
    return tokens;
  }
  SemBase* Literal(std::string const& text, int expectedToken) {
    Start(text);
    EXPECT_EQ(expectedToken, GetToken()) << text;
    return yylval;
  }
  SrcContext* mContext = nullptr;
  std::string mText;
};

TEST_F(LexerFixture, TokenSequences) {
  struct Case { std::string text; Toks tokens; } cases[] = {
      // The first "=" of one dotted name assigns.
      {"a = b = c", {kId, kAs, kId, '=', kId}},
      {"a(x = 1) = 2", {kId, '(', kId, '=', kInt, ')', kAs, kInt}},
      {"a.b(2).c = 1", {kId, '.', kId, '(', kInt, ')', '.', kId, kAs, kInt}},
      {"Me.x = 1", {kTokMe, '.', kId, kAs, kInt}},
      {"If c Then a = 1 Else b = 2",
       {kTokIf, kId, kTokThen, kId, kAs, kInt, kTokElse, kId, kAs, kInt}},
      // After two names, keywords or literals it compares.
      {"x y = 1", {kId, kId, '=', kInt}},
      {"\"s\" = a", {kTokString, '=', kId}},
      {"f a, b = 1", {kId, kId, ',', kId, '=', kInt}},
      {"x y = 1\nz = 2", {kId, kId, '=', kInt, kEol, kId, kAs, kInt}},
      // Rem and comments end the line anywhere; Rem only as a whole word.
      {"a Rem b\nc", {kId, kEol, kId}},
      {"a rEM b = c\nd", {kId, kEol, kId}},
      {"REM whole line\na", {kId}},
      {"a ' note\nb", {kId, kEol, kId}},
      {"Remark = 1", {kId, kAs, kInt}},
      {"\n\n  a \n\n\n b\n\n", {kId, kEol, kId, kEol}},
      // Continuation, also before a comment, keeps the statement tracking.
      {"a _ ' note\n+ b", {kId, '+', kId}},
      {"a _\r\n+ b", {kId, '+', kId}},
      {"x _ y", {kId, kTokContinuation, kId}},
      {"a_b", {kId}},
      {"a _\n= 1", {kId, kAs, kInt}},
      {"x _\ny = 1", {kId, kId, '=', kInt}},
      {"a\r\r\nb", {kId, kEol, kId}},
      {"&x", {'&', kId}},
      {"&c1234567", {kTokColor, kInt}},  // a seventh digit is a number
      {"\"abc\nx", {kTokBadString, kEol, kId}},
      {"\"abc", {kTokBadString}},
      {"\\ a", {'\\', kId}},
      {"#If #ELSEIF #else #EndIf #pragma #tag",
       {kTokIfDirective, kTokElseIfDirective, kTokElseDirective,
        kTokEndIfDirective, kTokPragmaDirective, '#'}},
      {"a~b", {kId, '~', kId}},
      {"@ $ ; {", {'@', '$', ';', '{'}},
  };
  for (auto const& c : cases) EXPECT_EQ(c.tokens, Tokens(c.text)) << c.text;
}

TEST_F(LexerFixture, LineCounting) {
  Start("a _\nb\nc");  // the joined line keeps its count
  GetToken();
  GetToken();
  EXPECT_EQ(1u, current_line());
  EXPECT_EQ(kEol, GetToken());
  EXPECT_EQ(kId, GetToken());
  EXPECT_EQ(2u, current_line());
  for (char const* text : {"a\nb\nc", "a\r\nb\r\nc", "a\rb\rc"}) {
    Start(text);
    std::vector<unsigned> lines;
    for (int t; (t = GetToken()) != kTokEndOfText;)
      if (t == kId) lines.push_back(current_line());
    EXPECT_EQ(std::vector<unsigned>({0, 1, 2}), lines) << text;
  }
  Start("a\r\nb\nc");
  EXPECT_EQ(2u, total_lines());
  Start("a\rb\rc");
  EXPECT_EQ(0u, total_lines());
}

TEST_F(LexerFixture, NumberLiterals) {
  // kNoType: the type is not checked. Values past Int32 are read as 64 bits.
  struct Case { char const* text; int token; SimpleDataType type; long long value; double real; } cases[] = {
      {"0", kInt, kSInt32Type, 0, 0},
      {"2147483647", kInt, kSInt32Type, 2147483647LL, 0},
      {"2147483648", kInt, kSInt64Type, 2147483648LL, 0},
      {"4294967295", kInt, kSInt64Type, 4294967295LL, 0},
      {"4294967296", kInt, kSInt64Type, 4294967296LL, 0},
      {"&hFFFFFFFF", kInt, kUInt32Type, -1, 0},
      {"&h100000000", kInt, kUInt64Type, 0x100000000LL, 0},
      {"&o10", kInt, kNoType, 8, 0},
      {"&B101", kInt, kNoType, 5, 0},
      {"&h", kInt, kNoType, 0, 0},
      {"&h123456789ABCDEF01", kInt, kNoType, 0x23456789ABCDEF01LL, 0},  // overflow
      {"1.", kTokFloat, kReal64Type, 0, 1.0},
      {"1.5e3", kTokFloat, kReal64Type, 0, 1500.0},
      {"1e", kTokFloat, kReal64Type, 0, 1.0},
      {".5", kTokFloat, kReal64Type, 0, 0.5},
      {"2E-2", kTokFloat, kReal64Type, 0, 0.02},
      {"3.25", kTokFloat, kReal64Type, 0, 3.25},
      // Colour digits have fixed places.
      {"&c00FF00", kTokColor, kColorType, 0x00FF00, 0},
      {"&cFF", kTokColor, kColorType, 0xFF0000, 0},
      {"&c", kTokColor, kColorType, 0, 0},
      {"&C123456", kTokColor, kColorType, 0x123456, 0},
      {"&c1", kTokColor, kColorType, 0x100000, 0},
  };
  for (auto const& c : cases) {
    IRValue const& v = Literal(c.text, c.token)->GetValue();
    if (c.type != kNoType) {
      EXPECT_EQ(c.type, yylval->GetType().GetMainType()) << c.text;
    }
    if (c.token == kTokFloat) {
      EXPECT_DOUBLE_EQ(c.real, v.uReal64) << c.text;
    } else {
      EXPECT_EQ(c.value, c.value > 0x7FFFFFFFLL ? v.uSInt64 : v.uSInt32) << c.text;
    }
  }
}

TEST_F(LexerFixture, StringLiterals) {
  SemBase* v = Literal("\"a\"\"b\"", kTokString);
  EXPECT_EQ(std::string("a\"b"), v->GetValue().mString.CString());
  EXPECT_EQ(kStringType, v->GetType().GetMainType());
  v = Literal("\\\"a\\tb\\x41\\\"q\\\\\"", kTokString);
  EXPECT_EQ(std::string("a\tbA\"q\\"), v->GetValue().mString.CString());
  v = Literal("\\\"a\nb\"", kTokString);  // line ends do not end it
  EXPECT_EQ(std::string("a\nb"), v->GetValue().mString.CString());
  v = Literal("\\\"\\qz\"", kTokString);  // unknown escape: one byte for two
  EXPECT_EQ(2u, v->GetValue().mString.Length());
  Start("\"q\" \"q\"");  // identical literals share one operand
  GetToken();
  TacAddr const* first = yylval->GetAddr();
  GetToken();
  EXPECT_EQ(first, yylval->GetAddr());
}

TEST_F(LexerFixture, PlaceholderNamesAndLongTokens) {
  Start("End");  // a keyword's value is the shared placeholder, never null
  GetToken();
  EXPECT_EQ(kNullSemBase, yylval);
  EXPECT_NE(nullptr, yylval);
  Literal("~Name", kId);
  EXPECT_EQ(std::string("~Name"), yylval->toString().CString());
  Start("  abc_1 \xC3\xA9t\xC3\xA9");
  EXPECT_EQ(kId, GetToken());
  EXPECT_EQ(std::string("abc_1"), yylval->toString().CString());
  EXPECT_EQ(2, yylval->Location().mStartOffset);
  EXPECT_EQ(7, yylval->Location().mEndOffset);
  EXPECT_EQ(kId, GetToken());
  EXPECT_EQ(std::string("\xC3\xA9t\xC3\xA9"), yylval->toString().CString());
  Start(std::string(5000, 'n') + " = 1");
  EXPECT_EQ(kId, GetToken());
  EXPECT_EQ(5000u, yylval->toString().Length());
  EXPECT_EQ(kAs, GetToken());
  EXPECT_EQ(Toks({kInt, kEol, kTokFloat}),
            Tokens(std::string(6000, '7') + "\n" + std::string(6000, '1') + ".5"));
  SemBase* v = Literal("\"" + std::string(7000, 's') + "\"", kTokString);
  EXPECT_EQ(7000u, v->GetValue().mString.Length());
  EXPECT_EQ(Toks({'#'}), Tokens("#" + std::string(5000, 'd')));
}

}  // namespace

namespace {

// A word's text is made once and shared by every token that spells it the
// same; another spelling is another word, with the same keyword token. The
// words go when the compilation lets them go.
TEST_F(LexerFixture, WordsAreSharedBySpellingUntilForgotten) {
  ForgetLexerWords();
  Start("total = Total + total\nIf iF");
  std::vector<string> names;
  for (int t; (t = GetToken()) != kTokEndOfText;)
    if (t == kId) names.push_back(yylval->toString());
  ASSERT_EQ(names.size(), 3u);
  EXPECT_EQ(names[0].GetStringStorage(), names[2].GetStringStorage());
  EXPECT_NE(names[0].GetStringStorage(), names[1].GetStringStorage());
  EXPECT_STREQ(names[1].CString(), "Total");
  EXPECT_EQ(Tokens("If iF"), (Toks{kTokIf, kTokIf}));
  ForgetLexerWords();
  Start("total");
  ASSERT_EQ(GetToken(), kId);
  EXPECT_NE(yylval->toString().GetStringStorage(), names[0].GetStringStorage());
}

// Skimmed tokens carry no value: the declaration scan reads method bodies
// so, and interns none of their literals.
TEST_F(LexerFixture, SkimmedTokensHaveNoValues) {
  Start("name 12 1.5 \"text\" &cFF0000 True");
  {
    SkimmedTokens skimmed;
    for (int expected : {kId, kInt, (int)kTokFloat, (int)kTokString, (int)kTokColor, (int)kTokTrue}) {
      EXPECT_EQ(GetToken(), expected);
      EXPECT_EQ(yylval, kNullSemBase);
    }
  }
  Start("name 12");
  EXPECT_EQ(GetToken(), kId);
  EXPECT_NE(yylval, kNullSemBase) << "values again once the skim ends";
}

}  // namespace
