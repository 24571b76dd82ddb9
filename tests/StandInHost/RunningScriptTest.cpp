// What the embedding program sees while a script runs: the guards on Source
// and Context, Reset and Run from a handler, and exceptions thrown by
// handlers, which must never unwind through the engine.
#include <gtest/gtest.h>

#include <stdexcept>

#include "tests/StandInHost/ScriptedInterpreter.h"

namespace {

using quorl::Script;
using quorl::ScriptState;

class HostRunningScript : public ::testing::Test {
 protected:
  void SetUp() override {
    InstallProgram(script, [](ScriptedInterpreter& code) { code.Say("hello"); });
    script.SetSource("original");
  }
  LinkedEngine engine;
  Script script;
};

TEST_F(HostRunningScript, SettingSourceInAHandlerRaisesAndChangesNothing) {
  ScriptState seen = ScriptState::Idle;
  bool raised = false;
  script.OnPrint([&](std::string const&) {
    seen = script.State();
    try {
      script.SetSource("changed");
    } catch (quorl::ScriptAlreadyRunning const&) {
      raised = true;
    }
  });
  script.Run();
  EXPECT_EQ(seen, ScriptState::Running);
  EXPECT_TRUE(raised);
  EXPECT_EQ(script.Source(), "original");
  EXPECT_STREQ(DataOf(script)->mInterface->SourceText(), "original\n");
  EXPECT_EQ(script.State(), ScriptState::Complete);
}

TEST_F(HostRunningScript, SettingContextInAHandlerRaisesAndChangesNothing) {
  quorl::Object context = quorl::Object::New("RuntimeException");
  bool raised = false;
  script.OnPrint([&](std::string const&) {
    try {
      script.SetContext(context);
    } catch (quorl::ScriptAlreadyRunning const&) {
      raised = true;
    }
  });
  script.Run();
  EXPECT_TRUE(raised);
  EXPECT_EQ(DataOf(script)->mContext, nullptr);
  EXPECT_EQ(context.References(), 1);
}

TEST_F(HostRunningScript, AnUncaughtRaiseInAHandlerSurfacesFromRun) {
  script.OnPrint([&](std::string const&) { script.SetSource("changed"); });
  EXPECT_THROW(script.Run(), quorl::ScriptAlreadyRunning);
  EXPECT_EQ(script.State(), ScriptState::Complete)
      << "Run's last step must have run: nothing unwound through the engine";
  EXPECT_EQ(script.Source(), "original");
}

TEST_F(HostRunningScript, AHandlersExceptionWaitsForRunToReturn) {
  InstallProgram(script, [](ScriptedInterpreter& code) {
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

TEST_F(HostRunningScript, AFailureInANestedRunReachesTheOuterCaller) {
  int depth = 0;
  script.OnPrint([&](std::string const&) {
    if (++depth == 1) {
      EXPECT_THROW(script.Run(), std::runtime_error);
      throw std::out_of_range("outer");
    }
    throw std::runtime_error("inner");
  });
  EXPECT_THROW(script.Run(), std::out_of_range);
  EXPECT_EQ(depth, 2);
}

TEST_F(HostRunningScript, ResetInAHandlerLeavesTheScriptIdle) {
  script.OnPrint([&](std::string const&) { script.Reset(); });
  script.Run();
  EXPECT_EQ(script.State(), ScriptState::Idle);
}

// --- Compile and runtime errors ----------------------------------------------

class HostFailingScript : public ::testing::Test {
 protected:
  void SetUp() override {
    InstallProgram(script, [this](ScriptedInterpreter& code) {
      if (failCompile) code.CompilerError(static_cast<CompileErrorCode>(2), 4);
    });
  }
  LinkedEngine engine;
  Script script;
  bool failCompile = true;
};

TEST_F(HostFailingScript, ACompileErrorReachesTheHandlerAndAborts) {
  int line = -1, number = -1;
  std::string message;
  script.OnCompilerError([&](int l, int n, std::string const& m) {
    line = l;
    number = n;
    message = m;
  });
  script.Run();
  EXPECT_EQ(line, 4);
  EXPECT_EQ(number, 2);
  EXPECT_EQ(message, "Error found while compiling");
  EXPECT_EQ(script.State(), ScriptState::Aborted);
}

TEST_F(HostFailingScript, PrecompileWithErrorsAbortsWithoutAHandler) {
  script.Precompile();
  EXPECT_EQ(script.State(), ScriptState::Aborted);
}

TEST_F(HostFailingScript, RunFromAbortedStartsAfresh) {
  int errors = 0;
  script.OnCompilerError([&](int, int, std::string const&) { ++errors; });
  script.Run();
  script.Run();
  EXPECT_EQ(errors, 2);
  EXPECT_EQ(script.State(), ScriptState::Aborted);
  failCompile = false;
  script.Run();
  EXPECT_EQ(script.State(), ScriptState::Complete);
}

TEST_F(HostFailingScript, ResetAndSourceLeaveAbortedButContextDoesNot) {
  script.Run();
  quorl::Object context = quorl::Object::New("RuntimeException");
  script.SetContext(context);
  EXPECT_EQ(script.State(), ScriptState::Aborted);
  script.SetSource("new");
  EXPECT_EQ(script.State(), ScriptState::Idle);
  script.Run();
  script.Reset();
  EXPECT_EQ(script.State(), ScriptState::Idle);
}

}  // namespace
