// The type each operation runs in, as the listing shows it: promotions of
// mixed operands, result types of / \ ^ and comparisons, precedence, the
// evaluation order of > and >=, strings, assignment, and the logical
// operators with their short circuits and bitwise forms.
#include <gtest/gtest.h>

#include "CompileDriver.h"

namespace {

using Lines = std::vector<std::string>;

struct Case { char const* a; char const* b; char const* r; char const* expr; char const* opcode; Lines lines; };

void Check(Case const& c) {
  CompiledProgram p = CompileSource(std::string("Dim a As ") + c.a + "\nDim b As " +
                                    c.b + "\nDim r As " + c.r + "\nr = " + c.expr);
  std::string what = std::string(c.a) + " " + c.b + " " + c.expr;
  EXPECT_TRUE(p.errors.empty()) << what;
  std::string op = c.opcode;
  if (op == "*") {
    for (std::string const& line : c.lines) EXPECT_TRUE(p.Has(line)) << what << "\n" << p.Listing();
  } else {
    EXPECT_EQ(c.lines, op.empty() ? p.Opening(c.lines.size()) : p.Lines(op)) << what;
  }
}

TEST(Promotion, MixedOperandsAndResultTypes) {
  Case cases[] = {
      {"Int8", "UInt8", "Int32", "a + b", "Cvt",
       {"Cvt a As Int8 (global) -> t1 As Int32 (global)",
        "Cvt b As UInt8 (global) -> t2 As Int32 (global)"}},
      {"Int8", "UInt8", "Int32", "a + b", "Add",
       {"Add t1 As Int32 (global), t2 As Int32 (global) -> t3 As Int32 (global)"}},
      {"UInt8", "UInt16", "UInt32", "a * b", "Mul",
       {"Mul t1 As UInt32 (global), t2 As UInt32 (global) -> t3 As UInt32 (global)"}},
      {"Int32", "UInt64", "Int64", "a + b", "Cvt",
       {"Cvt a As Int32 (global) -> t1 As Int64 (global)",
        "Cvt b As UInt64 (global) -> t2 As Int64 (global)"}},
      {"Int32", "UInt64", "Int64", "a + b", "*",
       {"Add t1 As Int64 (global), t2 As Int64 (global) -> t3 As Int64"}},
      {"UInt64", "UInt64", "UInt64", "a - b", "Cvt", {}},
      {"UInt64", "UInt64", "UInt64", "a - b", "*", {"Sub a As UInt64 (global), b As UInt64 (global)"}},
      {"Currency", "Int32", "Double", "a + b", "Cvt",
       {"Cvt a As Currency (global) -> t1 As Double (global)",
        "Cvt b As Int32 (global) -> t2 As Double (global)"}},
      {"Currency", "Currency", "Currency", "a / b", "Cvt", {}},
      {"Currency", "Currency", "Currency", "a / b", "*",
       {"Div a As Currency (global), b As Currency (global) -> t1 As Currency"}},
      {"Int32", "Int32", "Double", "a / b", "*",
       {"Cvt b As Int32 (global) -> t2 As Double (global)",
        "Div t1 As Double (global), t2 As Double (global) -> t3 As Double"}},
      {"Double", "Single", "Int32", "a \\ b", "*",
       {"Cvt a As Double (global) -> t1 As Int32 (global)",
        "Div t1 As Int32 (global), t2 As Int32 (global) -> t3 As Int32"}},
      {"Int16", "Int16", "Double", "a ^ b", "*", {"Pow t1 As Double (global), t2 As Double (global)"}},
      {"Ptr", "Ptr", "Int32", "a - b", "*", {"Sub a As Ptr (global), b As Ptr (global) -> t1 As Int32"}},
      {"Ptr", "Int32", "Ptr", "a + b", "*", {"Add a As Ptr (global), b As Int32 (global) -> t1 As Ptr"}},
      {"Int16", "Ptr", "Ptr", "a + b", "*",
       {"Cvt a As Int16 (global) -> t1 As Int32 (global)",
        "Add t1 As Int32 (global), b As Ptr (global) -> t2 As Ptr"}},
      {"Double", "Double", "Double", "-a ^ b", "",
       {"Pow a As Double (global), b As Double (global) -> t1 As Double (global)",
        "Neg t1 As Double (global) -> t2 As Double (global)",
        "Store t2 As Double (global) -> r As Double (global)"}},
      {"Boolean", "Boolean", "Boolean", "Not a = b", "EQ",
       {"EQ a As Boolean (global), False As Boolean -> t1 As Boolean (global)",
        "EQ t1 As Boolean (global), b As Boolean (global) -> t2 As Boolean (global)"}},
      {"Double", "Double", "Double", "a ^ b ^ r", "Pow",
       {"Pow b As Double (global), r As Double (global) -> t1 As Double (global)",
        "Pow a As Double (global), t1 As Double (global) -> t2 As Double (global)"}},
      {"Int32", "Double", "Boolean", "a > b", "",
       {"Cvt a As Int32 (global) -> t1 As Double (global)",
        "LT b As Double (global), t1 As Double (global) -> t2 As Boolean (global)"}},
      {"Int32", "Int32", "Boolean", "a >= b", "*", {"LE b As Int32 (global), a As Int32 (global)"}},
      {"Int32", "Int32", "Boolean", "a <> b", "*", {"NE a As Int32 (global), b As Int32 (global)"}},
      {"String", "String", "String", "a + b", "",
       {"Unlock t1 As String (global)", "PutParam a As String (global)",
        "PutParam b As String (global)", "Intrinsic intrinsic 38 -> t1 As String (global)"}},
      {"String", "String", "Boolean", "a >= b", "PutParam",
       {"PutParam a As String (global)", "PutParam b As String (global)"}},
      {"String", "String", "Boolean", "a >= b", "*",
       {"Intrinsic intrinsic 37 -> t1 As Int32 (global)",
        "LE 0 As Int32, t1 As Int32 (global) -> t2 As Boolean (global)"}},
      {"String", "String", "Boolean", "a < b", "*",
       {"LT t1 As Int32 (global), 0 As Int32 -> t2 As Boolean (global)"}},
      {"UInt8", "UInt8", "Int8", "-a", "*",
       {"Cvt a As UInt8 (global) -> t1 As Int8 (global)",
        "Neg t1 As Int8 (global) -> t2 As Int8 (global)"}},
      {"Double", "Int32", "Int32", "a", "",
       {"Cvt a As Double (global) -> t1 As Int32 (global)",
        "Store t1 As Int32 (global) -> r As Int32 (global)"}},
      {"String", "String", "String", "a", "",
       {"SwapLocks a As String (global), r As String (global)",
        "Store a As String (global) -> r As String (global)"}},
      {"String", "String", "String", "r", "Store", {}},
  };
  for (Case const& c : cases) Check(c);
}

TEST(Logic, ShortCircuitsAndBitwiseForms) {
  Case cases[] = {
      {"Boolean", "Int32", "Boolean", "a And b = 2", "",
       {"IfEQI a As Boolean (global), False As Boolean -> L2",
        "EQ b As Int32 (global), 2 As Int32 -> t1 As Boolean (global)",
        "IfEQI t1 As Boolean (global), False As Boolean -> L2",
        "Store True As Boolean -> t2 As Boolean (global)", "Jump -> L3", "L2:",
        "Store False As Boolean -> t2 As Boolean (global)", "L3:"}},
      {"Boolean", "Boolean", "Boolean", "a Or b", "Store",
       {"Store False As Boolean -> t1 As Boolean (global)",
        "Store True As Boolean -> t1 As Boolean (global)",
        "Store t1 As Boolean (global) -> r As Boolean (global)"}},
      {"Boolean", "Boolean", "Boolean", "a Xor b", "EQ",
       {"EQ a As Boolean (global), b As Boolean (global) -> t1 As Boolean (global)",
        "EQ t1 As Boolean (global), False As Boolean -> t1 As Boolean (global)"}},
      {"Boolean", "Boolean", "Boolean", "a Xor b", "IfEQI", {}},
      {"Int16", "UInt8", "Int32", "a And b", "*",
       {"Cvt b As UInt8 (global) -> t2 As Int32 (global)",
        "BitAnd t1 As Int32 (global), t2 As Int32 (global) -> t3 As Int32"}},
      {"Int32", "Int32", "Int32", "a Or 6", "*", {"BitOr a As Int32 (global), 6 As Int32"}},
      {"Int32", "Int32", "Int32", "a Xor 6", "*", {"BitXor a As Int32 (global), 6 As Int32"}},
      {"UInt64", "UInt64", "UInt64", "Not a", "*", {"BitNot a As UInt64 (global) -> t1 As UInt64 (global)"}},
      {"Variant", "Boolean", "Boolean", "a And True", "*", {}},
  };
  for (Case const& c : cases) Check(c);
  EXPECT_EQ(2u, CompileSource("Dim a As Boolean\nDim b As Boolean\nDim r As Boolean\nr = a Or b")
                .Lines("IfNEI").size());  // Or jumps on True
  CompiledProgram p = CompileSource("Dim s As String\nDim r As Boolean\nr = s And True");
  EXPECT_EQ(std::vector<int>({2}), p.ErrorCodes());
  EXPECT_EQ(Lines({"Boolean", "String"}), p.errors[0].arguments);
}

}  // namespace
