// The declaration tree built by hand: prototypes, lookups and cloning.
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

TEST(DeclarationTree, ScopesAreSpelledByContainer) {
  GlobalSymbolTable global;
  ModuleSymbol* module = new ModuleSymbol("Shapes");
  global.AddModule(module);
  ClassSymbol* widget = new ClassSymbol("Widget");
  module->AddType(widget);
  module->AddConstant(Constant("kPublic", 1));
  module->AddConstant(Constant("kHidden", 2, MemberSymbol::kPrivate));
  widget->AddConstant(Constant("kMax", 3, MemberSymbol::kProtected));
  widget->AddConstant(Constant("_compiler_extrabytes", 8, MemberSymbol::kPrivate));
  global.AddConstant(Constant("kTop", 4));
  EXPECT_EQ(
      "Const kTop = 4\nModule Shapes\nGlobal Const kPublic = 1\n"
      "Global Class Widget\nProtected Const kMax = 3\n"
      "Private Const _compiler_extrabytes = 8\nEnd Class\nEnd Module\n",
      Std(global.MakeContentsPrototype()));
}

TEST(DeclarationTree, MethodPrototypesShowWhatTheDeclarationSaid) {
  ClassSymbol widget("Widget");
  MethodSymbol* hidden = new MethodSymbol("Helper");
  hidden->SetScope(MemberSymbol::kPrivate);
  MethodSymbol* privateInstance = InstanceSub("Poke", MemberSymbol::kPrivate);
  MethodSymbol* shared = new MethodSymbol("Count", IRDataType(kSInt32Type));
  ParameterSymbol* optional = new ParameterSymbol("x", IRDataType(kSInt32Type));
  optional->SetMode(ParameterSymbol::kOptional);
  shared->AddParameter(optional);
  ParameterSymbol* text = new ParameterSymbol("s", IRDataType(kStringType));
  ParameterDefaultValue value;
  value.value = IRValue::String("");
  value.type = IRDataType(kStringType);
  text->SetDefaultValue(value);
  shared->AddParameter(text);
  MethodSymbol* event = new MethodSymbol("Changed");
  event->AddParameter(ParameterSymbol::NewImplicitSelf());
  event->AddParameter(new ParameterSymbol("v", IRDataType(kSInt32Type)));
  event->SetDispatchMethod(MethodSymbol::Event);
  event->SetScope(MemberSymbol::kPrivate);
  widget.AddMethod(hidden);
  widget.AddMethod(privateInstance);
  widget.AddMethod(shared);
  widget.AddEvent(event);
  EXPECT_EQ("", Std(hidden->MakePrototype(&widget)));
  EXPECT_EQ("Private Sub Poke()\nEnd Sub\n",
            Std(privateInstance->MakePrototype(&widget)));
  EXPECT_EQ(
      "Public Shared Function Count(Optional x As Int32, s As String = \"\") "
      "As Int32\nEnd Function\n",
      Std(shared->MakePrototype(&widget)));
  EXPECT_EQ("Event Changed(v As Int32)\n", Std(event->MakePrototype(&widget)));
}

TEST(DeclarationTree, ComputedPropertiesPrintTheirAccessorsUnlessPrivate) {
  ModuleSymbol module("M");
  PropertySymbol* width = new PropertySymbol("Width", IRDataType(kSInt32Type));
  width->SetCustomAccessors(true);
  width->SetGetter(new MethodSymbol("Width.Get"));
  module.AddMethod(width->GetGetter());
  PropertySymbol* secret = new PropertySymbol("Secret", IRDataType(kSInt32Type));
  secret->SetCustomAccessors(true);
  secret->SetScope(MemberSymbol::kPrivate);
  PropertySymbol* grid =
      new PropertySymbol("grid", IRDataType(kSInt32Type).AsArray(2));
  grid->SetShared(true);
  grid->SetScope(MemberSymbol::kProtected);
  module.AddProperty(width);
  module.AddProperty(secret);
  module.AddProperty(grid);
  EXPECT_EQ("Global Property Width As Int32\nGet\nEnd Get\nEnd Property\n",
            Std(width->MakePrototype(&module)));
  EXPECT_EQ("Private ", Std(secret->MakePrototype(&module)));
  EXPECT_EQ("Protected Shared Dim grid(,) As Int32\n",
            Std(grid->MakePrototype(&module)));
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
