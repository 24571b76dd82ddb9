// Name lookup: module properties and constants, modules by name, types as
// casts and values, and the reasons reported when a use does not fit.
#include <gtest/gtest.h>

#include "CompileDriver.h"

namespace {

using Codes = std::vector<int>;

TEST(Lookup, ModulePropertiesAreStaticStorage) {
  CompiledProgram p = CompileSource(
      "Module Shapes\n  Dim count As Int32\n  Const kSides = 4\nEnd Module\n"
      "Shapes.count = Shapes.kSides + 1\n");
  EXPECT_TRUE(p.errors.empty()) << p.errors[0].code;
  EXPECT_HAS(p, "Store 5 As Int32 -> Shapes.count As Int32 (global)");
  p = CompileSource("Module Shapes\n  Dim count As Int32\nEnd Module\nShapes.nothing = 1\n");
  EXPECT_EQ(Codes({11}), p.ErrorCodes());
  EXPECT_EQ(3u, p.errors[0].line);
}

TEST(Lookup, ConstantsCannotBeAssignedCalledOrStandAlone) {
  CompiledProgram p = CompileSource("Const k = 3\nk = 4\n");
  EXPECT_EQ(Codes({70}), p.ErrorCodes());
  p = CompileSource("Const k = 3\nDim i As Int32\ni = k(1)\n");
  EXPECT_EQ(Codes({6}), p.ErrorCodes());
  p = CompileSource("Const k = 3\nk\n");
  EXPECT_EQ(Codes({15}), p.ErrorCodes());
}

TEST(Lookup, VariablesStandingAloneOrSubscripted) {
  CompiledProgram p = CompileSource("Dim i As Int32\ni\n");
  EXPECT_EQ(Codes({15}), p.ErrorCodes());
  p = CompileSource("Dim i As Int32\ni(2) = 1\n");
  EXPECT_EQ(Codes({16}), p.ErrorCodes());
}

TEST(Lookup, TypeNamesAreCastsOrTypes) {
  CompiledProgram p = CompileSource("Dim i As Int32\nDim u As UInt32\nu = UInt32(i)\n");
  EXPECT_TRUE(p.errors.empty());
  EXPECT_HAS(p, "Store i As Int32 (global) -> t1 As UInt32 (global)");
  // A type as a statement, and as a value.
  p = CompileSource("Integer\n");
  EXPECT_EQ(Codes({31}), p.ErrorCodes());
  p = CompileSource("Dim i As Int32\ni = Integer\n");
  EXPECT_EQ(Codes({89}), p.ErrorCodes());
  // A module by name as a value, or called.
  p = CompileSource("Module M\nEnd Module\nDim i As Int32\ni = M\ni = M(1)\n");
  EXPECT_EQ(Codes({89, 6}), p.ErrorCodes());
}

TEST(Lookup, PropertiesHideTypeNames) {
  // A declared variable named like a built-in type is the variable.
  CompiledProgram p = CompileSource("Dim Single As Int32\nSingle = 2\n");
  EXPECT_TRUE(p.errors.empty());
  EXPECT_HAS(p, "Store 2 As Int32 -> Single As Int32 (global)");
}

TEST(Lookup, ConditionalCompilationSeesTheTargetConstants) {
  CompiledProgram p = CompileSource(
      "Dim i As Int32\n#if TargetLinux\ni = 1\n#else\ni = )\n#endif\n");
  EXPECT_TRUE(p.errors.empty());
  EXPECT_HAS(p, "Store 1 As Int32 -> i As Int32 (global)");
}

TEST(Lookup, ConstValuesMustBeConstants) {
  CompiledProgram p = CompileSource("Dim v As Int32\nConst k = v\n");
  EXPECT_EQ(Codes({126}), p.ErrorCodes());
  p = CompileSource("Const k = nowhere\n");
  EXPECT_EQ(Codes({11}), p.ErrorCodes());
}

}  // namespace
