// The standard library reaches a script object as host methods: one per
// declaration whose runtime function the host serves, in table order, none
// for a function the host lacks.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/Plugin/PluginTestSupport.h"

namespace {

double FakeAbs(double value) { return value < 0 ? -value : value; }

std::vector<std::string> RegisteredDeclarations(quorl::Script const& script) {
  std::vector<std::string> texts;
  SimpleVector<HostMethod> const& methods = InterfaceOf(script)->HostMethods();
  for (unsigned long i = 0; i < methods.size(); i++)
    texts.push_back(methods[i].mDeclaration.CString());
  return texts;
}

bool Contains(std::vector<std::string> const& texts, std::string const& text) {
  for (std::string const& t : texts)
    if (t == text) return true;
  return false;
}

TEST(RuntimeLibraryRegistration, ServedFunctionsBecomeHostMethods) {
  AttachEngine();
  quorl::RegisterHostFunction("RuntimeAbs", (void*)&FakeAbs);
  quorl::Script script;
  std::vector<std::string> texts = RegisteredDeclarations(script);
  ASSERT_TRUE(Contains(texts, "Function Abs(val As Double) As Double"));
  SimpleVector<HostMethod> const& methods = InterfaceOf(script)->HostMethods();
  for (unsigned long i = 0; i < methods.size(); i++) {
    EXPECT_NE(methods[i].mEntry, nullptr);
    EXPECT_FALSE(methods[i].mWantsContext);
  }
}

TEST(RuntimeLibraryRegistration, AFunctionTheHostLacksIsLeftOut) {
  quorl::HostOptions options;
  options.withheld = {"RuntimeAbs", "StringDBCSLeft"};
  quorl::Attach(&VELDPluginMain, options);
  quorl::Script script;
  std::vector<std::string> texts = RegisteredDeclarations(script);
  EXPECT_FALSE(Contains(texts, "Function Abs(val As Double) As Double"));
  EXPECT_FALSE(Contains(texts, "Function Left(text As String, len As Integer) As String"));
  EXPECT_FALSE(Contains(texts, "Function Left(Extends text As String, len As Integer) As String"));
}

TEST(RuntimeLibraryRegistration, ANewContextRegistersTheLibraryAgain) {
  AttachEngine();
  quorl::RegisterHostFunction("RuntimeAbs", (void*)&FakeAbs);
  quorl::HostClass shell("Shell");
  quorl::DefineClass(shell);
  quorl::Script script;
  size_t before = RegisteredDeclarations(script).size();
  quorl::Object context = quorl::Object::New("Shell");
  script.SetContext(context);
  EXPECT_EQ(RegisteredDeclarations(script).size(), before);
  script.SetContext(nullptr);
  EXPECT_EQ(RegisteredDeclarations(script).size(), before);
}

}  // namespace
