#include <gtest/gtest.h>

#include "Compiler/SymbolTable/GlobalSymbolTable.h"
#include "Compiler/datatypes.h"
#include "CompilerTestSupport.h"

namespace {

std::string Text(IRDataType const& type) { return Std(type.ToString()); }

IRDataType Structure(StructureSymbol& decl, unsigned long size) {
  decl.SetStorageSize(size);
  decl.mLinkName = decl.Name();
  return IRDataType(kStructureType, &decl);
}

}  // namespace

TEST(TypeLookup, BuiltInNamesIgnoreCaseAndAliasesShareOneType) {
  EXPECT_EQ(kSInt32Type, IRDataType::Lookup("integer").GetMainType());
  EXPECT_EQ(kSInt32Type, IRDataType::Lookup("INT32").GetMainType());
  EXPECT_EQ(kUInt8Type, IRDataType::Lookup("Byte").GetMainType());
  EXPECT_EQ(kSInt16Type, IRDataType::Lookup("short").GetMainType());
  EXPECT_EQ(kClassType, IRDataType::Lookup("Class").GetMainType());
  EXPECT_EQ(kCFStringRefType, IRDataType::Lookup("cfstringref").GetMainType());
  EXPECT_EQ(IRDataType::Lookup("Byte"), IRDataType::Lookup("UInt8"));
}

TEST(TypeLookup, OtherNamesStayUnresolvedWithTheirWrittenName) {
  IRDataType foo = IRDataType::Lookup("Foo");
  EXPECT_EQ(kUnresolvedType, foo.GetMainType());
  EXPECT_EQ("Foo", Text(foo));
  EXPECT_EQ(4u, foo.StorageSize());
  // Types without a source spelling cannot be named.
  EXPECT_EQ(kUnresolvedType, IRDataType::Lookup("Nil").GetMainType());
  EXPECT_EQ(kUnresolvedType, IRDataType::Lookup("Unknown Type").GetMainType());
}

TEST(TypePrinting, ArraysShowOneCommaPerExtraDimension) {
  IRDataType integer = IRDataType::Lookup("Integer");
  EXPECT_EQ("Int32()", Text(integer.AsArray(1)));
  EXPECT_EQ("Int32(,)", Text(integer.AsArray(2)));
  EXPECT_EQ("Int32(,,)", Text(integer.AsArray(3)));
  EXPECT_EQ("Foo()", Text(IRDataType(string("Foo")).AsArray(1)));
}

TEST(TypePrinting, ReferencesPrintAsTheirElementWithoutByRef) {
  IRDataType integer(kSInt32Type);
  EXPECT_EQ("Int32", Text(integer.AsReference()));
  EXPECT_EQ("Int32(,,)", Text(integer.AsArray(3).AsReference()));
}

TEST(TypePrinting, DeclarationsPrintTheirLinkName) {
  ClassSymbol widget("Widget");
  widget.mLinkName = "Shapes.Widget";
  IRDataType type(kObjectType, &widget);
  EXPECT_EQ("Shapes.Widget", Text(type));
  EXPECT_EQ("Shapes.Widget()", Text(type.AsArray(1)));
  EXPECT_EQ("Object", Text(IRDataType(kObjectType)));
  EXPECT_EQ("Unknown Type", Text(IRDataType()));
  EXPECT_EQ("Unknown Type", Text(IRDataType(kWideNumericType)));
  EXPECT_EQ("Nil", Text(IRDataType(kNilType)));
}

TEST(TypePrinting, EmptyLinkNameIsAnInternalFailure) {
  ClassSymbol widget("Widget");
  IRDataType type(kObjectType, &widget);
  EXPECT_ASSERTION(type.ToString(), "busted link name for Widget");
}

TEST(TypeDerivations, ArrayBehindReferenceRoundTrips) {
  EnumSymbol colour("Colour", kUInt8Type);
  IRDataType element(kUInt8Type, &colour);
  IRDataType ref = element.AsArray(1).AsReference();
  EXPECT_TRUE(ref.IsArray());
  EXPECT_EQ(1u, ref.GetDimensions());
  EXPECT_EQ(kUInt8Type, ref.AsElement().GetElementType());
  IRDataType back = ref.AsElement().AsElement();
  EXPECT_EQ(element, back);
  EXPECT_EQ(&colour, back.Declaration());
  EXPECT_EQ(0u, back.GetDimensions());
}

TEST(TypeDerivations, NestingBeyondThreeLevelsIsRefused) {
  IRDataType array = IRDataType(kSInt32Type).AsArray(1);
  EXPECT_ASSERTION(array.AsArray(1), "");
  EXPECT_ASSERTION(array.AsReference().AsReference(), "");
  EXPECT_ASSERTION(array.AsReference().AsArray(1), "");
  EXPECT_ASSERTION(IRDataType(kSInt32Type).AsArray(0), "");
  EXPECT_ASSERTION(IRDataType(kSInt32Type).AsElement(), "");
}

TEST(TypeStorage, AlignmentFollowsTheSizeItself) {
  EXPECT_EQ(8u, IRDataType(kSInt64Type).StorageAlign(5));
  EXPECT_EQ(6u, IRDataType(kSInt16Type).StorageAlign(5));
  EXPECT_EQ(5u, IRDataType(kBooleanType).StorageAlign(5));
  EXPECT_EQ(8u, IRDataType(kSInt32Type).StorageAlign(8));
  StructureSymbol three("Three"), twelve("Twelve"), empty("Empty");
  // A 3-byte structure aligns on multiples of 3, a 12-byte one on 8.
  EXPECT_EQ(6u, Structure(three, 3).StorageAlign(4));
  EXPECT_EQ(16u, Structure(twelve, 12).StorageAlign(9));
  EXPECT_EQ(12u, Structure(twelve, 12).StorageSize());
  // Zero size resets the running offset.
  EXPECT_EQ(0u, Structure(empty, 0).StorageAlign(7));
}

TEST(TypeEquality, DeclarationsCompareByIdentity) {
  EnumSymbol red("Red", kSInt32Type), blue("Blue", kSInt32Type);
  EXPECT_NE(IRDataType(kSInt32Type, &red), IRDataType(kSInt32Type, &blue));
  EXPECT_NE(IRDataType(kSInt32Type, &red), IRDataType(kSInt32Type));
  EXPECT_EQ(IRDataType(kSInt32Type, &red), IRDataType(kSInt32Type, &red));
  ClassSymbol widget("Widget");
  EXPECT_NE(IRDataType(kObjectType), IRDataType(kObjectType, &widget));
}

TEST(TypeEquality, UnresolvedNamesIgnoreCase) {
  EXPECT_EQ(IRDataType(string("Foo")), IRDataType(string("FOO")));
  EXPECT_NE(IRDataType(string("Foo")), IRDataType(string("Bar")));
  EXPECT_EQ(IRDataType(string("Foo")).AsArray(1),
            IRDataType(string("foo")).AsArray(1));
}

TEST(TypeEquality, ArraysNeedEqualElementsAndDimensions) {
  IRDataType integer(kSInt32Type);
  EXPECT_NE(integer.AsArray(1), integer.AsArray(2));
  EXPECT_NE(integer.AsArray(1), IRDataType(kUInt32Type).AsArray(1));
  EXPECT_EQ(integer.AsArray(2).AsReference(), integer.AsArray(2).AsReference());
  EXPECT_NE(integer.AsReference(), integer.AsArray(1).AsReference());
  EXPECT_NE(integer.AsReference(), integer);
}
