// The TAC shapes of the flow statements, and their faults at the right
// lines.
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <regex>

#include "StatementTestSupport.h"

namespace {


std::string InSub(std::string const& body) {
  return "Sub S(a As Integer, b As Integer)\n" + body + "End Sub\n";
}

std::vector<std::string> Shape(CompiledProgram const& p) {
  std::vector<std::string> lines = p.Lines(), out;
  listing::Section sub = p.Body("S");
  std::map<std::string, std::string> names;
  std::regex label("L[0-9]+"), temp("[A-Za-z]*\\.[0-9A-F]{8}( [0-9A-F]{8})*"),
      where(" \\((stack [0-9]+|global)\\)"), blanks(" +");
  for (int i = sub.first; i < sub.exit; i++) {
    if (lines[i].rfind("Zero", 0) == 0) continue;
    std::string line = std::regex_replace(lines[i], temp, "tmp"), renamed;
    line = std::regex_replace(std::regex_replace(line, where, ""), blanks, " ");
    size_t last = 0;
    for (std::sregex_iterator it(line.begin(), line.end(), label), end; it != end; ++it) {
      if (!names.count(it->str())) names[it->str()] = "L" + std::to_string(names.size() + 1);
      renamed += line.substr(last, it->position() - last) + names[it->str()];
      last = it->position() + it->length();
    }
    out.push_back(renamed + line.substr(last));
  }
  return out;
}

typedef std::vector<std::string> Lines;

TEST(FlowControl, Shapes) {
  struct Case { char const* body; Lines shape; } cases[] = {
      {"If a = 1 Then\n  b = 1\nElseIf a = 2 Then\n  b = 2\nElse\n  b = 3\nEnd If\n",
       {"EQ S.a As Int32, 1 As Int32 -> tmp As Boolean",
        "IfEQI tmp As Boolean, False As Boolean -> L1",
        "Store 1 As Int32 -> S.b As Int32", "Jump -> L2",
        "L1:", "EQ S.a As Int32, 2 As Int32 -> tmp As Boolean",
        "IfEQI tmp As Boolean, False As Boolean -> L3",
        "Store 2 As Int32 -> S.b As Int32", "Jump -> L2",
        "L3:", "Store 3 As Int32 -> S.b As Int32", "L2:"}},
      {"If a > b Then b = a\n",
       {"LT S.b As Int32, S.a As Int32 -> tmp As Boolean",
        "IfEQI tmp As Boolean, False As Boolean -> L1",
        "Store S.a As Int32 -> S.b As Int32", "L1:"}},
      {"While a < 10\n  a = a + 1\nWend\n",
       {"L1:", "LT S.a As Int32, 10 As Int32 -> tmp As Boolean",
        "IfEQI tmp As Boolean, False As Boolean -> L2",
        "Add S.a As Int32, 1 As Int32 -> tmp As Int32",
        "Store tmp As Int32 -> S.a As Int32",
        "L3:", "Intrinsic intrinsic 119", "Jump -> L1", "L2:"}},
      {"Do Until a > 3\n  Continue\nLoop Until b = 1\n",
       {"L1:", "LT 3 As Int32, S.a As Int32 -> tmp As Boolean",
        "IfNEI tmp As Boolean, False As Boolean -> L2", "Jump -> L3",
        "L3:", "Intrinsic intrinsic 119",
        "EQ S.b As Int32, 1 As Int32 -> tmp As Boolean",
        "IfEQI tmp As Boolean, False As Boolean -> L1", "L2:"}},
      {"Do\n  Exit Do\nLoop\n",
       {"L1:", "Jump -> L2", "L3:", "Intrinsic intrinsic 119", "Jump -> L1", "L2:"}},
      {"For a = 1 To b\n  Continue For\nNext a\n",
       {"Store 1 As Int32 -> S.a As Int32",
        "L1:", "LT S.b As Int32, S.a As Int32 -> tmp As Boolean",
        "IfNEI tmp As Boolean, False As Boolean -> L2", "Jump -> L3",
        "L3:", "Intrinsic intrinsic 119",
        "Add S.a As Int32, 1 As Int32 -> tmp As Int32",
        "Store tmp As Int32 -> S.a As Int32", "Jump -> L1", "L2:"}},
      {"For a = 1 To 9 Step b\nNext\n",
       {"Store 1 As Int32 -> S.a As Int32",
        "L1:", "LT S.b As Int32, 0 As Int32 -> tmp As Boolean",
        "IfNEI tmp As Boolean, False As Boolean -> L2",
        "LT 9 As Int32, S.a As Int32 -> tmp As Boolean",
        "IfEQI tmp As Boolean, False As Boolean -> L3", "Jump -> L4",
        "L2:", "LT S.a As Int32, 9 As Int32 -> tmp As Boolean",
        "IfNEI tmp As Boolean, False As Boolean -> L4",
        "L3:", "L5:", "Intrinsic intrinsic 119",
        "Add S.a As Int32, S.b As Int32 -> tmp As Int32",
        "Store tmp As Int32 -> S.a As Int32", "Jump -> L1", "L4:"}},
      {"GoTo later\nearlier:\nb = 1\nlater:\nGoTo earlier\n",
       {"Jump -> L1", "L2:", "Store 1 As Int32 -> S.b As Int32", "L1:", "Jump -> L2"}},
  };
  for (auto const& c : cases) {
    CompiledProgram p = CompileProgramText(InSub(c.body));
    EXPECT_TRUE(p.errors.empty()) << c.body;
    EXPECT_EQ(c.shape, Shape(p)) << c.body;
  }
  CompiledProgram line = CompileProgramText(InSub("If a = 1 Then b = 1 Else b = 3\n"));
  EXPECT_EQ(Shape(CompileProgramText(InSub("If a = 1 Then\n  b = 1\nElse\n  b = 3\nEnd If\n"))),
            Shape(line));
  EXPECT_EQ(7u, Shape(line).size());
  LanguageOptions quiet;  // no yield without background tasks
  quiet.mBackgroundTasks = 0;
  EXPECT_EQ(0, CompileProgramText(InSub("While a < 10\nWend\n"), quiet).Count("intrinsic 119"));
}

TEST(FlowControl, SelectCaseEvaluatesItsSelectorOnce) {
  CompiledProgram p = CompileProgramText(
      InSub("Select Case a * 2\nCase 1, 2\n  b = 1\nCase Is > 5\n  b = 2\n"
            "Case 7 To 9\n  b = 3\nCase Else\n  b = 4\nEnd Select\n"));
  ASSERT_TRUE(p.errors.empty()) << p.listing;
  EXPECT_EQ(1, p.Count("Mul"));
  Lines shape = Shape(p);
  EXPECT_EQ("Mul S.a As Int32, 2 As Int32 -> tmp As Int32", shape[0]);
  EXPECT_EQ("Store 4 As Int32 -> S.b As Int32", shape[shape.size() - 3]);
  std::string exit = shape.back().substr(0, shape.back().size() - 1);
  EXPECT_EQ("Jump -> " + exit, shape[shape.size() - 2]);
  EXPECT_EQ(4, int(std::count(shape.begin(), shape.end(), "Jump -> " + exit)));
}

TEST(FlowControl, CountedLines) {
  struct Case { char const* body; char const* line; } cases[] = {
      {"For a = 9 DownTo 1\nNext\n", "LT              S.a As Int32 (stack 4), 1 As Int32"},
      {"For a = 9 DownTo 1\nNext\n", "Add             S.a As Int32 (stack 4), -1 As Int32"},
      {"For a = 1 To 10 Step -1\nNext\n", "LT              S.a As Int32 (stack 4), 10 As Int32"},
      {"For i As Integer = 1 To 3\n  b = i\nNext\nFor i As Integer = 4 To 5\nNext\n",
       "Store           1 As Int32 -> S.i "},
  };
  for (auto const& c : cases) {
    CompiledProgram p = CompileProgramText(InSub(c.body));
    EXPECT_TRUE(p.errors.empty()) << p.listing;
    EXPECT_EQ(1, p.Count(c.line)) << p.listing;
  }
}

TEST(FlowControl, FaultsAreReportedOnceAtTheirLines) {
  struct Case { std::string text; ErrorList errors; } cases[] = {
      {InSub("Select Case a\nCase Else\n  b = 1\nCase 2\n  b = 2\nElse\nEnd Select\n"),
       {{90, 4}, {90, 6}}},
      {InSub("Exit Do\nContinue While\nExit Function\nExit Sub\nExit\n"),
       {{104, 1}, {104, 2}, {104, 3}}},
      {"Exit Sub\nContinue\n", {{104, 0}, {104, 1}}},
  };
  for (auto const& c : cases) EXPECT_EQ(c.errors, CompileProgramText(c.text).errors) << c.text;
  CompiledProgram p = CompileProgramText(
      InSub("For a = 1 To 3\n  For b = 1 To 3\n    Exit For c\n    Exit For a\n"
            "  Next a\nNext\n"));
  EXPECT_EQ(ErrorList({{104, 3}, {47, 5}}), p.errors);
  EXPECT_EQ(3, p.Count("Jump            -> "));
  p = CompileProgramText(InSub("If a = 1\n  b = 2\nEnd If\n"));
  EXPECT_EQ(ErrorList({{86, 1}}), p.errors);
  Lines shape = Shape(p);
  EXPECT_EQ(1, std::count_if(shape.begin(), shape.end(), [](std::string const& l) { return l.rfind("IfEQI", 0) == 0; }));
}

TEST(FlowControl, ForEachWalksAOneDimensionalArray) {
  CompiledProgram p = CompileProgramText(InSub(
      "Dim xs() As Integer\nFor Each v As Integer In xs\n  b = v\nNext\n"));
  Lines shape = Shape(p);
  auto at = [&shape](std::string const& text) {
    for (size_t i = 0; i < shape.size(); i++)
      if (shape[i].find(text) != std::string::npos) return int(i);
    return -1;
  };
  int nil = at("IfEQI S.xs");
  int bound = at("CallPtr");
  ASSERT_GE(nil, 0) << p.listing;
  EXPECT_EQ("Store 0 As Int32 -> tmp As Int32", shape[nil + 1]);
  EXPECT_EQ("Peek S.xs As Int32(), 24 As Int32 -> tmp As Int32",
            shape[nil + 3]);
  EXPECT_EQ(0u, shape[bound + 1].rfind("IfLTI tmp As Int32, tmp As Int32"));
  EXPECT_LT(at("Add tmp As Int32, 1 As Int32"), at("intrinsic 119"));
  CompiledProgram wrong = CompileProgramText(
      InSub("Dim m(2, 2) As Integer\nFor Each v As Integer In m\nNext\n"
            "For Each w As Integer In a\nNext\n"));
  std::vector<int> codes = wrong.ErrorCodes();
  ASSERT_GE(codes.size(), 2u);
  EXPECT_EQ(18, codes[codes.size() - 2]);
  EXPECT_EQ(16, codes.back());
}

}  // namespace
