// Compile errors of expressions and name lookup: the number, the line, the
// arguments; and the lookups that compile.
#include <gtest/gtest.h>

#include "CompileDriver.h"

namespace {

using Codes = std::vector<int>;
using Args = std::vector<std::string>;

TEST(ExpressionErrors, NumbersLinesAndArguments) {
  struct Case { char const* text; Codes codes; std::vector<unsigned> lines; Args args; } cases[] = {
      {"Dim s As String\nDim i As Int32\n\ni = s * 2\n", {2}, {3}, {"String", "Int32"}},
      {"Dim b As Boolean\nb = \"yes\"\n", {2}, {1}, {"Boolean", "String"}},
      {"Dim b As Boolean\nb = b + b\nb = b < b\n", {12, 12}, {}, {}},
      {"Dim c As Color\nDim r As Color\nr = -c\n", {12}, {}, {}},
      {"Dim i As Int32\nDim d As Double\ni = Int32(d)\n", {2}, {}, {"Int32", "Double"}},
      {"Dim i As Int32\ni = Int32(1, 2)\n", {6}, {}, {}},
      {"Dim o As Object\nDim b As Boolean\nb = o + o = o\n", {12}, {2}, {}},
      {"Dim i As Int32\ni = Self.x\ni = Me\ni = Super.y\n", {32, 33, 41}, {}, {}},
      {"Module Shapes\n  Dim count As Int32\nEnd Module\nShapes.nothing = 1\n", {11}, {3}, {}},
      {"Const k = 3\nDim i As Int32\ni = k(1)\n", {6}, {}, {}},
      {"Const k = 3\nk\n", {15}, {}, {}},
      {"Module M\nEnd Module\nDim i As Int32\ni = M\ni = M(1)\n", {89, 6}, {}, {}},
      {"Dim v As Int32\nConst k = v\n", {126}, {}, {}},
      {"Const k = nowhere\n", {11}, {}, {}},
  };
  for (auto const& c : cases) {
    CompiledProgram p = CompileSource(c.text);
    EXPECT_EQ(c.codes, p.ErrorCodes()) << c.text << p.Listing();
    for (size_t i = 0; i < c.lines.size() && i < p.errors.size(); i++)
      EXPECT_EQ(c.lines[i], p.errors[i].line) << c.text;
    if (!c.args.empty() && !p.errors.empty()) {
      EXPECT_EQ(c.args, p.errors[0].arguments) << c.text;
    }
  }
}

TEST(Lookup, FormsThatCompile) {
  struct Case { char const* text; char const* line; } cases[] = {
      {"Dim i As Int32\nDim c As Color\nc = Color(i)\n",
       "Store i As Int32 (global) -> t1 As Color (global)"},
      {"Dim o As Object\nDim b As Boolean\nb = o IsA Object\n",
       "NE o As Object (global), 0 As Int32 -> t1 As Boolean (global)"},
      {"Module Shapes\n  Dim count As Int32\n  Const kSides = 4\nEnd Module\n"
       "Shapes.count = Shapes.kSides + 1\n", "Store 5 As Int32 -> Shapes.count As Int32 (global)"},
      {"Dim Single As Int32\nSingle = 2\n", "Store 2 As Int32 -> Single As Int32 (global)"},
  };
  for (auto const& c : cases) {
    CompiledProgram p = CompileSource(c.text);
    EXPECT_TRUE(p.errors.empty()) << c.text;
    EXPECT_HAS(p, c.line);
  }
}

}  // namespace
