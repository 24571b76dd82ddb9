// The declaration tree built by hand: scopes in prototypes, lookups of
// modules and the global table, events against methods, and cloning.
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
  std::string moduleText =
      "Global Const kPublic = 1\n"
      "Global Class Widget\n"
      "Protected Const kMax = 3\n"
      "Private Const _compiler_extrabytes = 8\n"
      "End Class\n";
  EXPECT_EQ("Const kTop = 4\nModule Shapes\n" + moduleText + "End Module\n",
            Std(global.MakeContentsPrototype()));
  EXPECT_EQ(
      "Global Const kPublic = 1\n"
      "Global Class Widget\n"
      "Protected Const kMax = 3\n"
      "Private Const _compiler_extrabytes = 8\n"
      "End Class\n",
      Std(module->MakeContentsPrototype()));
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
  EXPECT_EQ(1u, optional->GetMode());
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
  MethodSymbol* f = new MethodSymbol("F");
  MethodSymbol* g = new MethodSymbol("F");
  g->SetScope(MemberSymbol::kPrivate);
  a->AddMethod(f);
  a->AddMethod(g);
  MethodList found = global.LookupMethodsRecursive("f", kAllMethods);
  ASSERT_TRUE(found);
  ASSERT_EQ(1u, found->size());
  EXPECT_EQ(f, (*found)[0]);
  MethodList all = inner->LookupMethodsRecursive("F", kAllMethods);
  ASSERT_TRUE(all);  // A's two, then the global view of A's public one
  EXPECT_EQ(3u, all->size());
}

TEST(DeclarationTree, EventsAreNoMethodsToClassLookups) {
  ClassSymbol widget("Widget");
  MethodSymbol* event = new MethodSymbol("Changed");
  event->SetDispatchMethod(MethodSymbol::Event);
  widget.AddEvent(event);
  EXPECT_FALSE(widget.LookupMethods("Changed", kAllMethods));
  EXPECT_EQ(event, widget.LookupEvent("changed"));
  MethodSymbolIterator methods = widget.IterateMethods();
  EXPECT_FALSE(methods.Next());
}

TEST(DeclarationTree, MethodFiltersReadTheParameterRoles) {
  MethodSymbol setter("V");
  setter.AddParameter(ParameterSymbol::NewImplicitSelf());
  setter.AddParameter(new ParameterSymbol("x", IRDataType(kReal64Type),
                                          ParameterSymbol::kAssignsParameter));
  MethodSymbol extension("E");
  extension.AddParameter(new ParameterSymbol(
      "a", IRDataType(kSInt32Type), ParameterSymbol::kExtendsParameter));
  MethodSymbol paramArray("P");
  paramArray.AddParameter(new ParameterSymbol(
      "a", IRDataType(kSInt32Type).AsArray(1),
      ParameterSymbol::kParamArrayParameter));
  paramArray.AddParameter(new ParameterSymbol(
      "v", IRDataType(kSInt32Type), ParameterSymbol::kAssignsParameter));
  EXPECT_TRUE(setter.MatchesFilter(kSetterMethods));
  EXPECT_FALSE(setter.MatchesFilter(kPlainMethods));
  EXPECT_TRUE(setter.IsInstanceMethod());
  EXPECT_TRUE(extension.MatchesFilter(kExtensionMethods));
  EXPECT_FALSE(extension.MatchesFilter(kExtensionSetterMethods));
  EXPECT_TRUE(paramArray.IsParamArrayMethod());
  EXPECT_TRUE(paramArray.IsSetterMethod());
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
  widget->AddHandledEvent(new HandledEvent("Click", b));
  widget->AddImplementedInterface(IRDataType("Drawable"));
  unit.AddType(widget);
  GlobalSymbolTable global;
  global.MergeUnitSymbols(&unit, "");
  ClassSymbol* clone = static_cast<ClassSymbol*>(global.LookupType("widget"));
  ASSERT_NE(nullptr, clone);
  ASSERT_NE(widget, clone);
  ASSERT_NE(nullptr, clone->SourceUnit());
  EXPECT_EQ("App", Std(clone->SourceUnit()->UnitID()));
  std::vector<std::string> order;
  {
    MethodSymbolIterator it = clone->IterateMethods();
    while (it.Next()) order.push_back(Std(it.Value()->Name()));
  }
  EXPECT_EQ((std::vector<std::string>{"A", "Size.Get", "B"}), order);
  PropertySymbol* clonedSize = clone->LookupProperty("size");
  ASSERT_NE(nullptr, clonedSize);
  EXPECT_NE(getter, clonedSize->GetGetter());
  EXPECT_EQ("Size.Get", Std(clonedSize->GetGetter()->Name()));
  EXPECT_EQ(clonedSize->GetGetter(),
            (*clone->LookupMethods("Size.Get", kAllMethods))[0]);
  HandledEvent* click = clone->LookupHandledEvent("CLICK");
  ASSERT_NE(nullptr, click);
  EXPECT_EQ("B", Std(click->Handler()->Name()));
  EXPECT_NE(b, click->Handler());
  EXPECT_EQ(1u, clone->CountImplementedInterfaces());
}

}  // namespace
