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

TEST_F(HostRun, PrintAndInputCarryUTF8AndAHandlerMayReplaceItself) {
  Texts seen;
  script.OnPrint([&](std::string const& text) {
    seen.push_back("first " + text);
    script.OnPrint([&](std::string const& t) { seen.push_back("second " + t); });
  });
  ScriptedInterpreter* code = Program([](ScriptedInterpreter& c) {
    c.Say("h\xC3\xA9llo");
    c.Say("");
  });
  script.Run();
  EXPECT_EQ(seen, (Texts{"first h\xC3\xA9llo", "second "}));
  EXPECT_EQ(code->Ask("?"), "<null>") << "no handler";
  std::string prompt;
  script.OnInput([&](std::string const& p) {
    prompt = p;
    return p == "?" ? std::string() : std::string("Ada \xC3\xA9");
  });
  EXPECT_EQ(code->Ask("Name? "), "Ada \xC3\xA9");
  EXPECT_EQ(prompt, "Name? ");
  EXPECT_EQ(code->Ask("?"), "<null>") << "an empty answer";
}

TEST_F(HostRun, RuntimeErrorsNameTheHostExceptionClass) {
  Texts classes;
  script.OnRuntimeError([&](int line, std::string const& name) { classes.push_back(std::to_string(line) + " " + name); });
  long before = quorl::LiveObjectCount();
  Program([](ScriptedInterpreter& code) {
    for (int error : {9, 6, 7, 2}) code.RuntimeError(static_cast<RuntimeErrorCode>(error), 0);
  });
  script.Run();
  EXPECT_EQ(classes, (Texts{"0 OutOfBoundsException", "0 StackOverflowException",
                            "0 StackOverflowException", "0 RuntimeException"}));
  EXPECT_EQ(script.State(), ScriptState::Aborted);
  EXPECT_EQ(quorl::LiveObjectCount(), before) << "error objects leak";
}

void Greet(VELDObject, stringStorage*) {}
void Hidden(VELDObject) {}
int GetCount(VELDObject, long) { return 0; }

TEST_F(HostRun, TheContextsPublicMembersReachTheEngine) {
  quorl::DefineClass(quorl::HostClass("Greeter", 4)
                         .AddMethod(&Greet, "Sub Greet(name As String)")
                         .AddMethod(&Hidden, "Private Sub Hidden()")
                         .AddProperty(reinterpret_cast<void*>(&GetCount), nullptr, 8,
                                      "Count As Integer"));
  quorl::Object greeter = quorl::Object::New("Greeter");
  script.SetContext(greeter);
  QuorlScriptInterface const* engine = DataOf(script)->mInterface;
  EXPECT_EQ(engine->Context(), greeter.Get());
  Texts methods, properties;
  for (unsigned long i = 0; i < engine->HostMethods().size(); ++i) {
    HostMethod const& m = engine->HostMethods()[i];
    if (m.mEntry == (void*)&Greet || m.mEntry == (void*)&Hidden) methods.push_back(m.mDeclaration.CString());
  }
  for (unsigned long i = 0; i < engine->HostProperties().size(); ++i) {
    HostProperty const& p = engine->HostProperties()[i];
    if (p.mGetter == (void*)&GetCount)
      properties.push_back(std::to_string(p.mParameter) + " " + p.mDeclaration.CString());
  }
  EXPECT_EQ(methods, (Texts{"Sub Greet(Self As Object, name As String)"}));
  EXPECT_EQ(properties, (Texts{"8 Count As Integer"}));
}

}  // namespace
