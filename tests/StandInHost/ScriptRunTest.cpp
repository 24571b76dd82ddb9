// A running script, with a scripted interpreter in place of compiled code.
#include <gtest/gtest.h>

#include <stdexcept>

#include "tests/StandInHost/ScriptedInterpreter.h"

namespace {

using quorl::Script;
using quorl::ScriptState;
typedef std::vector<std::string> Texts;

TEST(HostWithheldEvents, WithoutEventLookupEventsAreSilentlyDropped) {  // runs first: an earlier attach leaves the lookup resolved
  quorl::HostOptions options;
  options.withheld = {"VELDGetEventInstance"};
  AttachLinkedEngine(options);
  Script script;
  int calls = 0;
  script.OnPrint([&](std::string const&) { ++calls; });
  script.OnCompilerError([&](int, int, std::string const&) { ++calls; });
  ScriptedInterpreter* code = InstallProgram(script, [](ScriptedInterpreter& c) {
    c.Say("lost");
    c.CompilerError(static_cast<CompileErrorCode>(11), 0);
  });
  script.Run();
  EXPECT_EQ(calls, 0);
  EXPECT_EQ(script.State(), ScriptState::Aborted);
  EXPECT_EQ(code->Ask("?"), "<null>");
}

class HostRun : public ::testing::Test {
 protected:
  void SetUp() override {
    Program([](ScriptedInterpreter& code) { code.Say("hello"); });
    script.SetSource("original");
  }
  ScriptedInterpreter* Program(ScriptedInterpreter::Program program) {
    return InstallProgram(script, std::move(program));
  }
  LinkedEngine engine;
  Script script;
};

TEST_F(HostRun, SettingSourceOrContextInAHandlerRaisesAndChangesNothing) {
  quorl::Object context = quorl::Object::New("RuntimeException");
  ScriptState seen = ScriptState::Idle;
  int raised = 0;
  script.OnPrint([&](std::string const&) {
    seen = script.State();
    for (auto change : {std::function<void()>([&] { script.SetSource("changed"); }),
                        std::function<void()>([&] { script.SetContext(context); })}) {
      try {
        change();
      } catch (quorl::ScriptAlreadyRunning const&) {
        ++raised;
      }
    }
  });
  script.Run();
  EXPECT_EQ(seen, ScriptState::Running);
  EXPECT_EQ(raised, 2);
  EXPECT_EQ(script.Source(), "original");
  EXPECT_STREQ(DataOf(script)->mInterface->SourceText(), "original\n");
  EXPECT_EQ(DataOf(script)->mContext, nullptr);
  EXPECT_EQ(context.References(), 1);
  EXPECT_EQ(script.State(), ScriptState::Complete);
  script.OnPrint([&](std::string const&) { script.SetSource("changed"); });
  EXPECT_THROW(script.Run(), quorl::ScriptAlreadyRunning);
  EXPECT_EQ(script.State(), ScriptState::Complete)
      << "Run's last step must have run: nothing unwound through the engine";
  EXPECT_EQ(script.Source(), "original");
}

TEST_F(HostRun, ResetInAHandlerLeavesTheScriptIdle) {
  script.OnPrint([&](std::string const&) { script.Reset(); });
  script.Run();
  EXPECT_EQ(script.State(), ScriptState::Idle);
}

TEST_F(HostRun, AHandlersExceptionWaitsForRunToReturnAndDropsLaterEvents) {
  Program([](ScriptedInterpreter& code) {
    code.Say("one");
    code.Say("two");
  });
  int calls = 0;
  script.OnPrint([&](std::string const&) {
    ++calls;
    throw std::logic_error("stop");
  });
  EXPECT_THROW(script.Run(), std::logic_error);
  EXPECT_EQ(calls, 1) << "later events of a failed call are dropped";
  EXPECT_EQ(script.State(), ScriptState::Complete);
  script.OnPrint([&](std::string const&) { ++calls; });
  script.Run();
  EXPECT_EQ(calls, 3) << "the next call starts clean";
}

TEST_F(HostRun, CompileErrorsAbortAndTheStateTableAfterThem) {
  bool failCompile = true;
  Program([&](ScriptedInterpreter& code) {
    if (failCompile) code.CompilerError(static_cast<CompileErrorCode>(2), 4);
  });
  script.Precompile();
  EXPECT_EQ(script.State(), ScriptState::Aborted) << "without a handler too";
  Texts errors;
  script.OnCompilerError([&](int line, int number, std::string const& message) {
    errors.push_back(std::to_string(line) + " " + std::to_string(number) + " " + message);
  });
  script.Run();
  script.Run();
  EXPECT_EQ(errors, Texts(2, "4 2 Error found while compiling"));
  EXPECT_EQ(script.State(), ScriptState::Aborted);
  script.SetContext(quorl::Object::New("RuntimeException"));
  EXPECT_EQ(script.State(), ScriptState::Aborted);
  script.SetSource("new");
  EXPECT_EQ(script.State(), ScriptState::Idle);
  script.Run();
  script.Reset();
  EXPECT_EQ(script.State(), ScriptState::Idle);
  script.Run();
  failCompile = false;
  script.Run();
  EXPECT_EQ(script.State(), ScriptState::Complete) << "Run from Aborted starts afresh";
}

}  // namespace
