// Constant folding: what folds, to which value and type, and what is left
// to generated code.
#include <gtest/gtest.h>

#include "CompileDriver.h"

namespace {

TEST(Folding, ConstantsFoldToTheirValueAndType) {
  struct Case { char const* type; char const* expr; char const* stored; } cases[] = {
      {"Int32", "1 + 2 * 3", "7 As Int32"},
      {"Int32", "7 \\ 2", "3 As Int32"},
      {"Int32", "2147483647 + 1", "-2147483648 As Int32"},  // wraps to 32 bits
      {"Int64", "4294967295 + 1", "4294967296 As Int64"},   // Int64 literal
      {"Double", "1 / 2", "0.5 As Double"},
      {"Double", "2 ^ 3", "8.0 As Double"},
      {"Int32", "7.9 \\ 2.2", "3 As Int32"},
      {"Int32", "5 \\ 0", "2147483647 As Int32"},
      {"Int32", "-5 \\ 0", "-2147483648 As Int32"},
      {"Boolean", "2 > 1", "True As Boolean"},
      {"Boolean", "\"abc\" < \"abd\"", "True As Boolean"},
      {"Boolean", "True And False", "False As Boolean"},
      {"Boolean", "Not True", "False As Boolean"},
      {"Boolean", "&cFF0000 <> &c00FF00", "True As Boolean"},
      {"Boolean", "0.0 / 0.0 = 0.0 / 0.0", "False As Boolean"},
      {"Boolean", "0.0 / 0.0 <> 1.0", "True As Boolean"},
      {"String", "\"a\" + \"b\"", "\"ab\" As String"},
      {"Int32", "Not 5", "-6 As Int32"},
      {"Int64", "-9000000000", "-9000000000 As Int64"},
      {"Int32", "2.5", "2 As Int32"},
      {"Int16", "-2.9", "-2 As Int32"},
  };
  for (auto const& c : cases) {
    CompiledProgram p = CompileSource(std::string("Dim r As ") + c.type + "\nr = " + c.expr);
    EXPECT_TRUE(p.errors.empty()) << c.expr;
    std::vector<std::string> stores = p.Lines("Store");
    ASSERT_EQ(1u, stores.size()) << c.expr << "\n" << p.Listing();
    EXPECT_EQ(std::string("Store ") + c.stored, stores[0].substr(0, stores[0].find(" -> ")))
        << c.expr;
  }
}

TEST(Folding, WhatIsLeftToTheRuntime) {
  CompiledProgram p = CompileSource("Dim r As Int32\nr = 5 Mod 0");
  EXPECT_TRUE(p.errors.empty());
  EXPECT_HAS(p, "Mod 5 As Int32, 0 As Int32");
  p = CompileSource("Dim r As Int64\nr = 2.5");
  EXPECT_EQ(std::vector<std::string>({"Cvt 2.5 As Double -> t1 As Int64 (global)"}),
            p.Lines("Cvt"));
  p = CompileSource("Dim a As Int32\nDim r As Int32\nr = a + 1 + 2");
  EXPECT_EQ(2u, p.Lines("Add").size()) << p.Listing();
  p = CompileSource("Const k = 6\nDim r As Int32\nr = k * 7");
  EXPECT_HAS(p, "Store 42 As Int32 -> r As Int32 (global)");
}

}  // namespace
