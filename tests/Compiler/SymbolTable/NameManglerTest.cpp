// Link names: type codes and the designators of parameter roles.
#include <gtest/gtest.h>

#include "../CompilerTestSupport.h"
#include "Compiler/SymbolTable/GlobalSymbolTable.h"
#include "Compiler/SymbolTable/NameMangler.h"

namespace {

ParameterSymbol* Param(IRDataType type, ParameterSymbol::Role role =
                                            ParameterSymbol::kNormalParameter) {
  return new ParameterSymbol("p", type, role);
}

TEST(NameMangler, TypeCodes) {
  ClassSymbol shape("Shape");
  shape.mLinkName = "Shape";
  EnumSymbol shade("Shade");
  shade.mLinkName = "Colors.Shade";
  StructureSymbol point("Point");
  point.mLinkName = "Geo.Point";
  EXPECT_EQ("i4<Colors.Shade>", Std(TypeCode(shade.InstanceType())));
  EXPECT_EQ("o<Shape>", Std(TypeCode(shape.InstanceType())));
  EXPECT_EQ("t<Geo.Point>", Std(TypeCode(point.InstanceType())));
  EXPECT_EQ("A2i4", Std(TypeCode(IRDataType(kSInt32Type).AsArray(2))));
  EXPECT_EQ("&A1s",
            Std(TypeCode(IRDataType(kStringType).AsArray(1).AsReference())));
  EXPECT_EQ("?<Mystery>", Std(TypeCode(IRDataType("Mystery"))));
  char const* const expected[] = {"?<Unknown Type>", "b", "i1", "u1", "i2",
                                  "u2", "i4", "u4", "i8", "u8", "f4", "f8",
                                  "e"};
  for (int t = 0; t <= kCurrencyType; t++)
    EXPECT_EQ(expected[t], Std(TypeCode(IRDataType(SimpleDataType(t)))));
  struct { SimpleDataType type; char const* code; } more[] = {
      {kColorType, "c"}, {kVariantType, "v"}, {kClassType, "x"}, {kPtrType, "p"}};
  for (auto& r : more) EXPECT_EQ(r.code, Std(TypeCode(IRDataType(r.type))));
}

TEST(NameMangler, DesignatorsOfParameterRoles) {
  std::unique_ptr<MethodSymbol> ext(new MethodSymbol("Foo"));
  ext->AddParameter(Param(IRDataType(kSInt32Type).AsArray(1),
                          ParameterSymbol::kExtendsParameter));
  EXPECT_EQ("$Foo%%A1i4", Std(MangledMethodName(ext.get(), "")));
  std::unique_ptr<MethodSymbol> all(new MethodSymbol("V"));
  all->AddParameter(Param(IRDataType(kSInt32Type),
                          ParameterSymbol::kExtendsParameter));
  all->AddParameter(Param(IRDataType(kSInt32Type).AsArray(1),
                          ParameterSymbol::kParamArrayParameter));
  all->AddParameter(Param(IRDataType(kReal64Type),
                          ParameterSymbol::kAssignsParameter));
  EXPECT_EQ("M.=*$V%%i4A1i4f8", Std(MangledMethodName(all.get(), "M")));
  EXPECT_EQ(kEncodingUTF8, MangledMethodName(all.get(), "M").Encoding());
}

}  // namespace
