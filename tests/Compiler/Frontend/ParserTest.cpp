// The parser: valid texts parse without a report; error reports and
// recovery (stray terminators, garbage lines, stack overflow, the stop
// without a delegate, errors of grammar rules); pragmas and conditional
// compilation.
#include <gtest/gtest.h>

#include <algorithm>

#include "ParseDriver.h"

namespace {

TEST(ParserCorpus, ValidTextsParseWithoutErrors) {
  std::vector<std::string> texts = CorpusTexts();
  ASSERT_GE(texts.size(), 5u);
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


TEST(ParserErrors, StrayTerminatorsReportAtTheOpeningLineAndParsingGoesOn) {
  // Each block opens on line 2 (0-based); code 0 is a correct body.
  struct Case { char const* body; int code; } cases[] = {
      {"  For i = 1 To 3\n    y = i\n  End If\n", 97},
      {"  For i = 3 DownTo 1\n  End\n", 97},
      {"  For Each v In list\n  End Try\n", 97},
      {"  For v As Integer = 1 To 2\n  End Select\n", 97},
      {"  While y\n  End If\n", 98},
      {"  If y Then\n  End Select\n", 95},
      {"  If y Then\n  Else\n  End Try\n", 95},
      {"  Select Case y\n  Case 1\n  End If\n", 96},
      {"  Try\n  Catch\n  End If\n", 99},
      {"  Do\n  End\n", 100},
      {"  Do Until y\n  End Try\n", 100},
      {"  For i = 1 To 3\n  Next i\n  While y\n  Wend\n  Do\n  Loop Until y\n"
       "  If y Then\n  End If\n  Select Case y\n  End Select\n  Try\n"
       "  End Try\n", 0},
  };
  for (auto const& c : cases) {
    // A later Sub with a syntax error proves that parsing went on.
    std::string text = std::string("Sub S()\n  y = 0\n") + c.body +
                       "End Sub\nSub T()\n  x = 1\n  x = )\nEnd Sub\n";
    unsigned garbage = unsigned(std::count(text.begin(), text.end(), '\n')) - 2;
    Errors expected = {{1, garbage}};
    if (c.code) expected.insert(expected.begin(), {c.code, 2u});
    ParseOutcome outcome = ParseText(text);
    EXPECT_EQ(expected, outcome.errors) << c.body;
    EXPECT_EQ(0, outcome.status) << c.body;
  }
}

TEST(ParserErrors, ReportsAndStatus) {
  struct Case { char const* text; Errors errors; int status; } cases[] = {
      // Garbage in a Sub reports once per line and parsing goes on.
      {"Sub S()\n  a = 1\n  this is ) garbage ( + *\n  b = 2\n  If b Then\n"
       "    c = 3\n  End If\n  d = ) 4\n  e = 5\nEnd Sub\nf = 6\n",
       {{1, 2u}, {1, 7u}}, 0},
      // At the top level or between class members it stops the parse.
      {"x = 1\nWend\ny = )\n", {{1, 1u}}, 1},
      {"Class C\n  Dim a As Integer\n  x = 1\nEnd Class\nz = )\n", {{1, 2u}}, 1},
      // Rules that report and go on.
      {"If a\n  b = 1\nEnd If\nc = 2\n", {{86, 0u}}, 0},
      {"If a Print 1\n", {{86, 0u}}, 0},
      {"Declare Function F Lib \"m\" ()\nx = 1\n", {{65, 0u}}, 0},
      {"x = \"abc\ny = 1\n", {{68, 0u}}, 0},
      {"Dim Try As Integer\nDim a, Each As Integer\n", {{62, 0u}, {62, 1u}}, 0},
      {"Sub S(Lib As Integer)\nEnd Sub\n", {{62, 0u}}, 0},
      // A continuation followed by more, unknown characters.
      {"Sub S()\n  a = 1\n  x _ y\n  b = 2\nEnd Sub\n", {{1, 2u}}, 0},
      {"Sub S()\n  a = 1\n  a = b @ c\n  a = &x\n  a = 2\nEnd Sub\n",
       {{1, 2u}, {1, 3u}}, 0},
      // Directives (status -1: not checked).
      // False branches are not parsed, true ones are.
      {"#if TargetWin32\n  ) garbage (\n#elseif False\n  ] more [\n"
       "#else\n  x = 1\n#endif\n#if TargetLinux\n  y = 1\n#else\n"
       "  ) garbage\n#endif\n", {}, 0},
      {"#if TargetLinux\n  x = )\n#endif\n", {{1, 1u}}, -1},
      {"#if TargetWin32 Then ) garbage (\n#if TargetLinux Then x = 1\n", {}, 0},
      {"#if TargetLinux Then x = )\n", {{1, 0u}}, -1},
      {"#if TargetWin32 Then\n  ) garbage\n#endif\nx = 1\n", {}, 0},
      // A method end closes a false branch.
      {"Sub S()\n  #if TargetWin32\n    ) skipped\nEnd Sub\nx = 1\n", {}, 0},
      {"#endif\n", {{44, 0u}}, -1},
      {"#else\n", {{43, 0u}}, -1},
      {"#elseif True\n", {{43, 0u}}, -1},
      // An integer passes #if, not #elseif.
      {"#if 1\nx = 1\n#elseif 1\ny = 1\n#endif\n", {{45, 2u}}, -1},
      {"#if x + 1\n#endif\n", {{46, 0u}}, -1},
      {"#if () Then\n#endif\n", {{46, 0u}}, -1},
      {"#if TargetLinux Print 1\n", {{86, 0u}}, -1},
      {"x = 1\n#pragma NoSuchThing True\n", {{87, 1u}}, -1},
  };
  for (auto const& c : cases) {
    ParseOutcome outcome = ParseText(c.text);
    EXPECT_EQ(c.errors, outcome.errors) << c.text;
    if (c.status >= 0) {
      EXPECT_EQ(c.status, outcome.status) << c.text;
    }
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


TEST(Directives, PragmasSetTheOptions) {
  ParseOutcome outcome = ParseText(
      "#pragma BoundsChecking\n#pragma NilObjectChecking False\n"
      "#pragma disableBackgroundTasks True\n#pragma Debug True\n"
      "#pragma ProfileCode True\n#pragma X86CallingConvention StdCall\n"
      "#pragma LockRefCountedParameters False\n");
  EXPECT_TRUE(outcome.errors.empty());
  LanguageOptions const& o = outcome.options;
  EXPECT_EQ(0, o.mBoundsChecking);
  EXPECT_EQ(0, o.mNilObjectChecking);
  EXPECT_EQ(0, o.mBackgroundTasks);
  EXPECT_EQ(1, o.mDebug);
  EXPECT_EQ(1, o.mProfileCode);
  EXPECT_EQ(1, o.mX86CallingConvention);
  EXPECT_EQ(0, o.mLockRefCountedParameters);
  outcome = ParseText("#pragma ProfileCode True\n#pragma Debug False\n"
                      "#pragma X86CallingConvention CDecl\n");
  EXPECT_EQ(0, outcome.options.mProfileCode);
  EXPECT_EQ(0, outcome.options.mX86CallingConvention);
  // A pragma inside a method ends with it.
  outcome = ParseText(
      "#pragma StackOverflowChecking False\n"
      "Sub S()\n  #pragma BoundsChecking False\n  #pragma Reset\n"
      "  #pragma NilObjectChecking False\nEnd Sub\n");
  EXPECT_TRUE(outcome.errors.empty());
  EXPECT_EQ(0, outcome.options.mStackOverflowChecking);
  EXPECT_EQ(1, outcome.options.mBoundsChecking);
  EXPECT_EQ(1, outcome.options.mNilObjectChecking);
}

}  // namespace
