// The plug-in registers its classes only with a host recent enough for it;
// an older host gets nothing, and no error.
#include <gtest/gtest.h>

#include "quorl/QuorlHost.h"

namespace {

void LoadWithHost(double version, bool inRuntime) {
  quorl::HostOptions options;
  options.version = version;
  options.inRuntime = inRuntime;
  quorl::LoadPlugin("", options);
}

bool RegistersItsClasses() {
  return quorl::IsClassRegistered("QuorlScript") &&
         quorl::IsClassRegistered("QuorlScriptException") &&
         quorl::IsClassRegistered("QuorlScriptAlreadyRunningException");
}

TEST(HostVersionGate, ACurrentHostGetsAllThreeClasses) {
  LoadWithHost(2007.04, true);
  EXPECT_TRUE(RegistersItsClasses());
  EXPECT_EQ(quorl::RegisteredPluginVersion(), 9);
  quorl::Object exception =
      quorl::Object::New("QuorlScriptAlreadyRunningException");
  EXPECT_TRUE(quorl::IsInstanceOf(exception.Get(), "QuorlScriptException"));
  EXPECT_TRUE(quorl::IsInstanceOf(exception.Get(), "RuntimeException"));
}

TEST(HostVersionGate, AnOldBuiltProgramGetsNoClass) {
  LoadWithHost(5.0, true);
  EXPECT_FALSE(quorl::IsClassRegistered("QuorlScript"));
  EXPECT_FALSE(quorl::IsClassRegistered("QuorlScriptException"));
  EXPECT_EQ(quorl::RegisteredPluginVersion(), 9);
  EXPECT_THROW(quorl::Script(), quorl::UnknownClass);
}

TEST(HostVersionGate, ABuiltProgramJustBelowTheGateGetsNoClass) {
  LoadWithHost(2007.03, true);
  EXPECT_FALSE(RegistersItsClasses());
  EXPECT_THROW(quorl::Script(), quorl::UnknownClass);
}

TEST(HostVersionGate, ADevelopmentHostIsAcceptedFromVersion5Point9) {
  LoadWithHost(5.9, false);
  EXPECT_TRUE(RegistersItsClasses());
  quorl::Script script;
  EXPECT_EQ(script.State(), quorl::ScriptState::Idle);
}

TEST(HostVersionGate, AnOlderDevelopmentHostGetsNoClass) {
  LoadWithHost(5.8, false);
  EXPECT_FALSE(RegistersItsClasses());
}

}  // namespace
