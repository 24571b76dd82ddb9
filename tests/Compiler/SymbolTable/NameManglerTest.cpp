// Link names: qualification, designators, signatures and type codes.
#include <gtest/gtest.h>

#include "../CompilerTestSupport.h"
#include "Compiler/Frontend/NameMangler.h"
#include "Compiler/SymbolTable/GlobalSymbolTable.h"

namespace {

MethodSymbol* Method(char const* name, IRDataType result = IRDataType()) {
  return new MethodSymbol(name, result);
}

ParameterSymbol* Param(IRDataType type, ParameterSymbol::Role role =
                                            ParameterSymbol::kNormalParameter) {
  return new ParameterSymbol("p", type, role);
}

TEST(NameMangler, QualifiedNames) {
  EXPECT_EQ("A.B.X", Std(QualifyName("A.B", "X")));
  EXPECT_EQ("A.B.=C", Std(AddDesignatorToName("A.B.C", "=")));
  EXPECT_EQ("=C", Std(AddAssignsDesignatorToName("C")));
  EXPECT_EQ("C:I", Std(AddInterfaceToClassName("C", "I")));
  EXPECT_EQ("~C", Std(MakeOldDestructorBaseName("C")));
  EXPECT_EQ("C.__Lookup%x%", Std(ClassLookupFunctionLinkName("C")));
}

TEST(NameMangler, SignaturePieces) {
  IRDataType int32(kSInt32Type);
  EXPECT_EQ("Foo%i4%s", Std(AddReturnTypeDescriptionToName("Foo%%s", int32)));
  EXPECT_EQ("Foo%i4%", Std(AddReturnTypeDescriptionToName("Foo", int32)));
  EXPECT_EQ("Foo%%", Std(AddReturnTypeDescriptionToName("Foo", IRDataType())));
  EXPECT_EQ("Foo%%s",
            Std(AddParameterDescriptionToName("Foo", IRDataType(kStringType))));
  EXPECT_EQ("Foo%%si4", Std(AddParameterDescriptionToName("Foo%%s", int32)));
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
  char buffer[64];
  char* end = RawTypeCode(buffer, shade.InstanceType().AsArray(1));
  EXPECT_EQ("A1i4<Colors.Shade>", std::string(buffer, end));
}

TEST(NameMangler, MethodLinkNames) {
  ClassSymbol c("C");
  c.mLinkName = "C";
  std::unique_ptr<MethodSymbol> function(Method("Foo", IRDataType(kSInt32Type)));
  EXPECT_EQ("Foo%i4%", Std(MangledMethodName(function.get(), "")));
  std::unique_ptr<MethodSymbol> bar(Method("Bar"));
  ParameterSymbol* self = ParameterSymbol::NewImplicitSelf();
  self->SetType(c.InstanceType());
  bar->AddParameter(self);
  bar->AddParameter(Param(IRDataType(kSInt32Type)));
  EXPECT_EQ("C.Bar%%o<C>i4", Std(MangledMethodName(bar.get(), "C")));
  std::unique_ptr<MethodSymbol> ext(Method("Foo"));
  ext->AddParameter(Param(IRDataType(kSInt32Type).AsArray(1),
                          ParameterSymbol::kExtendsParameter));
  EXPECT_EQ("$Foo%%A1i4", Std(MangledMethodName(ext.get(), "")));
  std::unique_ptr<MethodSymbol> all(Method("V"));
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
