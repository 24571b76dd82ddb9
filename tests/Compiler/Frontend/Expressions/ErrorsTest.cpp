// Compile errors of expressions and lookups: the number, the line, the
// arguments, and one report per mistake.
#include <gtest/gtest.h>

#include "CompileDriver.h"

namespace {

using Codes = std::vector<int>;

TEST(ExpressionErrors, TypeMismatchNamesBothTypesAtItsLine) {
  CompiledProgram p = CompileSource(
      "Dim s As String\nDim i As Int32\n\ni = s * 2\n");
  ASSERT_EQ(1u, p.errors.size()) << p.Listing();
  EXPECT_EQ(2, p.errors[0].code);
  EXPECT_EQ(3u, p.errors[0].line);
  EXPECT_EQ(std::vector<std::string>({"String", "Int32"}), p.errors[0].arguments);
  // Assignment: the target's type first, the value's second.
  p = CompileSource("Dim b As Boolean\nb = \"yes\"\n");
  ASSERT_EQ(1u, p.errors.size());
  EXPECT_EQ(std::vector<std::string>({"Boolean", "String"}), p.errors[0].arguments);
  EXPECT_EQ(1u, p.errors[0].line);
}

TEST(ExpressionErrors, UnknownNamesAreErrorElevenAtTheirLine) {
  CompiledProgram p = CompileSource("Dim i As Int32\ni = 1\ni = nothere + 1\nzz = 2\n");
  EXPECT_EQ(Codes({11, 11}), p.ErrorCodes());
  EXPECT_EQ(2u, p.errors[0].line);
  EXPECT_EQ(3u, p.errors[1].line);
}

TEST(ExpressionErrors, OneMistakeGivesOneReport) {
  // The failed part becomes a value that nothing around it reports again:
  // not the enclosing operators, not the assignment, not a member access.
  for (char const* line : {"s = \"a\" + 1 + 2", "s = unknown * 2 + 1",
                           "s = -(\"a\" - 1)", "s = Not (1 + \"a\") And True",
                           "s = unknown.member", "s = Integer + 1",
                           "s = Int32(2.5) + 1"}) {
    CompiledProgram p = CompileSource(std::string("Dim s As String\n") + line);
    EXPECT_EQ(1u, p.errors.size()) << line;
  }
}

TEST(ExpressionErrors, OperatorsTheTypeDoesNotHave) {
  CompiledProgram p = CompileSource("Dim s As String\ns = \"a\" - \"b\"\n");
  EXPECT_EQ(Codes({12}), p.ErrorCodes());
  p = CompileSource("Dim b As Boolean\nb = b + b\nb = b < b\n");
  EXPECT_EQ(Codes({12, 12}), p.ErrorCodes());
  p = CompileSource("Dim c As Color\nDim r As Color\nr = -c\n");
  EXPECT_EQ(Codes({12}), p.ErrorCodes());
}

TEST(ExpressionErrors, TypecastsReinterpretAndNeverConvertNumbers) {
  CompiledProgram p = CompileSource("Dim i As Int32\nDim d As Double\ni = Int32(d)\n");
  EXPECT_EQ(Codes({2}), p.ErrorCodes());
  EXPECT_EQ(std::vector<std::string>({"Int32", "Double"}), p.errors[0].arguments);
  // Sizes must agree.
  p = CompileSource("Dim i As Int32\nDim k As Int8\nk = Int8(i)\n");
  EXPECT_EQ(Codes({2}), p.ErrorCodes());
  // Same size: the same bits.
  p = CompileSource("Dim i As Int32\nDim c As Color\nc = Color(i)\n");
  EXPECT_TRUE(p.errors.empty());
  EXPECT_HAS(p, "Store i As Int32 (global) -> t1 As Color (global)");
  // One argument only.
  p = CompileSource("Dim i As Int32\ni = Int32(1, 2)\n");
  EXPECT_EQ(Codes({6}), p.ErrorCodes());
}

TEST(ExpressionErrors, ObjectFormsNotYetAvailableReportOnce) {
  // Operators on objects go through operator methods, not built yet.
  CompiledProgram p =
      CompileSource("Dim o As Object\nDim b As Boolean\nb = o + o = o\n");
  EXPECT_EQ(Codes({26}), p.ErrorCodes()) << p.Listing();
  EXPECT_EQ(2u, p.errors[0].line);
  // IsA Object only tests for nil.
  p = CompileSource("Dim o As Object\nDim b As Boolean\nb = o IsA Object\n");
  EXPECT_TRUE(p.errors.empty());
  EXPECT_HAS(p, "NE o As Object (global), 0 As Int32 -> t1 As Boolean (global)");
  p = CompileSource("Dim o As Object\nDim b As Boolean\nb = o Is Nil\n");
  EXPECT_TRUE(p.errors.empty());
  EXPECT_HAS(p, "EQ o As Object (global), Nil As Object -> t1 As Boolean (global)");
}

TEST(ExpressionErrors, SelfMeAndSuperOutsideAClass) {
  CompiledProgram p = CompileSource("Dim i As Int32\ni = Self.x\ni = Me\ni = Super.y\n");
  EXPECT_EQ(Codes({32, 33, 41}), p.ErrorCodes());
}

}  // namespace
