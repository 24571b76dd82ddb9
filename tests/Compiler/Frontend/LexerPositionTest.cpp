// Reading ahead and past text: the end-of-line peek, skipping a line, a
// method or a false conditional branch, and the declaration scanner's
// private position.
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
    if (token == kTokIdent) return yylval->toString().CString();
    return "#" + std::to_string(token);
  }

  SrcContext* mContext = nullptr;
  std::string mText;
};

TEST_F(PositionFixture, EndOfLinePeekConsumesNothing) {
  Start("a\nb c");
  EXPECT_EQ("a", Next());
  EXPECT_TRUE(IsAtEndOfLine());
  EXPECT_EQ("#361", Next());
  EXPECT_EQ("b", Next());
  EXPECT_FALSE(IsAtEndOfLine());
  EXPECT_EQ("c", Next());
}

TEST_F(PositionFixture, IgnoreRestOfLineLeavesTheLineEnd) {
  Start("a b c\nd");
  Next();
  IgnoreRestOfLine();
  EXPECT_EQ("#361", Next());
  EXPECT_EQ("d", Next());
  // At the end of a text without a final line end it stops as well.
  Start("a b c");
  Next();
  IgnoreRestOfLine();
  EXPECT_EQ("#-1", Next());
}

TEST_F(PositionFixture, SkipToEndOfMethodStopsBeforeEndSub) {
  Start("x = 1\nEnd If\nEnd Function\ny");
  SkipToEndOfMethod();
  EXPECT_EQ("#" + std::to_string(kTokEnd), Next());
  EXPECT_EQ("#" + std::to_string(kTokFunction), Next());
  Start("x y z");
  SkipToEndOfMethod();
  EXPECT_EQ("#-1", Next());
}

TEST_F(PositionFixture, FalseBranchSkipsToElseAndPastIt) {
  Start("a\n#if x\nb\n#endif\nc\n#else\nd\n#endif\n");
  SkipConditionallyCompiledLines(false);
  EXPECT_EQ("d", Next());
}

TEST_F(PositionFixture, FalseBranchLeavesEndIfAndElseIfToTheGrammar) {
  Start("a\n#endif\n");
  SkipConditionallyCompiledLines(false);
  EXPECT_EQ("#" + std::to_string(kTokEndIfDirective), Next());
  Start("a\n#elseif y\n");
  SkipConditionallyCompiledLines(false);
  EXPECT_EQ("#" + std::to_string(kTokElseIfDirective), Next());
  // Skipping to the end passes over #else and #elseif.
  Start("a\n#else\nb\n#elseif z\n#endif\n");
  SkipConditionallyCompiledLines(true);
  EXPECT_EQ("#" + std::to_string(kTokEndIfDirective), Next());
}

TEST_F(PositionFixture, MethodEndEndsASkipAndStaysToBeRead) {
  Start("a\nEnd If\nEnd Sub\nb");
  SkipConditionallyCompiledLines(false);
  EXPECT_EQ("#" + std::to_string(kTokEnd), Next());
  EXPECT_EQ("#" + std::to_string(kTokSub), Next());
  EXPECT_EQ("#361", Next());
}

TEST_F(PositionFixture, ScannerLexerKeepsItsOwnPosition) {
  Start("p q r");
  EXPECT_EQ("p", Next());
  Lexer scanner("x = 1\ny");
  ASSERT_TRUE(scanner.NextToken());
  EXPECT_EQ(kTokIdent, scanner.LastToken());
  EXPECT_EQ(std::string("x"), scanner.TokenText().CString());
  // The parser's position is untouched.
  EXPECT_EQ("q", Next());
  ASSERT_TRUE(scanner.NextToken());
  EXPECT_EQ(kTokAssign, scanner.LastToken());
  ASSERT_TRUE(scanner.NextToken());
  ASSERT_TRUE(scanner.NextToken());
  ASSERT_TRUE(scanner.NextToken());
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
