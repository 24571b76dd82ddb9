// The rules of conversion between declared types: enums, classes and
// interfaces, and their common types.
#include <gtest/gtest.h>

#include "Compiler/Frontend/TypeConversions.h"
#include "Compiler/SymbolTable/GlobalSymbolTable.h"

namespace {

IRDataType T(SimpleDataType type) { return IRDataType(type); }
std::string Text(IRDataType const& type) { return type.ToString().CString(); }

TEST(ConversionRules, EnumsClassesAndInterfaces) {
  EnumSymbol colour("Shade");
  colour.mLinkName = "Shade";
  IRDataType shade(kSInt32Type, &colour);
  EXPECT_FALSE(IsLegalConversion(T(kSInt32Type), shade, nullptr));  // never implicit
  EXPECT_FALSE(IsLegalConversion(shade, T(kSInt32Type), nullptr));
  EXPECT_TRUE(IsLegalConversion(shade, shade, nullptr));
  EXPECT_EQ("Int32", Text(ComputeCommonType(shade, T(kSInt16Type))));  // arithmetic
  ClassSymbol base("Base"), derived("Derived");
  InterfaceSymbol face("Face");
  base.mLinkName = "Base";
  derived.mLinkName = "Derived";
  face.mLinkName = "Face";
  derived.SetSuperclassType(IRDataType(kObjectType, &base));
  derived.SetParent(&base);
  IRDataType faceType(kObjectType, &face), b(kObjectType, &base), d(kObjectType, &derived);
  derived.AddImplementedInterface(faceType);
  EXPECT_TRUE(IsLegalConversion(b, d, nullptr));  // upcast only
  EXPECT_FALSE(IsLegalConversion(d, b, nullptr));
  EXPECT_TRUE(IsLegalConversion(T(kObjectType), b, nullptr));
  EXPECT_TRUE(IsInterfaceCast(faceType, d));
  EXPECT_FALSE(IsInterfaceCast(faceType, b));
  EXPECT_TRUE(IsArrayElementNarrowingCast(b.AsArray(1), d.AsArray(1)));
  EXPECT_FALSE(IsArrayElementNarrowingCast(d.AsArray(1), b.AsArray(1)));
  EXPECT_EQ(kNoType, ComputeCommonType(b, d).GetMainType());  // no common class
}

}  // namespace
