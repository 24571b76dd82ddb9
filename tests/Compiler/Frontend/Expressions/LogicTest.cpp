// And, Or, Xor and Not: short circuits, bitwise forms and conversions.
#include <gtest/gtest.h>

#include "CompileDriver.h"

namespace {

using Lines = std::vector<std::string>;

CompiledProgram Logic(std::string const& types, std::string const& expr) {
  return CompileSource(types + "\nr = " + expr);
}

TEST(Logic, AndSkipsTheRightOperandWhenTheLeftDecides) {
  CompiledProgram p = Logic("Dim a As Boolean\nDim i As Int32\nDim r As Boolean",
                            "a And i = 2");
  ASSERT_TRUE(p.errors.empty());
  // The comparison of the right operand stands behind the first test.
  EXPECT_EQ(Lines({"IfEQI a As Boolean (global), False As Boolean -> L2",
                   "EQ i As Int32 (global), 2 As Int32 -> t1 As Boolean (global)",
                   "IfEQI t1 As Boolean (global), False As Boolean -> L2",
                   "Store True As Boolean -> t2 As Boolean (global)",
                   "Jump -> L3", "L2:",
                   "Store False As Boolean -> t2 As Boolean (global)", "L3:"}),
            p.Opening(8));
}

TEST(Logic, OrJumpsOnTrue) {
  CompiledProgram p = Logic("Dim a As Boolean\nDim b As Boolean\nDim r As Boolean", "a Or b");
  EXPECT_EQ(2u, p.Lines("IfNEI").size());
  EXPECT_EQ(Lines({"Store False As Boolean -> t1 As Boolean (global)",
                   "Store True As Boolean -> t1 As Boolean (global)",
                   "Store t1 As Boolean (global) -> r As Boolean (global)"}),
            p.Lines("Store"));
}

TEST(Logic, XorEvaluatesBothSides) {
  CompiledProgram p = Logic("Dim a As Boolean\nDim b As Boolean\nDim r As Boolean", "a Xor b");
  EXPECT_EQ(Lines({"EQ a As Boolean (global), b As Boolean (global) -> t1 As Boolean (global)",
                   "EQ t1 As Boolean (global), False As Boolean -> t1 As Boolean (global)"}),
            p.Lines("EQ"));
  EXPECT_TRUE(p.Lines("IfEQI").empty());
}

TEST(Logic, IntegersAreBitwise) {
  CompiledProgram p = Logic("Dim a As Int16\nDim b As UInt8\nDim r As Int32", "a And b");
  EXPECT_EQ(2u, p.Lines("Cvt").size());
  EXPECT_HAS(p, "BitAnd t1 As Int32 (global), t2 As Int32 (global) -> t3 As Int32");
  p = Logic("Dim a As Int32\nDim r As Int32", "a Or 6");
  EXPECT_HAS(p, "BitOr a As Int32 (global), 6 As Int32");
  p = Logic("Dim a As Int32\nDim r As Int32", "a Xor 6");
  EXPECT_HAS(p, "BitXor a As Int32 (global), 6 As Int32");
  p = Logic("Dim a As UInt64\nDim r As UInt64", "Not a");
  EXPECT_HAS(p, "BitNot a As UInt64 (global) -> t1 As UInt64 (global)");
}

TEST(Logic, OperandsMustBeBoolean) {
  CompiledProgram p = Logic("Dim s As String\nDim r As Boolean", "s And True");
  EXPECT_EQ(std::vector<int>({2}), p.ErrorCodes());
  EXPECT_EQ(std::vector<std::string>({"Boolean", "String"}), p.errors[0].arguments);
  // A Variant meeting a Boolean converts to Boolean.
  p = Logic("Dim v As Variant\nDim r As Boolean", "v And True");
  EXPECT_TRUE(p.errors.empty()) << p.Listing();
}

}  // namespace
