// The rules of conversion on their own: common types and legality with
// step counts.
#include <gtest/gtest.h>

#include "Compiler/Frontend/TypeConversions.h"
#include "Compiler/SymbolTable/GlobalSymbolTable.h"

namespace {

IRDataType T(SimpleDataType type) { return IRDataType(type); }

std::string Common(SimpleDataType a, SimpleDataType b) {
  return ComputeCommonType(T(a), T(b)).ToString().CString();
}

TEST(ConversionRules, CommonTypeTable) {
  EXPECT_EQ("Int32", Common(kSInt8Type, kUInt8Type));
  EXPECT_EQ("UInt32", Common(kUInt8Type, kUInt16Type));
  EXPECT_EQ("Int64", Common(kSInt32Type, kUInt64Type));
  EXPECT_EQ("UInt64", Common(kUInt32Type, kUInt64Type));
  EXPECT_EQ("Double", Common(kCurrencyType, kSInt32Type));
  EXPECT_EQ("Double", Common(kReal32Type, kReal64Type));
  EXPECT_EQ("Currency", Common(kCurrencyType, kCurrencyType));
  EXPECT_EQ("Ptr", Common(kUInt16Type, kPtrType));
  EXPECT_EQ("String", Common(kStringType, kExternalCStringType));
  // Chameleons take the other side's type.
  EXPECT_EQ("Int32", Common(kVariantType, kSInt32Type));
  EXPECT_EQ("String", Common(kStringType, kVariantType));
  // Variant meeting Nil is Nil: the variant runtime takes both.
  EXPECT_EQ("Nil", Common(kVariantType, kNilType));
  EXPECT_EQ("Object", Common(kNilType, kObjectType));
  // No common type.
  EXPECT_EQ("Unknown Type", Common(kStringType, kSInt32Type));
  EXPECT_EQ("Unknown Type", Common(kBooleanType, kSInt32Type));
  EXPECT_EQ(kNoType,
            ComputeCommonType(T(kSInt32Type).AsArray(1), T(kSInt32Type))
                .GetMainType());
  // References are looked through.
  EXPECT_EQ(kSInt64Type, ComputeCommonType(T(kSInt8Type).AsReference(),
                                            T(kSInt64Type)).GetMainType());
}

TEST(ConversionRules, LegalityAndSteps) {
  int steps = -1;
  EXPECT_TRUE(IsLegalConversion(T(kSInt32Type), T(kSInt32Type), &steps));
  EXPECT_EQ(0, steps);
  // Any numeric pair is one step, narrowing included.
  EXPECT_TRUE(IsLegalConversion(T(kSInt8Type), T(kReal64Type), &steps));
  EXPECT_EQ(1, steps);
  EXPECT_TRUE(IsLegalConversion(T(kStringType), T(kVariantType), &steps));
  EXPECT_TRUE(IsLegalConversion(T(kVariantType), T(kBooleanType), &steps));
  EXPECT_TRUE(IsLegalConversion(T(kObjectType), T(kNilType), &steps));
  EXPECT_TRUE(IsLegalConversion(T(kExternalWStringType), T(kStringType), &steps));
  EXPECT_FALSE(IsLegalConversion(T(kStringType), T(kSInt32Type), &steps));
  EXPECT_FALSE(IsLegalConversion(T(kBooleanType), T(kSInt32Type), &steps));
  EXPECT_FALSE(IsLegalConversion(T(kSInt32Type), T(kNilType), &steps));
  // A ByRef parameter takes exactly its element type, and leaves the steps.
  steps = 7;
  EXPECT_TRUE(IsLegalConversion(T(kSInt32Type).AsReference(), T(kSInt32Type), &steps));
  EXPECT_FALSE(IsLegalConversion(T(kSInt32Type).AsReference(), T(kSInt16Type), &steps));
  EXPECT_EQ(7, steps);
  // A reference argument is read through.
  EXPECT_TRUE(IsLegalConversion(T(kReal64Type), T(kSInt16Type).AsReference(), &steps));
  EXPECT_EQ(1, steps);
}

TEST(ConversionRules, EnumsNeverConvertImplicitly) {
  EnumSymbol colour("Shade");
  colour.mLinkName = "Shade";
  IRDataType shade(kSInt32Type, &colour);
  EXPECT_FALSE(IsLegalConversion(T(kSInt32Type), shade, nullptr));
  EXPECT_FALSE(IsLegalConversion(shade, T(kSInt32Type), nullptr));
  EXPECT_TRUE(IsLegalConversion(shade, shade, nullptr));
  // Yet an enum and an integer have a common type for arithmetic.
  EXPECT_EQ("Int32", std::string(ComputeCommonType(shade, T(kSInt16Type)).ToString().CString()));
}

TEST(ConversionRules, ClassesUpcastAndImplementInterfaces) {
  ClassSymbol base("Base"), derived("Derived");
  InterfaceSymbol face("Face");
  base.mLinkName = "Base";
  derived.mLinkName = "Derived";
  face.mLinkName = "Face";
  derived.SetSuperclassType(IRDataType(kObjectType, &base));
  derived.SetParent(&base);
  IRDataType faceType(kObjectType, &face);
  derived.AddImplementedInterface(faceType);
  IRDataType b(kObjectType, &base), d(kObjectType, &derived);
  EXPECT_TRUE(IsLegalConversion(b, d, nullptr));
  EXPECT_FALSE(IsLegalConversion(d, b, nullptr));
  EXPECT_TRUE(IsLegalConversion(T(kObjectType), b, nullptr));
  EXPECT_TRUE(IsInterfaceCast(faceType, d));
  EXPECT_FALSE(IsInterfaceCast(faceType, b));
  // Arrays of a class narrow to arrays of an ancestor.
  EXPECT_TRUE(IsArrayElementNarrowingCast(b.AsArray(1), d.AsArray(1)));
  EXPECT_FALSE(IsArrayElementNarrowingCast(d.AsArray(1), b.AsArray(1)));
  // Two different classes have no common type.
  EXPECT_EQ(kNoType, ComputeCommonType(b, d).GetMainType());
}

}  // namespace
