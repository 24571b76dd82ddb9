// The script object through the real plug-in, loaded as a host loads it.
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "quorl/QuorlHost.h"

namespace {

using quorl::Script;
using quorl::ScriptState;

class HostScript : public ::testing::Test {
 protected:
  void SetUp() override { quorl::LoadPlugin(); }
};

TEST_F(HostScript, StateTableWithoutCompiledCode) {
  Script script;
  EXPECT_EQ(quorl::ClassNameOf(script.Instance()), "QuorlScript");
  quorl::Object context = quorl::Object::New("RuntimeException");
  // Each row: the operation, then the state it must leave, from Idle then
  // from Complete (a run without source compiles nothing).
  struct Row { char const* name; std::function<void()> op; ScriptState fromIdle, fromComplete; };
  Row rows[] = {
      {"Run", [&] { script.Run(); }, ScriptState::Complete, ScriptState::Complete},
      {"Reset", [&] { script.Reset(); }, ScriptState::Idle, ScriptState::Idle},
      {"Precompile", [&] { script.Precompile(); }, ScriptState::Idle, ScriptState::Complete},
      {"SetSource", [&] { script.SetSource("Print \"h\xC3\xA9llo\"\n"); },
       ScriptState::Idle, ScriptState::Idle},
      {"SetContext", [&] { script.SetContext(context); }, ScriptState::Idle,
       ScriptState::Complete}};
  for (Row const& row : rows) {
    script.Reset();
    row.op();
    EXPECT_EQ(script.State(), row.fromIdle) << row.name << " from Idle";
    script.Run();
    ASSERT_EQ(script.State(), ScriptState::Complete);
    row.op();
    EXPECT_EQ(script.State(), row.fromComplete) << row.name << " from Complete";
  }
  EXPECT_EQ(script.Source(), "Print \"h\xC3\xA9llo\"\n");
  EXPECT_EQ(context.References(), 2) << "the same object again is no change";
  script.SetContext(nullptr);
  EXPECT_EQ(context.References(), 1);
}

TEST_F(HostScript, DestroyingReleasesAndHandlersAreOfferedOnlyWhileSet) {
  long before = quorl::LiveObjectCount();
  quorl::Object context = quorl::Object::New("RuntimeException");
  auto lookup = reinterpret_cast<VELDGetEventInstanceProc>(quorl::ResolveHostName("VELDGetEventInstance"));
  {
    Script script;
    script.SetContext(context);
    auto offered = [&](char const* signature) {
      VELDEvent event = {signature, 0};
      return lookup(script.Instance(), &event) != nullptr;
    };
    script.OnPrint([](std::string const&) {});
    EXPECT_TRUE(offered("Print(msg As String)") && offered("PRINT(MSG AS STRING)"));
    EXPECT_FALSE(offered("Input(prompt As String) As String"));
    script.OnPrint(nullptr);
    EXPECT_FALSE(offered("Print(msg As String)"));
  }
  EXPECT_EQ(context.References(), 1);
  EXPECT_EQ(quorl::LiveObjectCount(), before + 1);
}

TEST(HostVersionGate, OnlyARecentEnoughHostGetsTheClasses) {
  struct { double version; bool inRuntime, registers; } rows[] = {
      {2007.04, true, true}, {2007.03, true, false}, {5.0, true, false},
      {5.9, false, true}, {5.8, false, false}};
  for (auto const& row : rows) {
    quorl::HostOptions options;
    options.version = row.version;
    options.inRuntime = row.inRuntime;
    quorl::LoadPlugin("", options);
    EXPECT_EQ(quorl::RegisteredPluginVersion(), 9);
    for (char const* name : {"QuorlScript", "QuorlScriptException",
                             "QuorlScriptAlreadyRunningException"})
      EXPECT_EQ(quorl::IsClassRegistered(name), row.registers) << row.version << " " << name;
    if (row.registers)
      EXPECT_EQ(Script().State(), ScriptState::Idle);
    else
      EXPECT_THROW(Script(), quorl::UnknownClass) << row.version;
  }
  quorl::LoadPlugin();
  quorl::Object exception = quorl::Object::New("QuorlScriptAlreadyRunningException");
  EXPECT_TRUE(quorl::IsInstanceOf(exception.Get(), "QuorlScriptException"));
  EXPECT_TRUE(quorl::IsInstanceOf(exception.Get(), "RuntimeException"));
}

struct Seen {
  std::vector<std::string> printed, runtimeErrors;
  explicit Seen(Script& script) {
    script.OnPrint([this](std::string const& text) { printed.push_back(text); });
    script.OnRuntimeError([this](int, std::string const& name) { runtimeErrors.push_back(name); });
    script.OnCompilerError([this](int, int, std::string const&) { printed.push_back("compile error"); });
  }
};

// The host's stack limit turns runaway recursion into a runtime error (a
// caught one is in the golden suite: tests/scripts/exceptions).
TEST_F(HostScript, StackOverflowEndsEachRunWithOneRuntimeErrorAndRunsAgainFresh) {
  Script script;
  Seen seen(script);
  script.SetSource(
      "Dim count As Integer\nDim label As String = \"run \"\ncount = count + 1\n"
      "Print label + Str(count)\nFunction Down(n As Integer) As Integer\n"
      "  Dim s As String = \"deep\"\n  Return Down(n + 1) + 1\nEnd Function\n"
      "Dim k As Integer = Down(1)\nPrint \"not reached\"\n");
  for (int run = 1; run <= 2; ++run) {
    seen.printed.clear();
    seen.runtimeErrors.clear();
    script.Run();
    ASSERT_EQ(seen.runtimeErrors.size(), 1u) << "run " << run;
    EXPECT_NE(seen.runtimeErrors[0].find("tackOverflow"), std::string::npos)
        << seen.runtimeErrors[0];
    EXPECT_EQ(script.State(), ScriptState::Aborted) << "run " << run;
    // The globals start over, and nothing after the overflow runs.
    EXPECT_EQ(seen.printed, std::vector<std::string>{"run 1"}) << "run " << run;
  }
}

}  // namespace
