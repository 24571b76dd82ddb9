// The type each operation runs in, as the listing shows it: promotions of
// mixed operands, result types of / \ ^ and comparisons, the evaluation
// order of > and >=, string comparison and assignment.
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
      {"UInt8", "UInt16", "UInt32", "a * b", "Mul",
       {"Mul t1 As UInt32 (global), t2 As UInt32 (global) -> t3 As UInt32 (global)"}},
      {"Int32", "UInt64", "Int64", "a + b", "Cvt",
       {"Cvt a As Int32 (global) -> t1 As Int64 (global)",
        "Cvt b As UInt64 (global) -> t2 As Int64 (global)"}},
      {"UInt64", "UInt64", "UInt64", "a - b", "Cvt", {}},
      {"UInt64", "UInt64", "UInt64", "a - b", "*", {"Sub a As UInt64 (global), b As UInt64 (global)"}},
      {"Currency", "Int32", "Double", "a + b", "Cvt",
       {"Cvt a As Currency (global) -> t1 As Double (global)",
        "Cvt b As Int32 (global) -> t2 As Double (global)"}},
      {"Currency", "Currency", "Currency", "a / b", "*",
       {"Div a As Currency (global), b As Currency (global) -> t1 As Currency"}},
      {"Double", "Single", "Int32", "a \\ b", "*",
       {"Cvt a As Double (global) -> t1 As Int32 (global)",
        "Div t1 As Int32 (global), t2 As Int32 (global) -> t3 As Int32"}},
      {"Ptr", "Ptr", "Int32", "a - b", "*", {"Sub a As Ptr (global), b As Ptr (global) -> t1 As Int32"}},
      {"Ptr", "Int32", "Ptr", "a + b", "*", {"Add a As Ptr (global), b As Int32 (global) -> t1 As Ptr"}},
      {"Int16", "Ptr", "Ptr", "a + b", "*",
       {"Cvt a As Int16 (global) -> t1 As Int32 (global)",
        "Add t1 As Int32 (global), b As Ptr (global) -> t2 As Ptr"}},
      {"Int32", "Double", "Boolean", "a > b", "",
       {"Cvt a As Int32 (global) -> t1 As Double (global)",
        "LT b As Double (global), t1 As Double (global) -> t2 As Boolean (global)"}},
      {"Int32", "Int32", "Boolean", "a >= b", "*", {"LE b As Int32 (global), a As Int32 (global)"}},
      {"String", "String", "Boolean", "a >= b", "PutParam",
       {"PutParam a As String (global)", "PutParam b As String (global)"}},
      {"String", "String", "Boolean", "a >= b", "*",
       {"Intrinsic RuntimeStringCompare -> t1 As Int32 (global)",
        "LE 0 As Int32, t1 As Int32 (global) -> t2 As Boolean (global)"}},
      {"UInt8", "UInt8", "Int8", "-a", "*",
       {"Cvt a As UInt8 (global) -> t1 As Int8 (global)",
        "Neg t1 As Int8 (global) -> t2 As Int8 (global)"}},
      {"String", "String", "String", "a", "",
       {"SwapLocks a As String (global), r As String (global)",
        "Store a As String (global) -> r As String (global)"}},
      {"String", "String", "String", "r", "Store", {}},
  };
  for (Case const& c : cases) Check(c);
}

}  // namespace
