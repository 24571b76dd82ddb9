// The main body and its frame, functions after it, block scopes, the
// release of strings, and the pragma state per method.
#include <gtest/gtest.h>

#include "StatementTestSupport.h"

namespace {

TEST(ProgramAssembly, EmptyProgramStillRunsTheFrame) {
  CompiledProgram p = CompileSource("");
  EXPECT_TRUE(p.errors.empty());
  std::vector<std::string> lines = p.code;
  listing::Section main = p.Body();
  ASSERT_EQ(0, main.enter) << p.Listing();
  EXPECT_EQ(0u, lines[0].rfind("Enter \"% main\" As String", 0));
  EXPECT_EQ("Intrinsic RuntimeInit", lines[1]);
  EXPECT_EQ("Call \"% initialize\" As String", lines[2]);
  EXPECT_EQ(3, main.first);
  EXPECT_EQ(3, main.exit);
  EXPECT_LT(main.exit, p.Find("HandleException"));
  EXPECT_TRUE(p.InOrder({"HandleException", "Call \"% finalize\" As String",
                         "Intrinsic RuntimeReraiseException"}));
  ASSERT_EQ(int(lines.size()) - 1, main.end) << p.Listing();
  EXPECT_NE(std::string::npos, lines[main.end - 1].find("RuntimeExit ->"));
  EXPECT_EQ(0u, lines[main.end].rfind("Stop", 0));
}

TEST(ProgramAssembly, TopLevelStringsAreReleasedOnceAtTheEnd) {
  CompiledProgram p = CompileSource(
      "Function Suffix() As String\n Return s + \"!\"\nEnd Function\n"
      "Dim r As String\nDim s, t As String = \"b\"\nDim n As Integer\n"
      "r = \"a\" + Suffix()\nt = r + s\nn = 1\n");
  ASSERT_TRUE(p.errors.empty()) << p.Listing();
  listing::Section main = p.Body();
  // Each is taken aside and cleared, and then its reference goes: a
  // destructor run by the release finds the global empty.
  for (std::string name : {"r", "s", "t"}) {
    std::string release = "Store 0 As Int32 -> " + name + " As String (global)";
    EXPECT_EQ(1, p.Count(release)) << name << "\n" << p.Listing();
    EXPECT_GT(p.Find(release), main.exit) << name;
    EXPECT_LT(p.Find(release), main.end) << name;
    EXPECT_EQ(0, p.Count("Unlock " + name + " As String (global)")) << name;
  }
  EXPECT_EQ(0, p.Count("Unlock n "));
  EXPECT_LT(main.end, p.Find("Enter \"Suffix"));
}

TEST(ProgramAssembly, BlockLocalsAreZeroedAndReleasedAroundTheBlock) {
  CompiledProgram p = CompileSource(
      "Sub S()\n If True Then\n Dim t As String\n t = \"x\"\n"
      " End If\nEnd Sub\n");
  EXPECT_TRUE(p.errors.empty()) << p.Listing();
  listing::Section sub = p.Body("S");
  int test = p.Find("IfEQI", sub.first);
  EXPECT_TRUE(p.InOrder({"IfEQI", "Zero", "SwapLocks", "Unlock S.t "}, sub.first))
      << p.Listing();
  EXPECT_LT(p.Find("Unlock", test), sub.exit);
  EXPECT_EQ(p.Find("Unlock", test), p.Find("Unlock S.t "));
}

TEST(ProgramAssembly, PragmaInAMethodEndsWithIt) {
  CompiledProgram p = CompileSource(
      "#pragma BackgroundTasks False\n"
      "Sub A()\n #pragma BackgroundTasks True\n While False\n Wend\nEnd "
      "Sub\n"
      "Sub B()\n While False\n Wend\nEnd Sub\n"
      "While False\nWend\n");
  EXPECT_TRUE(p.errors.empty());
  int yield = p.Find("VELDYieldToQuorl");
  ASSERT_GE(yield, 0) << p.Listing();
  EXPECT_LT(p.Find("\"A\""), yield);
  EXPECT_LT(yield, p.Find("\"B\""));
  EXPECT_EQ(2, p.Count("VELDYieldToQuorl")) << "A's loop and A's entry";
}

TEST(ProgramAssembly, NewNeedsOneVariable) {
  CompiledProgram p = CompileSource(
      "Class C\nEnd Class\nSub S()\n Dim a, b As New C\nEnd Sub\n");
  ASSERT_FALSE(p.errors.empty());
  EXPECT_EQ(125, p.errors[0].code);
  EXPECT_EQ(3u, p.errors[0].line);
}

}  // namespace
