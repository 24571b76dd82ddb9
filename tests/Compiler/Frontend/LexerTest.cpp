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
  struct Case {
    std::string text;
    Toks tokens;
  } cases[] = {
      // The first "=" of one dotted name assigns.
      {"a = b = c", {kId, kAs, kId, '=', kId}},
      {"a(x = 1) = 2", {kId, '(', kId, '=', kInt, ')', kAs, kInt}},
      {"If a = 1 Then b = 2", {kTokIf, kId, '=', kInt, kTokThen, kId, kAs, kInt}},
      {"a.b(2).c = 1", {kId, '.', kId, '(', kInt, ')', '.', kId, kAs, kInt}},
      {"Me.x = 1", {kTokMe, '.', kId, kAs, kInt}},
      {"If c Then a = 1 Else b = 2",
       {kTokIf, kId, kTokThen, kId, kAs, kInt, kTokElse, kId, kAs, kInt}},
      // After two names, keywords or literals it compares.
      {"x y = 1", {kId, kId, '=', kInt}},
      {"Dim a As Integer = 1", {kTokDim, kId, kTokAs, kId, '=', kInt}},
      {"For i = 1 To 3", {kTokFor, kId, '=', kInt, kTokTo, kInt}},
      {"\"s\" = a", {kTokString, '=', kId}},
      {"f a, b = 1", {kId, kId, ',', kId, '=', kInt}},
      {"x y = 1\nz = 2", {kId, kId, '=', kInt, kEol, kId, kAs, kInt}},
      // Rem and comments end the line anywhere; Rem only as a whole word.
      {"a Rem b\nc", {kId, kEol, kId}},
      {"a rEM b = c\nd", {kId, kEol, kId}},
      {"REM whole line\na", {kId}},
      {"a ' note\nb", {kId, kEol, kId}},
      {"a // note\nb", {kId, kEol, kId}},
      {"a / b", {kId, '/', kId}},
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
      {"a.b", {kId, '.', kId}},
      {"&c1234567", {kTokColor, kInt}},  // a seventh digit is a number
      {"\"abc\nx", {kTokBadString, kEol, kId}},
      {"\"abc", {kTokBadString}},
      {"\\ a", {'\\', kId}},
      {"wHiLe WEND global", {kTokWhile, kTokWend, kTokGlobal}},
      {"#If #ELSEIF #else #EndIf #pragma #tag",
       {kTokIfDirective, kTokElseIfDirective, kTokElseDirective,
        kTokEndIfDirective, kTokPragmaDirective, '#'}},
      {">= <= <> < >", {kTokGE, kTokLE, kTokNE, '<', '>'}},
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

TEST_F(LexerFixture, IntegerLiterals) {
  struct Case {  // kNoType: the type is not checked
    char const* text;
    SimpleDataType type;
    bool wide;
    long long value;
  } cases[] = {
      {"0", kSInt32Type, false, 0},
      {"2147483647", kSInt32Type, false, 2147483647LL},
      {"2147483648", kSInt64Type, true, 2147483648LL},
      {"4294967295", kSInt64Type, true, 4294967295LL},
      {"4294967296", kSInt64Type, true, 4294967296LL},
      {"&hFFFFFFFF", kUInt32Type, false, -1},
      {"&h100000000", kUInt64Type, true, 0x100000000LL},
      {"&o10", kNoType, false, 8},
      {"&B101", kNoType, false, 5},
      {"&h", kNoType, false, 0},
      {"&h123456789ABCDEF01", kNoType, true, 0x23456789ABCDEF01LL},  // overflow
  };
  for (auto const& c : cases) {
    SemBase* v = Literal(c.text, kInt);
    if (c.type != kNoType)
      EXPECT_EQ(c.type, v->GetType().GetMainType()) << c.text;
    EXPECT_EQ(c.value, c.wide ? v->GetValue().uSInt64 : v->GetValue().uSInt32)
        << c.text;
  }
}

TEST_F(LexerFixture, RealAndColourLiterals) {
  struct Real {
    char const* text;
    double value;
  } reals[] = {{"1.", 1.0}, {"1.5e3", 1500.0}, {"1e", 1.0},
               {".5", 0.5}, {"2E-2", 0.02},    {"3.25", 3.25}};
  for (auto const& c : reals) {
    SemBase* v = Literal(c.text, kTokFloat);
    EXPECT_EQ(kReal64Type, v->GetType().GetMainType()) << c.text;
    EXPECT_DOUBLE_EQ(c.value, v->GetValue().uReal64) << c.text;
  }
  struct Colour {
    char const* text;
    long value;
  } colours[] = {{"&c00FF00", 0x00FF00}, {"&cFF", 0xFF0000}, {"&c", 0},
                 {"&C123456", 0x123456}, {"&c1", 0x100000}};
  for (auto const& c : colours) {
    SemBase* v = Literal(c.text, kTokColor);
    EXPECT_EQ(kColorType, v->GetType().GetMainType()) << c.text;
    EXPECT_EQ(c.value, v->GetValue().uSInt32) << c.text;
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

TEST_F(LexerFixture, KeywordValuesNamesAndLongTokens) {
  SemBase* v = Literal("TRUE", kTokTrue);
  EXPECT_EQ(kBooleanType, v->GetType().GetMainType());
  EXPECT_EQ(1, v->GetValue().uSInt32);
  EXPECT_EQ(0, Literal("false", kTokFalse)->GetValue().uSInt32);
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
  v = Literal("\"" + std::string(7000, 's') + "\"", kTokString);
  EXPECT_EQ(7000u, v->GetValue().mString.Length());
  EXPECT_EQ(Toks({'#'}), Tokens("#" + std::string(5000, 'd')));
}

}  // namespace
