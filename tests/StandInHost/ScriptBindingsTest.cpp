// The host boundary through the real plug-in: checked bindings of C++
// functions, exceptions both ways across it, and context properties.
#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

#include "quorl/QuorlHost.h"

namespace {

using quorl::Script;
using quorl::ScriptError;
using quorl::ScriptState;

class ScriptBindings : public ::testing::Test {
 protected:
  void SetUp() override {
    script.OnPrint([this](std::string const& s) { out.push_back(s); });
  }
  // Runs the source; the printed lines, or the errors' messages.
  std::vector<std::string> Run(std::string const& source) {
    out.clear();
    script.SetSource(source);
    script.Run();
    for (ScriptError const& error : script.Errors())
      out.push_back("error: " + error.message);
    return out;
  }
  struct Engine {
    Engine() { quorl::LoadPlugin(); }
  } engine;  // before the script
  Script script;
  std::vector<std::string> out;
};

using Lines = std::vector<std::string>;

TEST_F(ScriptBindings, EveryMappedTypeCrossesBothWays) {
  int calls = 0;
  script.AddFunction("Twice", [&](int n) { ++calls; return 2 * n; });
  script.AddFunction("Function Mean(a As Double, b As Double) As Double",
                     [](double a, double b) { return (a + b) / 2; });
  script.AddFunction("Greet", [](std::string const& name, int64_t big) {
    return "hello " + name + " " + std::to_string(big);
  });
  script.AddFunction("Function Both(a As Boolean, b As Boolean) As Boolean",
                     [](bool a, bool b) { return a && b; });
  script.AddFunction("Half", [](float f) { return f / 2; });
  std::string heard;
  script.AddFunction("Sub Tell(s As String)", [&](std::string s) { heard = s; });
  EXPECT_EQ(Run("Print Str(Twice(21))\n"
                "Print Str(Mean(1.5, 2.5))\n"
                "Print Greet(\"w\xC3\xB6rld\", 12345678901)\n"
                "If Both(True, True) And Not Both(True, False) Then Print \"and\"\n"
                "Print Str(Half(5))\n"
                "Tell(\"told\")\n"),
            (Lines{"42", "2", "hello w\xC3\xB6rld 12345678901", "and", "2.5"}));
  EXPECT_EQ(calls, 1);
  EXPECT_EQ(heard, "told");
}

TEST_F(ScriptBindings, ADeclarationThatDoesNotFitIsRefused) {
  struct Row {
    char const* declaration;
    char const* why;
  } const rows[] = {
      {"Function Mean(a As Double, b As Double) As Integer", "returns Integer"},
      {"Function Mean(a As Double) As Double", "1 parameters"},
      {"Function Mean(a As Double, b As String) As Double", "parameter 2 is String"},
      {"Function Mean(a As Double, b As Double", "does not read"},
      {"Function Mean(a As Double, b As Double) As Double Junk", "does not read"},
      {"Sub Mean(a As Double, b As Double) As Double", "does not read"},
      {"Function", "does not read"},
  };
  for (Row const& row : rows) {
    try {
      script.AddFunction(row.declaration, [](double a, double b) { return a + b; });
      ADD_FAILURE() << row.declaration << " was taken";
    } catch (quorl::BindingError const& e) {
      EXPECT_NE(std::string(e.what()).find(row.why), std::string::npos) << e.what();
    }
  }
  EXPECT_EQ(Run("Print Str(Mean(1, 2))\n"), (Lines{"error: unknown name: Mean"}))
      << "nothing refused reaches the script";
}

TEST_F(ScriptBindings, HostExceptionsAreTheScriptsToCatch) {
  script.AddFunction("Check", [](int n) {
    if (n < 0) throw std::invalid_argument("negative: " + std::to_string(n));
    return n;
  });
  script.AddFunction("Sub Refuse()", [] { throw quorl::ScriptException("refused"); });
  EXPECT_EQ(Run("Try\n"
                "  Print Str(Check(-3))\n"
                "  Print \"not reached\"\n"
                "Catch\n"
                "  Print \"caught\"\n"
                "End Try\n"
                "Try\n"
                "  Refuse()\n"
                "Catch err\n"
                "  Print \"caught again\"\n"
                "End Try\n"
                "Print Str(Check(4))\n"),
            (Lines{"caught", "caught again", "4"}));
  Run("Dim n As Integer = 1\nn = Check(-7)\n");
  ASSERT_EQ(script.Errors().size(), 1u);
  EXPECT_EQ(script.Errors()[0].kind, ScriptError::Kind::Runtime);
  EXPECT_EQ(script.Errors()[0].exceptionClass, "RuntimeException");
  EXPECT_EQ(script.Errors()[0].message, "negative: -7");
  EXPECT_EQ(script.Errors()[0].line, 2);
}

namespace context {
int gScore = 0;
int GetScore(VELDObject, long) { return gScore; }
void SetScore(VELDObject, long, int value) { gScore = value; }
double Half(VELDObject, double x) { return x / 2; }

// Guarded members: C++ types of bindings, and exceptions allowed.
std::string gName = "none";
std::string Label(VELDObject, int32_t n) {
  if (n < 0) throw std::invalid_argument("no label for a negative number");
  if (n == 0) throw quorl::ScriptException("zero", "OutOfBoundsException");
  return "#" + std::to_string(n);
}
std::string GetName(VELDObject, long) { return gName; }
void SetName(VELDObject, long, std::string name) {
  if (name.empty()) throw std::length_error("a name can't be empty");
  gName = name;
}
}  // namespace context

TEST_F(ScriptBindings, AContextMemberThatDoesNotFitIsRefusedWhenTheClassIsDefined) {
  struct Row {
    quorl::HostClass cls;
    char const* why;
  } const rows[] = {
      {quorl::HostClass("A").AddMethod(&context::Half, "Function Half(x As Double) As Integer"),
       "returns Integer"},
      {quorl::HostClass("B").AddMethod(&context::Half, "Function Half(x As Double"),
       "does not read"},
      {quorl::HostClass("C").AddProperty(&context::GetScore, &context::SetScore, 0,
                                         "Score As String"),
       "returns String"},
      // The unchecked forms still have to read, hidden or not.
      {quorl::HostClass("D").AddMethod(reinterpret_cast<void*>(&context::Half),
                                       "Function Half(x As Double) As"),
       "does not read"},
      {quorl::HostClass("E").AddMethod(reinterpret_cast<void*>(&context::Half),
                                       "Private Sub (x As Double)"),
       "does not read"},
      {quorl::HostClass("F").AddProperty(nullptr, nullptr, 0, "Count As"),
       "does not read"},
      {quorl::HostClass("G").AddMethod<&context::Label>("Function Label(n As Integer) As Integer"),
       "returns Integer"},
  };
  for (Row const& row : rows) {
    try {
      quorl::DefineClass(row.cls);
      ADD_FAILURE() << row.why;
    } catch (quorl::BindingError const& e) {
      EXPECT_NE(std::string(e.what()).find(row.why), std::string::npos) << e.what();
    }
    EXPECT_FALSE(quorl::IsClassRegistered(row.cls.Name()));
  }
}

TEST_F(ScriptBindings, GuardedContextMembersTakeStringsAndTheirExceptionsAreCaught) {
  quorl::HostClass labels("Labels");
  labels.AddMethod<&context::Label>("Function Label(n As Integer) As String")
      .AddProperty<&context::GetName, &context::SetName>(0, "Name As String")
      .AddMethod(reinterpret_cast<void*>(&context::Half), "Private Function Half(x As Double) As Double");
  quorl::DefineClass(labels);
  script.SetContext(quorl::Object::New("Labels"));
  EXPECT_EQ(Run("Print Label(7)\n"
                "Name = \"w\xC3\xB6rld\"\n"
                "Print Name\n"
                "Try\n  Print Label(-1)\nCatch\n  Print \"caught\"\nEnd Try\n"
                "Try\n  Name = \"\"\nCatch\n  Print \"caught again\"\nEnd Try\n"
                "Print Name\n"),
            (Lines{"#7", "w\xC3\xB6rld", "caught", "caught again", "w\xC3\xB6rld"}));
  // Uncaught, the host's exception reaches the host with its class and message.
  EXPECT_EQ(Run("Print Label(0)\n"), (Lines{"error: zero"}));
  EXPECT_EQ(script.Errors().at(0).exceptionClass, "OutOfBoundsException");
  script.SetContext(nullptr);
}

// ScriptStop ends the script in the host function, with no wait for a
// yield: nothing after the call runs, not even a Catch, and the script runs
// again afterwards.
TEST_F(ScriptBindings, AHostFunctionStopsTheScriptAtOnce) {
  script.AddFunction("Sub Halt()", [] { throw quorl::ScriptStop(); });
  std::string const source =
      "Print \"before\"\n"
      "Try\n  Halt()\n  Print \"after\"\nCatch\n  Print \"caught\"\nEnd Try\n"
      "Print \"end\"\n";
  for (int run = 0; run < 2; ++run) {
    EXPECT_EQ(Run(source), (Lines{"before", "error: stopped by the host"}));
    EXPECT_EQ(script.State(), ScriptState::Aborted);
    EXPECT_EQ(script.Errors().at(0).kind, ScriptError::Kind::Stopped);
  }
}

TEST_F(ScriptBindings, AContextPropertyIsAssignedAndFunctionsOutliveTheContext) {
  quorl::HostClass game("Game");
  game.AddProperty(&context::GetScore, &context::SetScore, 0, "Score As Integer")
      .AddMethod(&context::Half, "Function Half(x As Double) As Double");
  quorl::DefineClass(game);
  script.AddFunction("Bonus", [] { return 10; });
  script.SetContext(quorl::Object::New("Game"));
  context::gScore = 5;
  EXPECT_EQ(Run("Score = Score + Bonus()\nPrint Str(Score)\nPrint Str(Half(3))\n"),
            (Lines{"15", "1.5"}));
  EXPECT_EQ(context::gScore, 15);
  script.SetContext(nullptr);
  EXPECT_EQ(Run("Print Str(Bonus())\n"), (Lines{"10"}));
}

}  // namespace

namespace {

TEST_F(ScriptBindings, TheHostCallsTheScriptsFunctionsByName) {
  script.SetSource(
      "Function Add(a As Integer, b As Integer) As Integer\n"
      "  Return a + b\n"
      "End Function\n"
      "Function Label(n As Int64, s As String) As String\n"
      "  Return s + \"=\" + Str(n)\n"
      "End Function\n"
      "Function Scale(x As Double, f As Single) As Double\n"
      "  Return x * f\n"
      "End Function\n"
      "Sub Shout(s As String)\n"
      "  Print s + \"!\"\n"
      "End Sub\n"
      "Function Fail(i As Integer) As Integer\n"
      "  Dim a(1) As Integer\n"
      "  Return a(i)\n"
      "End Function\n"
      "Print \"top level\"\n");
  EXPECT_EQ(script.Call<int>("Add", 40, 2), 42);
  EXPECT_EQ(script.Call<std::string>("label", int64_t(1) << 40, std::string("big")),
            "big=1099511627776");
  EXPECT_DOUBLE_EQ(script.Call<double>("Scale", 1.5, 2.0f), 3.0);
  script.Call("Shout", "hey");
  EXPECT_EQ(out, (Lines{"hey!"})) << "the top-level statements do not run";
  struct Row {
    std::function<void()> call;
    char const* why;
  } const rows[] = {
      {[&] { script.Call<int>("Missing"); }, "no Sub or Function"},
      {[&] { script.Call<int>("Add", 1); }, "do not fit"},
      {[&] { script.Call<int>("Add", 1.0, 2.0); }, "do not fit"},
      {[&] { script.Call<int>("Fail", 5); }, "uncaught exception"},
  };
  for (Row const& row : rows) {
    try {
      row.call();
      ADD_FAILURE() << row.why;
    } catch (quorl::CallError const& e) {
      EXPECT_NE(std::string(e.what()).find(row.why), std::string::npos) << e.what();
    }
  }
  ASSERT_EQ(script.Errors().size(), 1u);
  EXPECT_EQ(script.Errors()[0].exceptionClass, "OutOfBoundsException");
  EXPECT_EQ(script.Errors()[0].line, 15);
  EXPECT_EQ(script.Call<int>("Add", 1, 1), 2) << "usable after a failed call";
}

}  // namespace
