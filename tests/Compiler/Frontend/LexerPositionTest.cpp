// Reading ahead and past text: the end-of-line peek, skipping a line, a
// method or a false conditional branch, and the scanner's own position.
#include <gtest/gtest.h>

#include <string>

#include "Compiler/Frontend/Lexer.h"
#include "Compiler/Frontend/SrcContext.h"
#include "Compiler/SemBase.h"

namespace {

class PositionFixture : public testing::Test {
 protected:
  void SetUp() override { mContext = new SrcContext; }
  void TearDown() override { delete mContext; }
  void Start(std::string const& text) {
    mText = text;
    InitLexer(mText.c_str());
  }
  // The identifier text of the next token, or "#<number>" for others.
  std::string Next() {
    int token = GetToken();
    return token == kTokIdent ? yylval->toString().CString()
                              : "#" + std::to_string(token);
  }
  static std::string T(int token) { return "#" + std::to_string(token); }
  SrcContext* mContext = nullptr;
  std::string mText;
};

TEST_F(PositionFixture, PeekAndIgnoreRestOfLine) {
  Start("a\nb c");
  EXPECT_EQ("a", Next());
  EXPECT_TRUE(IsAtEndOfLine());
  EXPECT_EQ("#361", Next());
  EXPECT_EQ("b", Next());
  EXPECT_FALSE(IsAtEndOfLine());
  EXPECT_EQ("c", Next());
  Start("a b c\nd");
  Next();
  IgnoreRestOfLine();  // leaves the line end
  EXPECT_EQ("#361", Next());
  EXPECT_EQ("d", Next());
  Start("a b c");
  Next();
  IgnoreRestOfLine();
  EXPECT_EQ("#-1", Next());
}

TEST_F(PositionFixture, SkipsStopBeforeWhatTheGrammarReads) {
  Start("x = 1\nEnd If\nEnd Function\ny");
  SkipToEndOfMethod();
  EXPECT_EQ(T(kTokEnd), Next());
  EXPECT_EQ(T(kTokFunction), Next());
  Start("x y z");
  SkipToEndOfMethod();
  EXPECT_EQ("#-1", Next());
  Start("a\n#if x\nb\n#endif\nc\n#else\nd\n#endif\n");
  SkipConditionallyCompiledLines(false);  // to #else and past it
  EXPECT_EQ("d", Next());
  Start("a\n#endif\n");
  SkipConditionallyCompiledLines(false);
  EXPECT_EQ(T(kTokEndIfDirective), Next());
  Start("a\n#elseif y\n");
  SkipConditionallyCompiledLines(false);
  EXPECT_EQ(T(kTokElseIfDirective), Next());
  Start("a\n#else\nb\n#elseif z\n#endif\n");
  SkipConditionallyCompiledLines(true);  // to the end, past #else, #elseif
  EXPECT_EQ(T(kTokEndIfDirective), Next());
  Start("a\nEnd If\nEnd Sub\nb");  // a method end ends a skip
  SkipConditionallyCompiledLines(false);
  EXPECT_EQ(T(kTokEnd), Next());
  EXPECT_EQ(T(kTokSub), Next());
  EXPECT_EQ("#361", Next());
}

TEST_F(PositionFixture, ScannerLexerKeepsItsOwnPosition) {
  Start("p q r");
  EXPECT_EQ("p", Next());
  Lexer scanner("x = 1\ny");
  ASSERT_TRUE(scanner.NextToken());
  EXPECT_EQ(kTokIdent, scanner.LastToken());
  EXPECT_EQ(std::string("x"), scanner.TokenText().CString());
  EXPECT_EQ("q", Next());  // the parser's position is untouched
  ASSERT_TRUE(scanner.NextToken());
  EXPECT_EQ(kTokAssign, scanner.LastToken());
  for (int i = 0; i < 3; i++) ASSERT_TRUE(scanner.NextToken());
  EXPECT_EQ(std::string("y"), scanner.TokenText().CString());
  EXPECT_EQ(1u, scanner.Line());
  EXPECT_FALSE(scanner.NextToken());
  EXPECT_EQ("r", Next());
  scanner.Reset();
  ASSERT_TRUE(scanner.NextToken());
  EXPECT_EQ(std::string("x"), scanner.TokenText().CString());
  scanner.SetLexerPosition(1000);
  EXPECT_FALSE(scanner.NextToken());
}

}  // namespace
