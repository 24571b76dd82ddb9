// The main body and its frame, functions after it, block scopes, Dim,
// Static and Const, and the pragma state per method.
#include <gtest/gtest.h>

#include "StatementTestSupport.h"

namespace {

typedef std::vector<int> Codes;
typedef std::vector<std::pair<int, unsigned>> Errors;

TEST(ProgramAssembly, EmptyProgramStillRunsTheFrame) {
  CompiledProgram p = CompileProgramText("");
  std::vector<std::string> lines = p.Lines();
  ASSERT_EQ(6u, lines.size()) << p.listing;
  EXPECT_EQ("Intrinsic       intrinsic 1", lines[0]);
  EXPECT_EQ("Call            \"% initialize\" As String", lines[1]);
  EXPECT_EQ(0u, lines[2].rfind("L", 0));
  EXPECT_EQ("Call            \"% finalize\" As String", lines[3]);
  EXPECT_NE(std::string::npos, lines[4].find("intrinsic 2 ->"));
  EXPECT_EQ(0u, lines[5].rfind("Stop", 0));
  EXPECT_TRUE(p.errors.empty());
}

TEST(ProgramAssembly, FunctionsFollowTheMainBodyInSourceOrder) {
  CompiledProgram p = CompileProgramText(
      "Dim a As Integer\n"
      "Sub First()\nEnd Sub\n"
      "a = 1\n"
      "Function Second() As Integer\nEnd Function\n"
      "a = 2\n");
  EXPECT_TRUE(p.errors.empty());
  int one = p.Find("Store           1 As Int32");
  int two = p.Find("Store           2 As Int32");
  int stop = p.Find("Stop");
  int first = p.Find("Enter           \"First\"");
  int second = p.Find("Enter           \"Second");
  ASSERT_GE(one, 0) << p.listing;
  EXPECT_LT(one, two);
  EXPECT_LT(two, stop);
  EXPECT_LT(stop, first);
  EXPECT_LT(first, second);
}

TEST(ProgramAssembly, TopLevelReturnJumpsToTheMainExit) {
  CompiledProgram p = CompileProgramText("Return\nDim a As Integer\n");
  std::vector<std::string> lines = p.Lines();
  // The exit label stands before "% finalize".
  int fin = p.Find("\"% finalize\"");
  ASSERT_GT(fin, 0);
  std::string label = lines[fin - 1].substr(0, lines[fin - 1].size() - 1);
  EXPECT_NE(-1, p.Find("Jump            -> " + label)) << p.listing;
}

TEST(ProgramAssembly, BlockLocalsAreZeroedAndReleasedAroundTheBlock) {
  CompiledProgram p = CompileProgramText(
      "Sub S()\n  If True Then\n    Dim t As String\n    t = \"x\"\n"
      "  End If\nEnd Sub\n");
  EXPECT_TRUE(p.errors.empty()) << p.listing;
  int test = p.Find("IfEQI");
  int zero = p.Find("Zero", test);
  int store = p.Find("SwapLocks", test);
  int release = p.Find("Unlock", test);
  ASSERT_GT(zero, test) << p.listing;
  EXPECT_LT(zero, release);
  EXPECT_LT(store, release);
  EXPECT_NE(std::string::npos, p.Lines()[release].find("S.t "));
}

TEST(ProgramAssembly, SiblingBlocksMayDeclareOneName) {
  CompiledProgram p = CompileProgramText(
      "Sub S()\n  If True Then\n    Dim x As Integer\n  End If\n"
      "  If False Then\n    Dim x As Integer\n  End If\nEnd Sub\n");
  EXPECT_TRUE(p.errors.empty());
  p = CompileProgramText(
      "Sub S()\n  Dim x As Integer\n  If True Then\n    Dim x As Integer\n"
      "  End If\nEnd Sub\n");
  EXPECT_EQ(Codes({22}), p.ErrorCodes());
}

TEST(ProgramAssembly, ComputedInitialValueIsEvaluatedOnce) {
  CompiledProgram p = CompileProgramText(
      "Sub S(a As Integer)\n  Dim b, c As Integer = a * 3\nEnd Sub\n");
  EXPECT_TRUE(p.errors.empty());
  EXPECT_EQ(1, p.Count("Mul")) << p.listing;
  EXPECT_EQ(2, p.Count("Store           S."));
}

TEST(ProgramAssembly, ConstantInitialValueIsStoredDirectly) {
  CompiledProgram p =
      CompileProgramText("Sub S()\n  Dim b, c As Integer = 7\nEnd Sub\n");
  EXPECT_EQ(2, p.Count("Store           7 As Int32")) << p.listing;
}

TEST(ProgramAssembly, NewObjectWithSeveralNamesIsReported) {
  CompiledProgram p = CompileProgramText(
      "Class C\nEnd Class\nSub S()\n  Dim a, b As New C\nEnd Sub\n");
  std::vector<int> codes = p.ErrorCodes();
  ASSERT_FALSE(codes.empty());
  EXPECT_EQ(125, codes[0]);
  EXPECT_EQ(3u, p.errors[0].second);
}

TEST(ProgramAssembly, StaticInitialiserRunsBehindAOnceOnlyGuard) {
  CompiledProgram p = CompileProgramText(
      "Sub S()\n  Static n As Integer = 5\n  Dim m As Integer = 6\nEnd Sub\n");
  EXPECT_TRUE(p.errors.empty()) << p.listing;
  int guard = p.Find("IfNEI");
  ASSERT_GE(guard, 0) << p.listing;
  std::vector<std::string> lines = p.Lines();
  EXPECT_NE(std::string::npos, lines[guard].find("(global)"));
  EXPECT_EQ(0u, lines[guard + 1].rfind("Store           True As Boolean"));
  EXPECT_NE(std::string::npos,
            lines[guard + 2].find("5 As Int32 -> S.n As Int32 (global)"));
  EXPECT_EQ(0u, lines[guard + 3].rfind("L"));
  // After the Static line the table stores on the stack again.
  EXPECT_EQ(1, p.Count("6 As Int32 -> S.m As Int32 (stack"));
  // A static is neither zeroed nor released by the method.
  EXPECT_EQ(0, p.Count("Zero            -> S.n"));
}

TEST(ProgramAssembly, LocalConstantsAndTheirFaults) {
  CompiledProgram p = CompileProgramText(
      "Sub S()\n  Const k = 4\n  Dim x As Integer = k\nEnd Sub\n");
  EXPECT_TRUE(p.errors.empty());
  EXPECT_EQ(1, p.Count("Store           4 As Int32 -> S.x")) << p.listing;
  p = CompileProgramText(
      "Sub S()\n  Dim x As Integer\n  Const x = 4\nEnd Sub\n");
  EXPECT_EQ(Codes({22}), p.ErrorCodes());
}

TEST(ProgramAssembly, PragmaInAMethodEndsWithIt) {
  CompiledProgram p = CompileProgramText(
      "#pragma BackgroundTasks False\n"
      "Sub A()\n  #pragma BackgroundTasks True\n  While False\n  Wend\nEnd "
      "Sub\n"
      "Sub B()\n  While False\n  Wend\nEnd Sub\n"
      "While False\nWend\n");
  EXPECT_TRUE(p.errors.empty());
  int yield = p.Find("intrinsic 119");
  ASSERT_GE(yield, 0) << p.listing;
  EXPECT_LT(p.Find("\"A\""), yield);
  EXPECT_LT(yield, p.Find("\"B\""));
  EXPECT_EQ(1, p.Count("intrinsic 119"));
}

TEST(ProgramAssembly, DebugPragmaPutsAHookBeforeStatements) {
  CompiledProgram p =
      CompileProgramText("#pragma Debug True\nDim a As Integer\na = 1\n");
  int store = p.Find("Store           1 As Int32");
  ASSERT_GT(store, 0);
  EXPECT_EQ("Intrinsic       intrinsic 120", p.Lines()[store - 1]);
}

TEST(ProgramAssembly, TypeNamesResolveThroughTheDeclarations) {
  CompiledProgram p = CompileProgramText(
      "Class Shape\nEnd Class\nModule Geo\n  Class Point\n  End Class\n"
      "End Module\n"
      "Sub S()\n  Dim a As Shape\n  Dim b As Geo.Point\n  Dim c As Nowhere\n"
      "  Dim d As Geo.Nothing\n  Dim e As Nope.Point\n  c = 1\nEnd Sub\n");
  EXPECT_EQ(Errors({{63, 9}, {63, 10}, {11, 11}}), p.errors);
  EXPECT_EQ(1, p.Count("Zero            -> S.a As Shape"));
  EXPECT_EQ(1, p.Count("Zero            -> S.b As Geo.Point"));
  // A bad name stands for Int32 and draws no further report.
  EXPECT_EQ(1, p.Count("Store           1 As Int32 -> S.c As Int32"));
}

}  // namespace
