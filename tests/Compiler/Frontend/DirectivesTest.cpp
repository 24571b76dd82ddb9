// Pragmas and conditional compilation as the parser meets them.
#include <gtest/gtest.h>

#include "ParseDriver.h"

namespace {

typedef std::vector<std::pair<int, unsigned>> Errors;

TEST(Directives, FalseBranchesAreNotParsed) {
  ParseOutcome outcome = ParseText(
      "#if TargetWin32\n  ) garbage (\n#elseif False\n  ] more [\n"
      "#else\n  x = 1\n#endif\n"
      "#if TargetLinux\n  y = 1\n#else\n  ) garbage\n#endif\n");
  EXPECT_EQ(0, outcome.status);
  EXPECT_TRUE(outcome.errors.empty());
}

TEST(Directives, TrueBranchesAreParsed) {
  ParseOutcome outcome = ParseText("#if TargetLinux\n  x = )\n#endif\n");
  EXPECT_EQ(std::vector<int>({1}), ErrorCodes(outcome));
}

TEST(Directives, OneLineForm) {
  ParseOutcome outcome = ParseText(
      "#if TargetWin32 Then ) garbage (\n#if TargetLinux Then x = 1\n");
  EXPECT_TRUE(outcome.errors.empty());
  outcome = ParseText("#if TargetLinux Then x = )\n");
  EXPECT_EQ(std::vector<int>({1}), ErrorCodes(outcome));
}

TEST(Directives, BlockFormWithThen) {
  ParseOutcome outcome =
      ParseText("#if TargetWin32 Then\n  ) garbage\n#endif\nx = 1\n");
  EXPECT_TRUE(outcome.errors.empty());
}

TEST(Directives, MisplacedDirectivesReport) {
  EXPECT_EQ(Errors({{44, 0u}}), ParseText("#endif\n").errors);
  EXPECT_EQ(Errors({{43, 0u}}), ParseText("#else\n").errors);
  EXPECT_EQ(Errors({{43, 0u}}), ParseText("#elseif True\n").errors);
  // An integer passes #if, not #elseif.
  EXPECT_EQ(Errors({{45, 2u}}),
            ParseText("#if 1\nx = 1\n#elseif 1\ny = 1\n#endif\n").errors);
  EXPECT_EQ(Errors({{46, 0u}}), ParseText("#if x + 1\n#endif\n").errors);
  EXPECT_EQ(Errors({{46, 0u}}), ParseText("#if () Then\n#endif\n").errors);
  EXPECT_EQ(Errors({{86, 0u}}), ParseText("#if TargetLinux Print 1\n").errors);
}

TEST(Directives, MethodEndClosesAFalseBranch) {
  ParseOutcome outcome =
      ParseText("Sub S()\n  #if TargetWin32\n    ) skipped\nEnd Sub\nx = 1\n");
  EXPECT_EQ(0, outcome.status);
  EXPECT_TRUE(outcome.errors.empty());
}

TEST(Directives, PragmasSetTheOptions) {
  ParseOutcome outcome = ParseText(
      "#pragma BoundsChecking\n#pragma NilObjectChecking False\n"
      "#pragma disableBackgroundTasks True\n#pragma Debug True\n"
      "#pragma ProfileCode True\n#pragma X86CallingConvention StdCall\n"
      "#pragma LockRefCountedParameters False\n");
  EXPECT_TRUE(outcome.errors.empty());
  EXPECT_EQ(0, outcome.options.mBoundsChecking);
  EXPECT_EQ(0, outcome.options.mNilObjectChecking);
  EXPECT_EQ(0, outcome.options.mBackgroundTasks);
  EXPECT_EQ(1, outcome.options.mDebug);
  EXPECT_EQ(1, outcome.options.mProfileCode);
  EXPECT_EQ(1, outcome.options.mX86CallingConvention);
  EXPECT_EQ(0, outcome.options.mLockRefCountedParameters);
  outcome = ParseText(
      "#pragma ProfileCode True\n#pragma Debug False\n"
      "#pragma X86CallingConvention CDecl\n");
  EXPECT_EQ(0, outcome.options.mProfileCode);
  EXPECT_EQ(0, outcome.options.mX86CallingConvention);
}

TEST(Directives, PragmaInsideAMethodEndsWithIt) {
  ParseOutcome outcome = ParseText(
      "#pragma StackOverflowChecking False\n"
      "Sub S()\n  #pragma BoundsChecking False\n  #pragma Reset\n"
      "  #pragma NilObjectChecking False\nEnd Sub\n");
  EXPECT_TRUE(outcome.errors.empty());
  EXPECT_EQ(0, outcome.options.mStackOverflowChecking);
  EXPECT_EQ(1, outcome.options.mBoundsChecking);
  EXPECT_EQ(1, outcome.options.mNilObjectChecking);
}

TEST(Directives, UnknownPragmaReportsAtItsName) {
  EXPECT_EQ(Errors({{87, 1u}}),
            ParseText("x = 1\n#pragma NoSuchThing True\n").errors);
}

}  // namespace
