// The script object through the real plug-in, loaded as a host loads it:
// the states reachable without compiled code, and what each operation does
// in them.
#include <gtest/gtest.h>

#include "quorl/QuorlHost.h"

namespace {

using quorl::Script;
using quorl::ScriptState;

class HostScriptState : public ::testing::Test {
 protected:
  void SetUp() override { quorl::LoadPlugin(); }
};

// A run with no source compiles nothing and reports nothing.
void RunToCompletion(Script& script) {
  script.Run();
  ASSERT_EQ(script.State(), ScriptState::Complete);
}

VELDEvent PrintEvent() { return {"Print(msg As String)", 0}; }

void* HandlerOf(Script const& script, VELDEvent event) {
  auto lookup = reinterpret_cast<VELDGetEventInstanceProc>(
      quorl::ResolveHostName("VELDGetEventInstance"));
  return lookup(script.Instance(), &event);
}

TEST_F(HostScriptState, ANewScriptIsIdleWithNoSource) {
  Script script;
  EXPECT_EQ(script.State(), ScriptState::Idle);
  EXPECT_EQ(script.Source(), "");
  EXPECT_EQ(quorl::ClassNameOf(script.Instance()), "QuorlScript");
}

TEST_F(HostScriptState, RunFromIdleAndFromCompleteEndsComplete) {
  Script script;
  RunToCompletion(script);
  RunToCompletion(script);
}

TEST_F(HostScriptState, ResetGoesIdleFromEveryFinishedState) {
  Script script;
  script.Reset();
  EXPECT_EQ(script.State(), ScriptState::Idle);
  RunToCompletion(script);
  script.Reset();
  EXPECT_EQ(script.State(), ScriptState::Idle);
}

TEST_F(HostScriptState, PrecompileLeavesTheStateAlone) {
  Script script;
  script.Precompile();
  EXPECT_EQ(script.State(), ScriptState::Idle);
  RunToCompletion(script);
  script.Precompile();
  EXPECT_EQ(script.State(), ScriptState::Complete);
}

TEST_F(HostScriptState, SettingSourceStoresTheTextAndResetsAFinishedScript) {
  Script script;
  script.SetSource("");
  EXPECT_EQ(script.State(), ScriptState::Idle);
  RunToCompletion(script);
  std::string text = "Print \"h\xC3\xA9llo\"\n";
  script.SetSource(text);
  EXPECT_EQ(script.State(), ScriptState::Idle);
  EXPECT_EQ(script.Source(), text);
}

TEST_F(HostScriptState, SettingContextKeepsTheStateAndHoldsTheObject) {
  Script script;
  quorl::Object context = quorl::Object::New("RuntimeException");
  script.SetContext(context);
  EXPECT_EQ(script.State(), ScriptState::Idle);
  EXPECT_EQ(context.References(), 2);
  RunToCompletion(script);
  script.SetContext(context);
  EXPECT_EQ(context.References(), 2) << "the same object again is no change";
  EXPECT_EQ(script.State(), ScriptState::Complete);
  script.SetContext(nullptr);
  EXPECT_EQ(context.References(), 1);
  EXPECT_EQ(script.State(), ScriptState::Complete);
}

TEST_F(HostScriptState, DestroyingTheScriptReleasesEverything) {
  long before = quorl::LiveObjectCount();
  quorl::Object context = quorl::Object::New("RuntimeException");
  {
    Script script;
    script.SetSource("Print 1");
    script.SetContext(context);
  }
  EXPECT_EQ(context.References(), 1);
  EXPECT_EQ(quorl::LiveObjectCount(), before + 1);
}

TEST_F(HostScriptState, HandlersAreOfferedToTheEngineOnlyWhileSet) {
  Script script;
  EXPECT_EQ(HandlerOf(script, PrintEvent()), nullptr);
  script.OnPrint([](std::string const&) {});
  EXPECT_NE(HandlerOf(script, PrintEvent()), nullptr);
  EXPECT_NE(HandlerOf(script, {"PRINT(MSG AS STRING)", 0}), nullptr);
  EXPECT_EQ(HandlerOf(script, {"Input(prompt As String) As String", 0}), nullptr);
  script.OnPrint(nullptr);
  EXPECT_EQ(HandlerOf(script, PrintEvent()), nullptr);
}

}  // namespace
