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

TEST(TypeLookup, AliasesShareOneTypeAndOtherNamesStayUnresolved) {
  EXPECT_EQ(IRDataType::Lookup("Byte"), IRDataType::Lookup("UInt8"));
  IRDataType foo = IRDataType::Lookup("Foo");
  EXPECT_EQ("Foo", Text(foo));
  EXPECT_EQ(4u, foo.StorageSize());
  // Types without a source spelling cannot be named.
  EXPECT_EQ(kUnresolvedType, IRDataType::Lookup("Nil").GetMainType());
  EXPECT_EQ(kUnresolvedType, IRDataType::Lookup("Unknown Type").GetMainType());
}

TEST(TypePrinting, ArraysReferencesAndDeclarations) {
  IRDataType integer(kSInt32Type);
  EXPECT_EQ("Int32(,)", Text(integer.AsArray(2)));
  EXPECT_EQ("Int32(,,)", Text(integer.AsArray(3).AsReference()));
  ClassSymbol widget("Widget");
  widget.mLinkName = "Shapes.Widget";
  EXPECT_EQ("Shapes.Widget()", Text(IRDataType(kObjectType, &widget).AsArray(1)));
  EXPECT_EQ("Unknown Type", Text(IRDataType(kWideNumericType)));
  ClassSymbol unnamed("Unnamed");
  EXPECT_ASSERTION(IRDataType(kObjectType, &unnamed).ToString(),
                   "busted link name for Unnamed");
}

TEST(TypeDerivations, ArrayBehindReferenceRoundTripsAndDeeperNestingIsRefused) {
  EnumSymbol colour("Colour", kUInt8Type);
  IRDataType element(kUInt8Type, &colour);
  IRDataType back = element.AsArray(1).AsReference().AsElement().AsElement();
  EXPECT_EQ(element, back);
  EXPECT_EQ(&colour, back.Declaration());
  IRDataType array = IRDataType(kSInt32Type).AsArray(1);
  EXPECT_ASSERTION(array.AsArray(1), "");
  EXPECT_ASSERTION(array.AsReference().AsReference(), "");
  EXPECT_ASSERTION(IRDataType(kSInt32Type).AsArray(0), "");
  EXPECT_ASSERTION(IRDataType(kSInt32Type).AsElement(), "");
}

TEST(TypeStorage, AlignmentFollowsTheSizeItself) {
  EXPECT_EQ(6u, IRDataType(kSInt16Type).StorageAlign(5));
  EXPECT_EQ(5u, IRDataType(kBooleanType).StorageAlign(5));
  StructureSymbol three("Three"), twelve("Twelve"), empty("Empty");
  // A 3-byte structure aligns on multiples of 3, a 12-byte one on 8.
  EXPECT_EQ(6u, Structure(three, 3).StorageAlign(4));
  EXPECT_EQ(16u, Structure(twelve, 12).StorageAlign(9));
  // Zero size resets the running offset.
  EXPECT_EQ(0u, Structure(empty, 0).StorageAlign(7));
}

TEST(TypeEquality, DeclarationsByIdentityNamesWithoutCaseArraysByShape) {
  EnumSymbol red("Red", kSInt32Type), blue("Blue", kSInt32Type);
  EXPECT_NE(IRDataType(kSInt32Type, &red), IRDataType(kSInt32Type, &blue));
  EXPECT_NE(IRDataType(kSInt32Type, &red), IRDataType(kSInt32Type));
  EXPECT_EQ(IRDataType(string("Foo")).AsArray(1),
            IRDataType(string("foo")).AsArray(1));
  IRDataType integer(kSInt32Type);
  EXPECT_NE(integer.AsArray(1), integer.AsArray(2));
  EXPECT_NE(integer.AsReference(), integer.AsArray(1).AsReference());
  EXPECT_NE(integer.AsReference(), integer);
}
