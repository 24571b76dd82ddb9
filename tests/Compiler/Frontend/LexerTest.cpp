// The token rules that are easy to get wrong: assignment detection, Rem and
// comments, continuation, literal types and values, strings, tilde names,
// and tokens longer than the token buffer.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "Compiler/Frontend/Lexer.h"
#include "Compiler/Frontend/SrcContext.h"
#include "Compiler/SemBase.h"

namespace {

// A compilation context for the literals, and the text kept alive.
class LexerFixture : public testing::Test {
 protected:
  void SetUp() override { mContext = new SrcContext; }
  void TearDown() override { delete mContext; }

  void Start(std::string const& text) {
    mText = text;
    InitLexer(mText.c_str());
  }
  // Every token up to the end of the text (bounded, so a loop shows).
  std::vector<int> Tokens(std::string const& text) {
    Start(text);
    std::vector<int> tokens;
    for (int i = 0; i < 10000; i++) {
      int token = GetToken();
      if (token == kTokEndOfText) break;
      tokens.push_back(token);
    }
    return tokens;
  }
  // The single token of a literal and its value.
  SemBase* Literal(std::string const& text, int expectedToken) {
    Start(text);
    EXPECT_EQ(expectedToken, GetToken()) << text;
    return yylval;
  }

  SrcContext* mContext = nullptr;
  std::string mText;
};

typedef std::vector<int> Toks;
const int kId = kTokIdent, kAs = kTokAssign, kInt = kTokInteger, kEol = kTokEOL;

TEST_F(LexerFixture, FirstEqualsOfOneDottedNameAssigns) {
  EXPECT_EQ(Toks({kId, kAs, kId, '=', kId}), Tokens("a = b = c"));
  EXPECT_EQ(Toks({kId, '(', kId, '=', kInt, ')', kAs, kInt}),
            Tokens("a(x = 1) = 2"));
  EXPECT_EQ(Toks({kTokIf, kId, '=', kInt, kTokThen, kId, kAs, kInt}),
            Tokens("If a = 1 Then b = 2"));
  EXPECT_EQ(Toks({kId, '.', kId, '(', kInt, ')', '.', kId, kAs, kInt}),
            Tokens("a.b(2).c = 1"));
  EXPECT_EQ(Toks({kTokMe, '.', kId, kAs, kInt}), Tokens("Me.x = 1"));
  EXPECT_EQ(
      Toks({kTokIf, kId, kTokThen, kId, kAs, kInt, kTokElse, kId, kAs, kInt}),
      Tokens("If c Then a = 1 Else b = 2"));
}

TEST_F(LexerFixture, EqualsAfterTwoNamesKeywordsOrLiteralsCompares) {
  EXPECT_EQ(Toks({kId, kId, '=', kInt}), Tokens("x y = 1"));
  EXPECT_EQ(Toks({kTokDim, kId, kTokAs, kId, '=', kInt}),
            Tokens("Dim a As Integer = 1"));
  EXPECT_EQ(Toks({kTokFor, kId, '=', kInt, kTokTo, kInt}),
            Tokens("For i = 1 To 3"));
  EXPECT_EQ(Toks({kTokString, '=', kId}), Tokens("\"s\" = a"));
  EXPECT_EQ(Toks({kId, kId, ',', kId, '=', kInt}), Tokens("f a, b = 1"));
}

TEST_F(LexerFixture, LineEndResetsTheStatementTracking) {
  EXPECT_EQ(Toks({kId, kId, '=', kInt, kEol, kId, kAs, kInt}),
            Tokens("x y = 1\nz = 2"));
}

TEST_F(LexerFixture, RemAndCommentsEndTheLineAnywhere) {
  EXPECT_EQ(Toks({kId, kEol, kId}), Tokens("a Rem b\nc"));
  EXPECT_EQ(Toks({kId, kEol, kId}), Tokens("a rEM b = c\nd"));
  EXPECT_EQ(Toks({kId}), Tokens("REM whole line\na"));
  EXPECT_EQ(Toks({kId, kEol, kId}), Tokens("a ' note\nb"));
  EXPECT_EQ(Toks({kId, kEol, kId}), Tokens("a // note\nb"));
  EXPECT_EQ(Toks({kId, '/', kId}), Tokens("a / b"));
  // Rem is a word only as a whole word.
  EXPECT_EQ(Toks({kId, kAs, kInt}), Tokens("Remark = 1"));
}

TEST_F(LexerFixture, BlankLinesGiveNoTokenAndRunsOfLineEndsOne) {
  EXPECT_EQ(Toks({kId, kEol, kId, kEol}), Tokens("\n\n  a \n\n\n b\n\n"));
}

TEST_F(LexerFixture, ContinuationJoinsLinesAlsoBeforeAComment) {
  EXPECT_EQ(Toks({kId, '+', kId}), Tokens("a _ ' note\n+ b"));
  EXPECT_EQ(Toks({kId, '+', kId}), Tokens("a _\r\n+ b"));
  // The joined line keeps its count.
  Start("a _\nb\nc");
  GetToken();
  GetToken();
  EXPECT_EQ(1u, current_line());
  EXPECT_EQ(kEol, GetToken());
  EXPECT_EQ(kId, GetToken());
  EXPECT_EQ(2u, current_line());
  // A "_" with more on its line is a token of its own.
  EXPECT_EQ(Toks({kId, kTokContinuation, kId}), Tokens("x _ y"));
  EXPECT_EQ(Toks({kId}), Tokens("a_b"));
}

TEST_F(LexerFixture, ContinuationKeepsTheStatementTracking) {
  EXPECT_EQ(Toks({kId, kAs, kInt}), Tokens("a _\n= 1"));
  EXPECT_EQ(Toks({kId, kId, '=', kInt}), Tokens("x _\ny = 1"));
}

TEST_F(LexerFixture, CrLfAndCrCountLinesAlike) {
  for (char const* text : {"a\nb\nc", "a\r\nb\r\nc", "a\rb\rc"}) {
    Start(text);
    std::vector<unsigned> lines;
    int token;
    while ((token = GetToken()) != kTokEndOfText)
      if (token == kId) lines.push_back(current_line());
    EXPECT_EQ(std::vector<unsigned>({0, 1, 2}), lines) << text;
  }
  Start("a\r\nb\nc");
  EXPECT_EQ(2u, total_lines());
  Start("a\rb\rc");
  EXPECT_EQ(0u, total_lines());
  EXPECT_EQ(Toks({kId, kEol, kId}), Tokens("a\r\r\nb"));
}

TEST_F(LexerFixture, DecimalIntegersAreInt32OrSignedInt64) {
  struct Case {
    char const* text;
    SimpleDataType type;
    long long value;
  } cases[] = {
      {"0", kSInt32Type, 0},
      {"2147483647", kSInt32Type, 2147483647LL},
      {"2147483648", kSInt64Type, 2147483648LL},
      {"4294967295", kSInt64Type, 4294967295LL},
      {"4294967296", kSInt64Type, 4294967296LL},
  };
  for (auto const& c : cases) {
    SemBase* v = Literal(c.text, kInt);
    EXPECT_EQ(c.type, v->GetType().GetMainType()) << c.text;
    long long got =
        c.type == kSInt32Type ? v->GetValue().uSInt32 : v->GetValue().uSInt64;
    EXPECT_EQ(c.value, got) << c.text;
  }
}

TEST_F(LexerFixture, RadixLiteralsAreUnsigned) {
  SemBase* v = Literal("&hFFFFFFFF", kInt);
  EXPECT_EQ(kUInt32Type, v->GetType().GetMainType());
  EXPECT_EQ(-1, v->GetValue().uSInt32);
  v = Literal("&h100000000", kInt);
  EXPECT_EQ(kUInt64Type, v->GetType().GetMainType());
  EXPECT_EQ(0x100000000LL, v->GetValue().uSInt64);
  EXPECT_EQ(8, Literal("&o10", kInt)->GetValue().uSInt32);
  EXPECT_EQ(5, Literal("&B101", kInt)->GetValue().uSInt32);
  EXPECT_EQ(0, Literal("&h", kInt)->GetValue().uSInt32);
  // Overflow drops the high digits silently.
  EXPECT_EQ(0x23456789ABCDEF01LL,
            Literal("&h123456789ABCDEF01", kInt)->GetValue().uSInt64);
  EXPECT_EQ(Toks({'&', kId}), Tokens("&x"));
}

TEST_F(LexerFixture, RealLiterals) {
  struct Case {
    char const* text;
    double value;
  } cases[] = {{"1.", 1.0}, {"1.5e3", 1500.0}, {"1e", 1.0},
               {".5", 0.5}, {"2E-2", 0.02},    {"3.25", 3.25}};
  for (auto const& c : cases) {
    SemBase* v = Literal(c.text, kTokFloat);
    EXPECT_EQ(kReal64Type, v->GetType().GetMainType()) << c.text;
    EXPECT_DOUBLE_EQ(c.value, v->GetValue().uReal64) << c.text;
  }
  EXPECT_EQ(Toks({kId, '.', kId}), Tokens("a.b"));
}

TEST_F(LexerFixture, ColourDigitsHaveFixedPlaces) {
  struct Case {
    char const* text;
    long value;
  } cases[] = {{"&c00FF00", 0x00FF00},
               {"&cFF", 0xFF0000},
               {"&c", 0},
               {"&C123456", 0x123456},
               {"&c1", 0x100000}};
  for (auto const& c : cases) {
    SemBase* v = Literal(c.text, kTokColor);
    EXPECT_EQ(kColorType, v->GetType().GetMainType()) << c.text;
    EXPECT_EQ(c.value, v->GetValue().uSInt32) << c.text;
  }
  // A seventh digit is a number of its own.
  EXPECT_EQ(Toks({kTokColor, kInt}), Tokens("&c1234567"));
}

TEST_F(LexerFixture, StringLiterals) {
  SemBase* v = Literal("\"a\"\"b\"", kTokString);
  EXPECT_EQ(std::string("a\"b"), v->GetValue().mString.CString());
  EXPECT_EQ(kStringType, v->GetType().GetMainType());
  EXPECT_EQ(Toks({kTokBadString, kEol, kId}), Tokens("\"abc\nx"));
  EXPECT_EQ(Toks({kTokBadString}), Tokens("\"abc"));
  // Identical literals share one operand.
  Start("\"q\" \"q\"");
  GetToken();
  TacAddr const* first = yylval->GetAddr();
  GetToken();
  EXPECT_EQ(first, yylval->GetAddr());
}

TEST_F(LexerFixture, EscapedStringLiterals) {
  SemBase* v = Literal("\\\"a\\tb\\x41\\\"q\\\\\"", kTokString);
  EXPECT_EQ(std::string("a\tbA\"q\\"), v->GetValue().mString.CString());
  // Line ends do not end it.
  v = Literal("\\\"a\nb\"", kTokString);
  EXPECT_EQ(std::string("a\nb"), v->GetValue().mString.CString());
  // An unknown escape gives one byte for two.
  v = Literal("\\\"\\qz\"", kTokString);
  EXPECT_EQ(2u, v->GetValue().mString.Length());
  EXPECT_EQ(Toks({'\\', kId}), Tokens("\\ a"));
}

TEST_F(LexerFixture, KeywordsIgnoreCaseAndBooleansCarryValues) {
  EXPECT_EQ(Toks({kTokWhile, kTokWend, kTokGlobal}),
            Tokens("wHiLe WEND global"));
  SemBase* v = Literal("TRUE", kTokTrue);
  EXPECT_EQ(kBooleanType, v->GetType().GetMainType());
  EXPECT_EQ(1, v->GetValue().uSInt32);
  EXPECT_EQ(0, Literal("false", kTokFalse)->GetValue().uSInt32);
  // A keyword's value is the shared placeholder, never null.
  Start("End");
  GetToken();
  EXPECT_EQ(kNullSemBase, yylval);
  EXPECT_NE(nullptr, yylval);
}

TEST_F(LexerFixture, DirectivesAndComparisons) {
  EXPECT_EQ(Toks({kTokIfDirective, kTokElseIfDirective, kTokElseDirective,
                  kTokEndIfDirective, kTokPragmaDirective, '#'}),
            Tokens("#If #ELSEIF #else #EndIf #pragma #tag"));
  EXPECT_EQ(Toks({kTokGE, kTokLE, kTokNE, '<', '>'}), Tokens(">= <= <> < >"));
}

TEST_F(LexerFixture, TildeStartsANameOnlyAtTheStartOfAWord) {
  Start("~Name");
  EXPECT_EQ(kId, GetToken());
  EXPECT_EQ(std::string("~Name"), yylval->toString().CString());
  EXPECT_EQ(Toks({kId, '~', kId}), Tokens("a~b"));
}

TEST_F(LexerFixture, IdentifiersKeepTheirTextAndLocation) {
  Start("  abc_1 \xC3\xA9t\xC3\xA9");
  EXPECT_EQ(kId, GetToken());
  EXPECT_EQ(std::string("abc_1"), yylval->toString().CString());
  EXPECT_EQ(2, yylval->Location().mStartOffset);
  EXPECT_EQ(7, yylval->Location().mEndOffset);
  EXPECT_EQ(kId, GetToken());
  EXPECT_EQ(std::string("\xC3\xA9t\xC3\xA9"), yylval->toString().CString());
}

TEST_F(LexerFixture, TokensLongerThanTheBufferStaySafe) {
  std::string name(5000, 'n');
  Start(name + " = 1");
  EXPECT_EQ(kId, GetToken());
  EXPECT_EQ(5000u, yylval->toString().Length());
  EXPECT_EQ(kAs, GetToken());
  EXPECT_EQ(
      Toks({kInt, kEol, kTokFloat}),
      Tokens(std::string(6000, '7') + "\n" + std::string(6000, '1') + ".5"));
  SemBase* v = Literal("\"" + std::string(7000, 's') + "\"", kTokString);
  EXPECT_EQ(7000u, v->GetValue().mString.Length());
  EXPECT_EQ(Toks({'#'}), Tokens("#" + std::string(5000, 'd')));
}

TEST_F(LexerFixture, UnknownBytesAreTheirOwnTokens) {
  EXPECT_EQ(Toks({'@', '$', ';', '{'}), Tokens("@ $ ; {"));
}

}  // namespace
