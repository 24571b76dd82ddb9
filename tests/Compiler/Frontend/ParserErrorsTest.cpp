// Error reports and recovery: stray block terminators, garbage lines,
// parser stack overflow, the single-error stop without a delegate, and the
// errors that grammar rules raise themselves.
#include <gtest/gtest.h>

#include "ParseDriver.h"

namespace {

typedef std::vector<std::pair<int, unsigned>> Errors;

// A Sub whose body is `body`, followed by a statement with a syntax error
// on a known line, to prove that parsing went on after the body.
std::string InSub(std::string const& body) {
  return "Sub S()\n" + body + "End Sub\nSub T()\n  x = 1\n  x = )\nEnd Sub\n";
}

unsigned LineCount(std::string const& text) {
  return unsigned(std::count(text.begin(), text.end(), '\n'));
}

struct TerminatorCase {
  char const* body;  // the block opens on line 2 (0-based) of the Sub
  int code;
};

TEST(ParserErrors, StrayTerminatorsReportAtTheOpeningLine) {
  TerminatorCase cases[] = {
      {"  y = 0\n  For i = 1 To 3\n    y = i\n  End If\n", 97},
      {"  y = 0\n  For i = 3 DownTo 1\n  End\n", 97},
      {"  y = 0\n  For Each v In list\n  End Try\n", 97},
      {"  y = 0\n  For v As Integer = 1 To 2\n  End Select\n", 97},
      {"  y = 0\n  While y\n  End If\n", 98},
      {"  y = 0\n  If y Then\n  End Select\n", 95},
      {"  y = 0\n  If y Then\n  Else\n  End Try\n", 95},
      {"  y = 0\n  Select Case y\n  Case 1\n  End If\n", 96},
      {"  y = 0\n  Try\n  Catch\n  End If\n", 99},
      {"  y = 0\n  Do\n  End\n", 100},
      {"  y = 0\n  Do Until y\n  End Try\n", 100},
  };
  for (auto const& c : cases) {
    std::string text = InSub(c.body);
    ParseOutcome outcome = ParseText(text);
    unsigned garbageLine = LineCount(text) - 2;
    Errors expected = {{c.code, 2u}, {1, garbageLine}};
    EXPECT_EQ(expected, outcome.errors) << c.body;
    EXPECT_EQ(0, outcome.status) << c.body;
  }
}

TEST(ParserErrors, CorrectTerminatorsReportNothing) {
  ParseOutcome outcome =
      ParseText(InSub("  y = 0\n  For i = 1 To 3\n  Next i\n  While y\n  Wend\n"
                      "  Do\n  Loop Until y\n  If y Then\n  End If\n"
                      "  Select Case y\n  End Select\n  Try\n  End Try\n"));
  EXPECT_EQ(std::vector<int>({1}), ErrorCodes(outcome));
}

TEST(ParserErrors, GarbageLineInSubReportsOnceAndParsingGoesOn) {
  std::string text =
      "Sub S()\n"
      "  a = 1\n"
      "  this is ) garbage ( + *\n"
      "  b = 2\n"
      "  If b Then\n"
      "    c = 3\n"
      "  End If\n"
      "  d = ) 4\n"
      "  e = 5\n"
      "End Sub\n"
      "f = 6\n";
  ParseOutcome outcome = ParseText(text);
  EXPECT_EQ(Errors({{1, 2u}, {1, 7u}}), outcome.errors);
  EXPECT_EQ(0, outcome.status);
}

TEST(ParserErrors, TopLevelSyntaxErrorStopsTheParse) {
  ParseOutcome outcome = ParseText("x = 1\nWend\ny = )\n");
  EXPECT_EQ(Errors({{1, 1u}}), outcome.errors);
  EXPECT_EQ(1, outcome.status);
}

TEST(ParserErrors, ErrorBetweenClassMembersStopsTheParse) {
  ParseOutcome outcome =
      ParseText("Class C\n  Dim a As Integer\n  x = 1\nEnd Class\nz = )\n");
  EXPECT_EQ(Errors({{1, 2u}}), outcome.errors);
  EXPECT_EQ(1, outcome.status);
}

TEST(ParserErrors, DeepNestingOverflowsTheStackWithErrorFive) {
  std::string deep(1000, '(');
  ParseOutcome outcome =
      ParseText("x = " + deep + "1" + std::string(1000, ')'));
  EXPECT_EQ(2, outcome.status);
  ASSERT_FALSE(outcome.errors.empty());
  EXPECT_EQ(5, outcome.errors.back().first);
  EXPECT_EQ(0u, outcome.errors.back().second);
  // Deeply nested blocks end the same way.
  std::string blocks;
  for (int i = 0; i < 300; i++) blocks += "If a Then\n";
  outcome = ParseText("Sub S()\n" + blocks);
  EXPECT_EQ(2, outcome.status);
  EXPECT_EQ(5, outcome.errors.back().first);
}

TEST(ParserErrors, WithoutDelegateTheFirstErrorStopsTheParse) {
  ParseOutcome outcome = ParseText(
      "Sub S()\n  a = 1\n  If a\n  End If\n  b = ) 1\nEnd Sub\n", false);
  EXPECT_EQ(1, outcome.status);
  EXPECT_TRUE(outcome.errorFlag);
}

TEST(ParserErrors, DelegateCanCancelAtAnyExpression) {
  TestDelegate delegate;
  delegate.mCancel = true;
  ParseOutcome outcome = ParseWith("x = 1\ny = 2\n", &delegate);
  EXPECT_EQ(1, outcome.status);
  EXPECT_EQ(1, delegate.mProgressCalls);
  EXPECT_TRUE(outcome.errors.empty());
}

TEST(ParserErrors, RulesThatReportAndGoOn) {
  struct Case {
    char const* text;
    Errors errors;
  } cases[] = {
      {"If a\n  b = 1\nEnd If\nc = 2\n", {{86, 0u}}},
      {"If a Print 1\n", {{86, 0u}}},
      {"Declare Function F Lib \"m\" ()\nx = 1\n", {{65, 0u}}},
      {"x = \"abc\ny = 1\n", {{68, 0u}}},
      {"Dim Try As Integer\nDim a, Each As Integer\n", {{62, 0u}, {62, 1u}}},
      {"Sub S(Lib As Integer)\nEnd Sub\n", {{62, 0u}}},
  };
  for (auto const& c : cases) {
    ParseOutcome outcome = ParseText(c.text);
    EXPECT_EQ(c.errors, outcome.errors) << c.text;
    EXPECT_EQ(0, outcome.status) << c.text;
  }
}

TEST(ParserErrors, ContinuationFollowedByMoreIsASyntaxError) {
  ParseOutcome outcome =
      ParseText("Sub S()\n  a = 1\n  x _ y\n  b = 2\nEnd Sub\n");
  EXPECT_EQ(Errors({{1, 2u}}), outcome.errors);
  EXPECT_EQ(0, outcome.status);
}

TEST(ParserErrors, UnknownCharactersAreSyntaxErrors) {
  ParseOutcome outcome =
      ParseText("Sub S()\n  a = 1\n  a = b @ c\n  a = &x\n  a = 2\nEnd Sub\n");
  EXPECT_EQ(Errors({{1, 2u}, {1, 3u}}), outcome.errors);
}

}  // namespace
