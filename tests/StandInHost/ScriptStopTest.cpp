// Stopping a running script, through the real plug-in: from the yield hook
// and from another thread, out of every kind of loop, past the script's
// Catch and through its Finally; the script runs again afterwards.
#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include "quorl/QuorlHost.h"

namespace {

using quorl::Script;
using quorl::ScriptError;
using quorl::ScriptState;

// Scripts that never end on their own, one per way of looping.
struct Runaway {
  char const* name;
  char const* source;
} const kRunaways[] = {
    {"While", "Dim n As Integer\nWhile True\n  n = n + 1\nWend\n"},
    {"GoTo", "Dim n As Integer\nagain:\nn = n + 1\nGoTo again\n"},
    {"recursion",
     "Function Fib(n As Integer) As Int64\n"
     "  Dim s As String = \"held\" + Str(n)\n"
     "  If n < 2 Then Return n\n"
     "  Return Fib(n - 1) + Fib(n - 2)\n"
     "End Function\n"
     "Print Str(Fib(60))\n"},
};

class ScriptStop : public ::testing::Test {
 protected:
  void SetUp() override { quorl::LoadPlugin(); }

  // The run was stopped, and the same object then runs a script to its end.
  static void ExpectStoppedAndReusable(Script& script, char const* name) {
    EXPECT_EQ(script.State(), ScriptState::Aborted) << name;
    ASSERT_EQ(script.Errors().size(), 1u) << name;
    EXPECT_EQ(script.Errors()[0].kind, ScriptError::Kind::Stopped) << name;
    quorl::SetYieldHook(nullptr);
    std::vector<std::string> out;
    script.OnPrint([&](std::string const& s) { out.push_back(s); });
    script.SetSource("Dim i As Integer\nFor i = 1 To 3\nNext\nPrint Str(i)\n");
    EXPECT_EQ(script.Run(), ScriptState::Complete) << name;
    EXPECT_EQ(out, std::vector<std::string>{"4"}) << name;
  }
};

TEST_F(ScriptStop, TheYieldHookStopsEveryKindOfLoop) {
  for (Runaway const& runaway : kRunaways) {
    Script script;
    script.SetSource(runaway.source);
    int yields = 0;
    quorl::SetYieldHook([&] {
      if (++yields == 1000) script.Stop();
    });
    EXPECT_EQ(script.Run(), ScriptState::Aborted) << runaway.name;
    EXPECT_EQ(yields, 1000) << runaway.name << ": the stop is the next yield";
    ExpectStoppedAndReusable(script, runaway.name);
  }
}

TEST_F(ScriptStop, AnExceptionFromTheYieldHookStopsTheRunAndIsRethrown) {
  Script script;
  script.SetSource(kRunaways[0].source);
  quorl::SetYieldHook([] { throw std::runtime_error("enough"); });
  try {
    script.Run();
    FAIL() << "the hook's exception comes back from Run";
  } catch (std::runtime_error const& e) {
    EXPECT_STREQ(e.what(), "enough");
  }
  ExpectStoppedAndReusable(script, "hook exception");
}

TEST_F(ScriptStop, AnotherThreadStopsEveryKindOfLoop) {
  for (Runaway const& runaway : kRunaways) {
    Script script;
    script.SetSource(runaway.source);
    std::atomic<bool> started{false};
    quorl::SetYieldHook([&] { started = true; });
    std::thread stopper([&] {
      while (!started) std::this_thread::yield();
      std::this_thread::sleep_for(std::chrono::milliseconds(20));
      script.Stop();
    });
    EXPECT_EQ(script.Run(), ScriptState::Aborted) << runaway.name;
    stopper.join();
    ExpectStoppedAndReusable(script, runaway.name);
  }
}

// Passes that each spend milliseconds in the library do not put the next
// yield 1000 passes away: the host asks for it while the script runs.
TEST_F(ScriptStop, TheYieldHookIsCalledOnTimeWhenEachPassRunsLongInTheLibrary) {
  Script script;
  long passes = 0;
  script.OnPrint([&](std::string const& s) { passes = std::stol(s); });
  script.SetSource(
      "Dim text As String = \"a\"\n"
      "For i As Integer = 1 To 20\n"
      "  text = text + text\n"
      "Next\n"
      "Dim n As Integer\n"
      "While True\n"
      "  n = n + 1\n"
      "  Print Str(n)\n"
      "  text = ReplaceAll(text, \"a\", \"a\")\n"
      "Wend\n");
  int yields = 0;
  quorl::SetYieldHook([&] {
    if (++yields == 2) script.Stop();
  });
  EXPECT_EQ(script.Run(), ScriptState::Aborted);
  EXPECT_LT(passes, 200) << "the second yield waited for the countdown";
  ExpectStoppedAndReusable(script, "slow passes");
}

// Where the script checks for no yield at all (on the way back from a deep
// recursion) but spends its time in the library, the library call yields.
TEST_F(ScriptStop, ALibraryCallYieldsWhereTheScriptChecksForNone) {
  Script script;
  long returns = 0;
  script.OnPrint([&](std::string const&) { returns++; });
  script.SetSource(
      "Function Down(n As Integer, s As String) As String\n"
      "  If n = 0 Then Return s\n"
      "  Dim t As String = Uppercase(Down(n - 1, s))\n"
      "  Print \"back\"\n"
      "  Return t\n"
      "End Function\n"
      "Dim text As String = \"a\"\n"
      "For i As Integer = 1 To 20\n"
      "  text = text + text\n"
      "Next\n"
      "Print Down(900, text)\n");
  int yields = 0;
  quorl::SetYieldHook([&] {
    if (++yields == 2) script.Stop();
  });
  EXPECT_EQ(script.Run(), ScriptState::Aborted);
  EXPECT_LT(returns, 450) << "the stop waited for the recursion to end";
  ExpectStoppedAndReusable(script, "library calls");
}

// No Catch keeps the stop; every Finally on the way runs.
TEST_F(ScriptStop, CatchDoesNotHoldTheStopAndFinallyRuns) {
  Script script;
  std::vector<std::string> out;
  script.OnPrint([&](std::string const& s) { out.push_back(s); });
  script.SetSource(
      "Sub Spin()\n"
      "  Try\n"
      "    While True\n"
      "    Wend\n"
      "  Catch e\n"
      "    Print \"caught\"\n"
      "  Finally\n"
      "    Print \"inner cleanup\"\n"
      "  End Try\n"
      "  Print \"after inner\"\n"
      "End Sub\n"
      "Try\n"
      "  Spin()\n"
      "Catch\n"
      "  Print \"caught outside\"\n"
      "Finally\n"
      "  Print \"outer cleanup\"\n"
      "End Try\n"
      "Print \"after outer\"\n");
  int yields = 0;
  quorl::SetYieldHook([&] {
    if (++yields == 50) script.Stop();
  });
  EXPECT_EQ(script.Run(), ScriptState::Aborted);
  EXPECT_EQ(out, (std::vector<std::string>{"inner cleanup", "outer cleanup"}));
  ExpectStoppedAndReusable(script, "try");
}

TEST_F(ScriptStop, AStopOutsideARunIsForgotten) {
  Script script;
  script.SetSource("Print \"ran\"\n");
  script.Stop();
  EXPECT_EQ(script.Run(), ScriptState::Complete);
}

}  // namespace
