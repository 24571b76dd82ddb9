// The four events, from the engine's interpreter to the embedding program's
// callables, and the context's members as the engine receives them.
#include <gtest/gtest.h>

#include "tests/StandInHost/ScriptedInterpreter.h"

namespace {

using quorl::Script;
using quorl::ScriptState;

class HostScriptEvents : public ::testing::Test {
 protected:
  ScriptedInterpreter* Program(ScriptedInterpreter::Program program) {
    return InstallProgram(script, std::move(program));
  }
  LinkedEngine engine;
  Script script;
};

TEST_F(HostScriptEvents, PrintDeliversTheTextAsUTF8) {
  std::vector<std::string> printed;
  script.OnPrint([&](std::string const& text) { printed.push_back(text); });
  Program([](ScriptedInterpreter& code) {
    code.Say("h\xC3\xA9llo");
    code.Say("");
  });
  script.Run();
  EXPECT_EQ(printed, (std::vector<std::string>{"h\xC3\xA9llo", ""}));
}

TEST_F(HostScriptEvents, InputGivesThePromptAndTakesTheAnswer) {
  std::string prompt;
  script.OnInput([&](std::string const& p) {
    prompt = p;
    return std::string("Ada \xC3\xA9");
  });
  ScriptedInterpreter* code = Program(nullptr);
  EXPECT_EQ(code->Ask("Name? "), "Ada \xC3\xA9");
  EXPECT_EQ(prompt, "Name? ");
}

TEST_F(HostScriptEvents, AnEmptyAnswerOrNoHandlerGivesTheScriptNothing) {
  ScriptedInterpreter* code = Program(nullptr);
  EXPECT_EQ(code->Ask("?"), "<null>");
  script.OnInput([](std::string const&) { return std::string(); });
  EXPECT_EQ(code->Ask("?"), "<null>");
}

TEST_F(HostScriptEvents, RuntimeErrorsNameTheHostExceptionClass) {
  std::vector<std::string> classes;
  script.OnRuntimeError([&](int line, std::string const& name) {
    EXPECT_EQ(line, 0);
    classes.push_back(name);
  });
  long before = quorl::LiveObjectCount();
  Program([](ScriptedInterpreter& code) {
    for (int error : {9, 6, 7, 2})
      code.RuntimeError(static_cast<RuntimeErrorCode>(error), 0);
  });
  script.Run();
  EXPECT_EQ(classes,
            (std::vector<std::string>{"OutOfBoundsException", "StackOverflowException",
                                      "StackOverflowException", "RuntimeException"}));
  EXPECT_EQ(script.State(), ScriptState::Aborted);
  EXPECT_EQ(quorl::LiveObjectCount(), before) << "error objects leak";
}

TEST_F(HostScriptEvents, AHandlerMayReplaceItselfWhileItRuns) {
  std::vector<std::string> seen;
  script.OnPrint([&](std::string const& text) {
    seen.push_back("first " + text);
    script.OnPrint([&](std::string const& t) { seen.push_back("second " + t); });
  });
  Program([](ScriptedInterpreter& code) {
    code.Say("a");
    code.Say("b");
  });
  script.Run();
  EXPECT_EQ(seen, (std::vector<std::string>{"first a", "second b"}));
}

TEST(HostWithheldEvents, WithoutEventLookupEventsAreSilentlyDropped) {
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

// --- The context --------------------------------------------------------------

void Greet(VELDObject, stringStorage*) {}
void Hidden(VELDObject) {}
int GetCount(VELDObject, long) { return 0; }

TEST_F(HostScriptEvents, TheContextsPublicMembersReachTheEngine) {
  quorl::DefineClass(
      quorl::HostClass("Greeter", 4)
          .AddMethod(&Greet, "Sub Greet(name As String)")
          .AddMethod(&Hidden, "Private Sub Hidden()")
          .AddProperty(reinterpret_cast<void*>(&GetCount), nullptr, 8,
                       "Count As Integer"));
  quorl::Object greeter = quorl::Object::New("Greeter");
  script.SetContext(greeter);
  QuorlScriptInterface const* engine = DataOf(script)->mInterface;
  EXPECT_EQ(engine->Context(), greeter.Get());
  std::vector<std::string> methods;
  for (unsigned long i = 0; i < engine->HostMethods().size(); ++i) {
    HostMethod const& method = engine->HostMethods()[i];
    if (method.mEntry == reinterpret_cast<void*>(&Greet) ||
        method.mEntry == reinterpret_cast<void*>(&Hidden))
      methods.push_back(method.mDeclaration.CString());
  }
  EXPECT_EQ(methods, (std::vector<std::string>{"Sub Greet(Self As Object, name As String)"}));
  bool foundCount = false;
  for (unsigned long i = 0; i < engine->HostProperties().size(); ++i) {
    HostProperty const& property = engine->HostProperties()[i];
    if (property.mGetter != reinterpret_cast<void*>(&GetCount)) continue;
    foundCount = true;
    EXPECT_EQ(property.mParameter, 8);
    EXPECT_STREQ(property.mDeclaration.CString(), "Count As Integer");
  }
  EXPECT_TRUE(foundCount);
}

}  // namespace
