// The type each operation runs in, as the listing shows it: promotions of
// mixed operands, the result types of / \ ^ and comparisons, precedence,
// and the deliberate evaluation order of > and >=.
#include <gtest/gtest.h>

#include "CompileDriver.h"

namespace {

using Lines = std::vector<std::string>;

// Declares `a` and `b` of the two types and `r` of the result type, then
// compiles `r = expr` on line 3.
CompiledProgram Mixed(std::string const& typeA, std::string const& typeB,
                      std::string const& typeR, std::string const& expr) {
  return CompileSource("Dim a As " + typeA + "\nDim b As " + typeB +
                       "\nDim r As " + typeR + "\nr = " + expr);
}

TEST(Promotion, SmallIntegersMeetInInt32OrUInt32) {
  CompiledProgram p = Mixed("Int8", "UInt8", "Int32", "a + b");
  EXPECT_TRUE(p.errors.empty());
  EXPECT_EQ(Lines({"Cvt a As Int8 (global) -> t1 As Int32 (global)",
                   "Cvt b As UInt8 (global) -> t2 As Int32 (global)"}),
            p.Lines("Cvt"));
  EXPECT_EQ(Lines({"Add t1 As Int32 (global), t2 As Int32 (global) -> t3 As "
                   "Int32 (global)"}),
            p.Lines("Add"));

  p = Mixed("UInt8", "UInt16", "UInt32", "a * b");
  EXPECT_EQ(2u, p.Lines("Cvt").size());
  EXPECT_HAS(p, "Mul t1 As UInt32 (global), t2 As UInt32 (global)");
}

TEST(Promotion, SixtyFourBitsWinAndSignednessSpreads) {
  CompiledProgram p = Mixed("Int32", "UInt64", "Int64", "a + b");
  EXPECT_EQ(Lines({"Cvt a As Int32 (global) -> t1 As Int64 (global)",
                   "Cvt b As UInt64 (global) -> t2 As Int64 (global)"}),
            p.Lines("Cvt"));
  EXPECT_HAS(p, "Add t1 As Int64 (global), t2 As Int64 (global) -> t3 As Int64");
  // Equal types need no conversion at all.
  p = Mixed("UInt64", "UInt64", "UInt64", "a - b");
  EXPECT_TRUE(p.Lines("Cvt").empty());
  EXPECT_HAS(p, "Sub a As UInt64 (global), b As UInt64 (global)");
}

TEST(Promotion, CurrencyMixedWithAnythingIsDouble) {
  CompiledProgram p = Mixed("Currency", "Int32", "Double", "a + b");
  EXPECT_EQ(Lines({"Cvt a As Currency (global) -> t1 As Double (global)",
                   "Cvt b As Int32 (global) -> t2 As Double (global)"}),
            p.Lines("Cvt"));
  // Two Currency operands stay Currency, and so does their quotient.
  p = Mixed("Currency", "Currency", "Currency", "a / b");
  EXPECT_TRUE(p.Lines("Cvt").empty());
  EXPECT_HAS(p, "Div a As Currency (global), b As Currency (global) -> t1 As Currency");
}

TEST(Promotion, OperatorsWithTheirOwnResultTypes) {
  // / is Double for integers, \ and Mod are Int32 for floats, ^ is Double.
  CompiledProgram p = Mixed("Int32", "Int32", "Double", "a / b");
  EXPECT_EQ(2u, p.Lines("Cvt").size());
  EXPECT_HAS(p, "Div t1 As Double (global), t2 As Double (global) -> t3 As Double");
  p = Mixed("Double", "Single", "Int32", "a \\ b");
  EXPECT_HAS(p, "Cvt a As Double (global) -> t1 As Int32 (global)");
  EXPECT_HAS(p, "Div t1 As Int32 (global), t2 As Int32 (global) -> t3 As Int32");
  p = Mixed("Int16", "Int16", "Double", "a ^ b");
  EXPECT_HAS(p, "Pow t1 As Double (global), t2 As Double (global)");
  p = Mixed("Ptr", "Ptr", "Int32", "a - b");
  EXPECT_HAS(p, "Sub a As Ptr (global), b As Ptr (global) -> t1 As Int32");
  // An integer meets a Ptr as the same bits; smaller ones widen first.
  p = Mixed("Ptr", "Int32", "Ptr", "a + b");
  EXPECT_TRUE(p.errors.empty());
  EXPECT_HAS(p, "Add a As Ptr (global), b As Int32 (global) -> t1 As Ptr");
  p = Mixed("Int16", "Ptr", "Ptr", "a + b");
  EXPECT_HAS(p, "Cvt a As Int16 (global) -> t1 As Int32 (global)");
  EXPECT_HAS(p, "Add t1 As Int32 (global), b As Ptr (global) -> t2 As Ptr");
}

TEST(Promotion, PrecedenceOfUnaryMinusNotAndPower) {
  // -a ^ b is -(a ^ b).
  CompiledProgram p = Mixed("Double", "Double", "Double", "-a ^ b");
  EXPECT_EQ(Lines({"Pow a As Double (global), b As Double (global) -> t1 As Double (global)",
                   "Neg t1 As Double (global) -> t2 As Double (global)",
                   "Store t2 As Double (global) -> r As Double (global)"}),
            p.Opening(3));
  // Not a = b is (Not a) = b.
  p = Mixed("Boolean", "Boolean", "Boolean", "Not a = b");
  EXPECT_EQ(Lines({"EQ a As Boolean (global), False As Boolean -> t1 As Boolean (global)",
                   "EQ t1 As Boolean (global), b As Boolean (global) -> t2 As Boolean (global)"}),
            p.Lines("EQ"));
  // a ^ b ^ r groups to the right.
  p = Mixed("Double", "Double", "Double", "a ^ b ^ r");
  EXPECT_EQ(Lines({"Pow b As Double (global), r As Double (global) -> t1 As Double (global)",
                   "Pow a As Double (global), t1 As Double (global) -> t2 As Double (global)"}),
            p.Lines("Pow"));
}

TEST(Promotion, GreaterThanRunsTheRightOperandFirst) {
  CompiledProgram p = Mixed("Int32", "Double", "Boolean", "a > b");
  EXPECT_EQ(Lines({"Cvt a As Int32 (global) -> t1 As Double (global)",
                   "LT b As Double (global), t1 As Double (global) -> t2 As Boolean (global)"}),
            p.Opening(2));
  p = Mixed("Int32", "Int32", "Boolean", "a >= b");
  EXPECT_HAS(p, "LE b As Int32 (global), a As Int32 (global)");
  p = Mixed("Int32", "Int32", "Boolean", "a <> b");
  EXPECT_HAS(p, "NE a As Int32 (global), b As Int32 (global)");
}

TEST(Promotion, StringsConcatenateAndCompareThroughTheRuntime) {
  CompiledProgram p = Mixed("String", "String", "String", "a + b");
  EXPECT_EQ(Lines({"Unlock t1 As String (global)",
                   "PutParam a As String (global)",
                   "PutParam b As String (global)",
                   "Intrinsic intrinsic 38 -> t1 As String (global)"}),
            p.Opening(4));
  // Strings keep the left operand first even for >=: 0 <= compare(a, b).
  p = Mixed("String", "String", "Boolean", "a >= b");
  EXPECT_EQ(Lines({"PutParam a As String (global)", "PutParam b As String (global)"}),
            p.Lines("PutParam"));
  EXPECT_HAS(p, "Intrinsic intrinsic 37 -> t1 As Int32 (global)");
  EXPECT_HAS(p, "LE 0 As Int32, t1 As Int32 (global) -> t2 As Boolean (global)");
  p = Mixed("String", "String", "Boolean", "a < b");
  EXPECT_HAS(p, "LT t1 As Int32 (global), 0 As Int32 -> t2 As Boolean (global)");
}

TEST(Promotion, NegationOfUnsignedIsSigned) {
  CompiledProgram p = Mixed("UInt8", "UInt8", "Int8", "-a");
  EXPECT_HAS(p, "Cvt a As UInt8 (global) -> t1 As Int8 (global)");
  EXPECT_HAS(p, "Neg t1 As Int8 (global) -> t2 As Int8 (global)");
}

TEST(Promotion, AssignmentConvertsToTheVariablesType) {
  CompiledProgram p = Mixed("Double", "Int32", "Int32", "a");
  EXPECT_TRUE(p.errors.empty());
  EXPECT_EQ(Lines({"Cvt a As Double (global) -> t1 As Int32 (global)",
                   "Store t1 As Int32 (global) -> r As Int32 (global)"}),
            p.Opening(2));
  // A reference-counted value swaps the references before the store.
  p = Mixed("String", "String", "String", "a");
  EXPECT_EQ(Lines({"SwapLocks a As String (global), r As String (global)",
                   "Store a As String (global) -> r As String (global)"}),
            p.Opening(2));
  // A variable assigned to itself costs nothing.
  p = Mixed("String", "String", "String", "r");
  EXPECT_TRUE(p.Lines("Store").empty());
}

}  // namespace
