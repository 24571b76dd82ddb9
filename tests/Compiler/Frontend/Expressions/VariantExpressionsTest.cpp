// Variant operations as the listing shows them: one runtime call per
// operation, operands converted before the first is queued, the sign of
// VariantCompare tested with > and >= swapped, and a variant beside a plain
// value converted to the plain value's type.
#include <gtest/gtest.h>

#include "CompileDriver.h"

namespace {

CompiledProgram Compile(char const* result, char const* statement) {
  return CompileSource(std::string("Dim a As Variant\nDim b As Variant\nDim r As ") +
                       result + "\nr = " + statement);
}

TEST(VariantExpressions, ComparisonsCallTheRuntimeOnceAndTestItsSign) {
  CompiledProgram less = Compile("Boolean", "a < b");
  CompiledProgram greater = Compile("Boolean", "a > b");
  EXPECT_TRUE(less.errors.empty()) << less.Listing();
  EXPECT_EQ(1, less.Count("Intrinsic VariantCompare"));
  EXPECT_EQ(1, greater.Count("Intrinsic VariantCompare"));
  EXPECT_TRUE(less.InOrder({"PutParam a As Variant", "PutParam b As Variant",
                            "Intrinsic VariantCompare -> t1 As Int32",
                            "LT t1 As Int32 (global), 0 As Int32"}))
      << less.Listing();
  EXPECT_TRUE(greater.InOrder({"PutParam a As Variant", "PutParam b As Variant",
                               "Intrinsic VariantCompare -> t1 As Int32",
                               "LT 0 As Int32, t1 As Int32 (global)"}))
      << greater.Listing();
}

// Both operands become variants (a call each) before either is queued.
TEST(VariantExpressions, OperandsAreConvertedBeforeTheArgumentsAreQueued) {
  CompiledProgram p = Compile("Variant", "a + Nil");
  EXPECT_TRUE(p.errors.empty()) << p.Listing();
  EXPECT_TRUE(p.InOrder({"Intrinsic ObjectToVariant", "PutParam a As Variant",
                         "PutParam t1 As Variant", "Intrinsic VariantAdd"}))
      << p.Listing();
}

TEST(VariantExpressions, APlainOperandDecidesTheType) {
  CompiledProgram sum = Compile("Integer", "a + 1");
  EXPECT_EQ(0, sum.Count("VariantAdd"));
  EXPECT_TRUE(sum.InOrder({"Intrinsic VariantToInt32", "Add t1 As Int32"}))
      << sum.Listing();
  CompiledProgram text = Compile("String", "a + \"x\"");
  EXPECT_TRUE(text.InOrder({"Intrinsic VariantToString", "RuntimeAddString"}))
      << text.Listing();
}

TEST(VariantExpressions, MembersAreRuntimeCalls) {
  CompiledProgram p = CompileSource(
      "Dim a As Variant\nDim i As Integer = a.IntegerValue + a.Int32Value\n"
      "Dim e As Boolean = a.Equals(3)\nDim t As Integer = Variant.TypeString");
  EXPECT_TRUE(p.errors.empty()) << p.Listing();
  EXPECT_EQ(2, p.Count("Intrinsic VariantToInt32"));
  EXPECT_TRUE(p.InOrder({"Intrinsic Int32ToVariant", "PutParam a As Variant",
                         "Intrinsic VariantEqual"}))
      << p.Listing();
  EXPECT_TRUE(p.Has("Store 8 As Int32")) << p.Listing();
}

}  // namespace
