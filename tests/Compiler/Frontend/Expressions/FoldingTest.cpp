// Constant folding: what folds, to which value and type, and what is left
// to generated code.
#include <gtest/gtest.h>

#include "CompileDriver.h"

namespace {

// The value stored by `r = expr`, with r of the given type, as the listing
// prints the stored operand ("7 As Int32"), or the whole listing when the
// store is not of a constant.
std::string Stored(std::string const& type, std::string const& expr) {
  CompiledProgram p = CompileSource("Dim r As " + type + "\nr = " + expr);
  EXPECT_TRUE(p.errors.empty()) << expr;
  std::vector<std::string> stores = p.Lines("Store");
  if (stores.size() != 1) return p.Listing();
  std::string line = stores[0].substr(6);
  return line.substr(0, line.find(" -> "));
}

TEST(Folding, IntegerArithmeticFoldsInItsCommonType) {
  EXPECT_EQ("7 As Int32", Stored("Int32", "1 + 2 * 3"));
  EXPECT_EQ("3 As Int32", Stored("Int32", "7 \\ 2"));
  EXPECT_EQ("1 As Int32", Stored("Int32", "7 Mod 3"));
  EXPECT_EQ("-1 As Int32", Stored("Int32", "2 - 3"));
  // Int32 results wrap to 32 bits.
  EXPECT_EQ("-2147483648 As Int32", Stored("Int32", "2147483647 + 1"));
  // A literal beyond Int32 is Int64, and so is the sum.
  EXPECT_EQ("4294967296 As Int64", Stored("Int64", "4294967295 + 1"));
}

TEST(Folding, DivisionAndPowerGiveDoubles) {
  EXPECT_EQ("0.5 As Double", Stored("Double", "1 / 2"));
  EXPECT_EQ("8.0 As Double", Stored("Double", "2 ^ 3"));
  EXPECT_EQ("2.5 As Double", Stored("Double", "1.5 + 1"));
  // Float \ and Mod truncate both operands to Int32 first.
  EXPECT_EQ("3 As Int32", Stored("Int32", "7.9 \\ 2.2"));
  EXPECT_EQ("1 As Int32", Stored("Int32", "7.9 Mod 2.2"));
}

TEST(Folding, IntegerDivisionByZeroIsDefined) {
  EXPECT_EQ("2147483647 As Int32", Stored("Int32", "5 \\ 0"));
  EXPECT_EQ("-2147483648 As Int32", Stored("Int32", "-5 \\ 0"));
  // Mod by zero is left to the runtime.
  CompiledProgram p = CompileSource("Dim r As Int32\nr = 5 Mod 0");
  EXPECT_TRUE(p.errors.empty());
  EXPECT_HAS(p, "Mod 5 As Int32, 0 As Int32");
}

TEST(Folding, ComparisonsAndLogicGiveBooleans) {
  EXPECT_EQ("True As Boolean", Stored("Boolean", "2 > 1"));
  EXPECT_EQ("False As Boolean", Stored("Boolean", "2 <= 1"));
  EXPECT_EQ("True As Boolean", Stored("Boolean", "\"abc\" < \"abd\""));
  EXPECT_EQ("False As Boolean", Stored("Boolean", "True And False"));
  EXPECT_EQ("True As Boolean", Stored("Boolean", "True Xor False"));
  EXPECT_EQ("False As Boolean", Stored("Boolean", "Not True"));
  EXPECT_EQ("True As Boolean", Stored("Boolean", "&cFF0000 <> &c00FF00"));
  // NaN is unordered: equality is false, inequality true.
  EXPECT_EQ("False As Boolean", Stored("Boolean", "0.0 / 0.0 = 0.0 / 0.0"));
  EXPECT_EQ("True As Boolean", Stored("Boolean", "0.0 / 0.0 <> 1.0"));
}

TEST(Folding, StringsConcatenate) {
  EXPECT_EQ("\"ab\" As String", Stored("String", "\"a\" + \"b\""));
}

TEST(Folding, NegationAndComplement) {
  EXPECT_EQ("-6 As Int32", Stored("Int32", "Not 5"));
  EXPECT_EQ("-2.5 As Double", Stored("Double", "-2.5"));
  EXPECT_EQ("-9000000000 As Int64", Stored("Int64", "-9000000000"));
}

TEST(Folding, ConstantConversions) {
  // An integer constant going to a float folds.
  EXPECT_EQ("3.0 As Double", Stored("Double", "3"));
  // A float constant going to a narrow integer folds to an Int32 literal.
  EXPECT_EQ("2 As Int32", Stored("Int32", "2.5"));
  EXPECT_EQ("-2 As Int32", Stored("Int16", "-2.9"));
  // Not to an 8-byte integer: a Double 2.5 going to Int64 is converted at
  // run time.
  CompiledProgram p = CompileSource("Dim r As Int64\nr = 2.5");
  EXPECT_EQ(std::vector<std::string>(
                {"Cvt 2.5 As Double -> t1 As Int64 (global)"}),
            p.Lines("Cvt"));
}

TEST(Folding, NarrowTypesAndVariablesDoNotFold) {
  CompiledProgram p = CompileSource("Dim a As Int32\nDim r As Int32\nr = a + 1 + 2");
  EXPECT_EQ(2u, p.Lines("Add").size()) << p.Listing();
  // Constants with a module name fold like literals.
  p = CompileSource("Const k = 6\nDim r As Int32\nr = k * 7");
  EXPECT_HAS(p, "Store 42 As Int32 -> r As Int32 (global)");
}

}  // namespace
