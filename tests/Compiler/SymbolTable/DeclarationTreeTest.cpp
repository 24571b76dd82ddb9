// The declaration tree built by hand: lookups and cloning on merge.
#include <gtest/gtest.h>

#include "../CompilerTestSupport.h"
#include "Compiler/SymbolTable/GlobalSymbolTable.h"

namespace {

ConstantSymbol* Constant(char const* name, long value,
                         MemberSymbol::Scope scope = MemberSymbol::kPublic) {
  ConstantSymbol* c =
      new ConstantSymbol(name, IRDataType(kSInt32Type), IRValue::SInt32(value));
  c->SetScope(scope);
  return c;
}

MethodSymbol* InstanceSub(char const* name, MemberSymbol::Scope scope) {
  MethodSymbol* m = new MethodSymbol(name);
  m->AddParameter(ParameterSymbol::NewImplicitSelf());
  m->SetScope(scope);
  return m;
}

TEST(DeclarationTree, GlobalLookupsSeeOnlyPublicMembersOfTopLevelModules) {
  GlobalSymbolTable global;
  ModuleSymbol* a = new ModuleSymbol("A");
  ModuleSymbol* inner = new ModuleSymbol("Inner");
  global.AddModule(a);
  a->AddModule(inner);
  a->AddConstant(Constant("kGlobal", 1));
  a->AddConstant(Constant("kProtected", 2, MemberSymbol::kProtected));
  a->AddConstant(Constant("kPrivate", 3, MemberSymbol::kPrivate));
  inner->AddConstant(Constant("kDeep", 4));
  EXPECT_NE(nullptr, global.LookupConstant("KGLOBAL"));
  EXPECT_EQ(nullptr, global.LookupConstant("kProtected"));
  EXPECT_EQ(nullptr, global.LookupConstant("kPrivate"));
  EXPECT_EQ(nullptr, global.LookupConstant("kDeep"));
  inner->SetContainer(a);
  a->SetContainer(&global);
  EXPECT_NE(nullptr, inner->LookupConstant("kProtected"));
  EXPECT_EQ(a, inner->LookupModule("A"));
}

TEST(DeclarationTree, MergedClassesKeepOrderAndRewireAccessorsAndHandlers) {
  UnitSymbolTable unit("App");
  ClassSymbol* widget = new ClassSymbol("Widget");
  MethodSymbol* a = InstanceSub("A", MemberSymbol::kPublic);
  MethodSymbol* getter = InstanceSub("Size.Get", MemberSymbol::kPrivate);
  MethodSymbol* b = InstanceSub("B", MemberSymbol::kPublic);
  widget->AddMethod(a);
  widget->AddMethod(getter);
  widget->AddMethod(b);
  PropertySymbol* size = new PropertySymbol("Size", IRDataType(kSInt32Type));
  size->SetCustomAccessors(true);
  size->SetGetter(getter);
  widget->AddProperty(size);
  unit.AddType(widget);
  GlobalSymbolTable global;
  global.MergeUnitSymbols(&unit, "");
  ClassSymbol* clone = static_cast<ClassSymbol*>(global.LookupType("widget"));
  ASSERT_NE(nullptr, clone);
  ASSERT_NE(widget, clone);
  std::vector<std::string> order;
  {
    MethodSymbolIterator it = clone->IterateMethods();
    while (it.Next()) order.push_back(Std(it.Value()->Name()));
  }
  EXPECT_EQ((std::vector<std::string>{"A", "Size.Get", "B"}), order);
  PropertySymbol* clonedSize = clone->LookupProperty("size");
  ASSERT_NE(nullptr, clonedSize);
  EXPECT_NE(getter, clonedSize->GetGetter());
  EXPECT_EQ(clonedSize->GetGetter(),
            (*clone->LookupMethods("Size.Get", kAllMethods))[0]);
}

}  // namespace
