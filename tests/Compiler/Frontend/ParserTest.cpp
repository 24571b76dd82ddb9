// The parser: valid texts parse without a report; error reports and
// recovery (garbage lines, stack overflow, the stop without a delegate,
// errors of grammar rules).
#include <gtest/gtest.h>

#include "ParseDriver.h"

namespace {

TEST(ParserCorpus, ValidTextsParseWithoutErrors) {
  std::vector<std::string> texts = CorpusTexts();
  ASSERT_GE(texts.size(), 3u);
  std::string all;
  for (std::string const& text : texts) all += text + "\n";
  texts.push_back(all);  // the whole corpus as one program
  // Empty and blank sources, CR-only text, moderate nesting.
  for (char const* text : {"", "\n\n\n", "' only a comment", "  \t  ",
                           "x = 1\rPrint x\r"})
    texts.push_back(text);
  texts.push_back("x = " + std::string(40, '(') + "1" + std::string(40, ')'));
  for (std::string const& text : texts) {
    ParseOutcome outcome = ParseText(text);
    EXPECT_EQ(0, outcome.status) << text.substr(0, 200);
    EXPECT_EQ(Errors(), outcome.errors) << text.substr(0, 200);
  }
}

TEST(ParserErrors, ReportsAndStatus) {
  struct Case { char const* text; Errors errors; int status; } cases[] = {
      // At the top level the parse goes on at the next line, and every
      // line's error is reported (inside a declared class it stops: see
      // the runner's tests, which compile with declarations).
      {"x = 1\nWend\ny = )\n", {{1, 1u}, {1, 2u}}, 0},
      {"a = = 1\nb = (\nc = 1 +\nd = 2\n", {{1, 0u}, {1, 1u}, {1, 2u}}, 0},
      // A block the text ends in is reported at its opening line.
      {"x = 1\nIf x Then\n  y = 2\n", {{1, 1u}}, 1},
      {"While x\n  For i = 1 To 2\n", {{1, 1u}}, 1},
      // Rules that report and go on.
      {"Declare Function F Lib \"m\" ()\nx = 1\n", {{65, 0u}}, 0},
      {"x = \"abc\ny = 1\n", {{68, 0u}}, 0},
      {"Sub S(Lib As Integer)\nEnd Sub\n", {{62, 0u}}, 0},
      // A continuation followed by more, unknown characters.
      {"Sub S()\n  a = 1\n  x _ y\n  b = 2\nEnd Sub\n", {{1, 2u}}, 0},
      {"Sub S()\n  a = 1\n  a = b @ c\n  a = &x\n  a = 2\nEnd Sub\n",
       {{1, 2u}, {1, 3u}}, 0},
      // A method end closes a false branch.
      {"Sub S()\n  #if TargetWin32\n    ) skipped\nEnd Sub\nx = 1\n", {}, 0},
  };
  for (auto const& c : cases) {
    ParseOutcome outcome = ParseText(c.text);
    EXPECT_EQ(c.errors, outcome.errors) << c.text;
    EXPECT_EQ(c.status, outcome.status) << c.text;
  }
}

TEST(ParserErrors, DeepNestingOverflowsTheStackWithErrorFive) {
  ParseOutcome outcome = ParseText("x = " + std::string(1000, '(') + "1" +
                                   std::string(1000, ')'));
  EXPECT_EQ(2, outcome.status);
  ASSERT_FALSE(outcome.errors.empty());
  EXPECT_EQ(std::make_pair(5, 0u), outcome.errors.back());
  std::string blocks;
  for (int i = 0; i < 300; i++) blocks += "If a Then\n";
  outcome = ParseText("Sub S()\n" + blocks);
  EXPECT_EQ(2, outcome.status);
  EXPECT_EQ(5, outcome.errors.back().first);
}

TEST(ParserErrors, WithoutDelegateOrOnCancelTheParseStops) {
  ParseOutcome outcome = ParseText(
      "Sub S()\n  a = 1\n  If a\n  End If\n  b = ) 1\nEnd Sub\n", false);
  EXPECT_EQ(1, outcome.status);
  EXPECT_TRUE(outcome.errorFlag);
  TestDelegate delegate;
  delegate.mCancel = true;
  outcome = ParseWith("x = 1\ny = 2\n", &delegate);
  EXPECT_EQ(1, outcome.status);
  EXPECT_EQ(1, delegate.mProgressCalls);
  EXPECT_TRUE(outcome.errors.empty());
}


}  // namespace
