// The main body and its frame, functions after it, block scopes, Dim,
// Static and Const, and the pragma state per method.
#include <gtest/gtest.h>

#include "StatementTestSupport.h"

namespace {


TEST(ProgramAssembly, EmptyProgramStillRunsTheFrame) {
  CompiledProgram p = CompileProgramText("");
  EXPECT_TRUE(p.errors.empty());
  std::vector<std::string> lines = p.Lines();
  listing::Section main = p.Body();
  ASSERT_EQ(0, main.enter) << p.listing;
  EXPECT_EQ(0u, lines[0].rfind("Enter           \"% main\" As String", 0));
  EXPECT_EQ("Intrinsic       intrinsic 1", lines[1]);
  EXPECT_EQ("Call            \"% initialize\" As String", lines[2]);
  EXPECT_EQ(3, main.first);
  EXPECT_EQ(3, main.exit);
  EXPECT_LT(main.exit, p.Find("HandleException"));
  EXPECT_TRUE(p.InOrder({"HandleException", "Call            \"% finalize\" As String",
                         "intrinsic " + std::to_string(kIntrinsicRuntimeReraiseException)}));
  ASSERT_EQ(int(lines.size()) - 1, main.end) << p.listing;
  EXPECT_NE(std::string::npos, lines[main.end - 1].find("intrinsic 2 ->"));
  EXPECT_EQ(0u, lines[main.end].rfind("Stop", 0));
}

TEST(ProgramAssembly, TopLevelReturnJumpsToTheMainExit) {
  CompiledProgram p = CompileProgramText("Return\nDim a As Integer\n");
  std::vector<std::string> lines = p.Lines();
  listing::Section main = p.Body();
  ASSERT_GT(main.exit, 0) << p.listing;
  EXPECT_LT(main.exit, p.Find("\"% finalize\""));
  std::string label = lines[main.exit].substr(0, lines[main.exit].size() - 1);
  EXPECT_EQ(std::vector<std::string>({"Jump            -> " + label}),
            p.Statements())
      << p.listing;
}

TEST(ProgramAssembly, TopLevelStringsAreReleasedOnceAtTheEnd) {
  CompiledProgram p = CompileProgramText(
      "Function Suffix() As String\n  Return s + \"!\"\nEnd Function\n"
      "Dim r As String\nDim s, t As String = \"b\"\nDim n As Integer\n"
      "r = \"a\" + Suffix()\nt = r + s\nn = 1\n");
  ASSERT_TRUE(p.errors.empty()) << p.listing;
  listing::Section main = p.Body();
  for (std::string name : {"r", "s", "t"}) {
    std::string release = "Unlock          " + name + " As String (global)";
    EXPECT_EQ(1, p.Count(release)) << name << "\n" << p.listing;
    EXPECT_GT(p.Find(release), main.exit) << name;
    EXPECT_LT(p.Find(release), main.end) << name;
  }
  EXPECT_EQ(0, p.Count("Unlock          n "));
  EXPECT_LT(main.end, p.Find("Enter           \"Suffix"));
}

TEST(ProgramAssembly, BlockLocalsAreZeroedAndReleasedAroundTheBlock) {
  CompiledProgram p = CompileProgramText(
      "Sub S()\n  If True Then\n    Dim t As String\n    t = \"x\"\n"
      "  End If\nEnd Sub\n");
  EXPECT_TRUE(p.errors.empty()) << p.listing;
  listing::Section sub = p.Body("S");
  int test = p.Find("IfEQI", sub.first);
  EXPECT_TRUE(p.InOrder({"IfEQI", "Zero", "SwapLocks", "Unlock          S.t "}, sub.first))
      << p.listing;
  EXPECT_LT(p.Find("Unlock", test), sub.exit);
  EXPECT_EQ(p.Find("Unlock", test), p.Find("Unlock          S.t "));
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
  EXPECT_EQ(1, p.Count("6 As Int32 -> S.m As Int32 (stack"));
  EXPECT_EQ(0, p.Count("Zero            -> S.n"));
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

TEST(ProgramAssembly, DeclarationsCompileToTheirLines) {
  struct Case { char const* text; char const* line; int count; } cases[] = {
      {"Sub S()\n  If True Then\n    Dim x As Integer\n  End If\n"
       "  If False Then\n    Dim x As Integer\n  End If\nEnd Sub\n", "", -1},
      {"Sub S(a As Integer)\n  Dim b, c As Integer = a * 3\nEnd Sub\n", "Mul", 1},
      {"Sub S(a As Integer)\n  Dim b, c As Integer = a * 3\nEnd Sub\n", "Store           S.", 2},
      {"Sub S()\n  Dim b, c As Integer = 7\nEnd Sub\n", "Store           7 As Int32", 2},
      {"Sub S()\n  Const k = 4\n  Dim x As Integer = k\nEnd Sub\n",
       "Store           4 As Int32 -> S.x", 1},
  };
  for (auto const& c : cases) {
    CompiledProgram p = CompileProgramText(c.text);
    EXPECT_TRUE(p.errors.empty()) << c.text;
    if (c.count >= 0) {
      EXPECT_EQ(c.count, p.Count(c.line)) << p.listing;
    }
  }
  CompiledProgram p = CompileProgramText("#pragma Debug True\nDim a As Integer\na = 1\n");
  int store = p.Find("Store           1 As Int32");
  ASSERT_GT(store, 0);
  EXPECT_EQ("Intrinsic       intrinsic 120", p.Lines()[store - 1]);
  p = CompileProgramText(
      "Class Shape\nEnd Class\nModule Geo\n  Class Point\n  End Class\nEnd Module\n"
      "Sub S()\n  Dim a As Shape\n  Dim b As Geo.Point\n  Dim c As Nowhere\n"
      "  Dim d As Geo.Nothing\n  Dim e As Nope.Point\n  c = 1\nEnd Sub\n");
  EXPECT_EQ(ErrorList({{63, 9}, {63, 10}, {11, 11}}), p.errors);
  EXPECT_EQ(1, p.Count("Zero            -> S.a As Shape"));
  EXPECT_EQ(1, p.Count("Zero            -> S.b As Geo.Point"));
  EXPECT_EQ(1, p.Count("Store           1 As Int32 -> S.c As Int32"));
}

TEST(ProgramAssembly, DeclarationFaults) {
  struct Case { char const* text; ErrorList errors; } cases[] = {
      {"Sub S()\n  Dim x As Integer\n  If True Then\n    Dim x As Integer\n"
       "  End If\nEnd Sub\n", {{22, 3}}},
      {"Sub S()\n  Dim x As Integer\n  Const x = 4\nEnd Sub\n", {{22, 2}}},
  };
  for (auto const& c : cases) EXPECT_EQ(c.errors, CompileProgramText(c.text).errors) << c.text;
  CompiledProgram p = CompileProgramText(
      "Class C\nEnd Class\nSub S()\n  Dim a, b As New C\nEnd Sub\n");
  ASSERT_FALSE(p.errors.empty());
  EXPECT_EQ(std::make_pair(125, 3u), p.errors[0]);
}

}  // namespace
