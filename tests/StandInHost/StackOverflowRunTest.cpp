// Runaway recursion through the real plug-in: the host's stack limit makes
// the engine raise a stack overflow instead of faulting, the run ends with
// one RuntimeError event, and the same script object runs again from a
// clean start.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "quorl/QuorlHost.h"

namespace {

using quorl::Script;
using quorl::ScriptState;

char const kRunawayScript[] =
    "Dim count As Integer\n"
    "Dim label As String = \"run \"\n"
    "count = count + 1\n"
    "Print label + Str(count)\n"
    "Function Down(n As Integer) As Integer\n"
    "  Dim s As String = \"deep\"\n"
    "  Return Down(n + 1) + 1\n"
    "End Function\n"
    "Dim k As Integer = Down(1)\n"
    "Print \"not reached\"\n";

// What the handlers of one script saw.
struct Seen {
  std::vector<std::string> printed;
  std::vector<std::string> runtimeErrors;
  int compileErrors = 0;
};

void Watch(Script& script, Seen& seen) {
  script.OnPrint([&](std::string const& text) { seen.printed.push_back(text); });
  script.OnRuntimeError([&](int, std::string const& exceptionClass) {
    seen.runtimeErrors.push_back(exceptionClass);
  });
  script.OnCompilerError([&](int, int, std::string const&) {
    ++seen.compileErrors;
  });
}

class HostStackOverflow : public ::testing::Test {
 protected:
  void SetUp() override { quorl::LoadPlugin(); }
};

TEST_F(HostStackOverflow, EachRunEndsWithOneRuntimeErrorAndRunsAgainFresh) {
  Script script;
  Seen seen;
  Watch(script, seen);
  script.SetSource(kRunawayScript);
  for (int run = 1; run <= 2; ++run) {
    seen.printed.clear();
    seen.runtimeErrors.clear();
    script.Run();
    EXPECT_EQ(seen.compileErrors, 0);
    ASSERT_EQ(seen.runtimeErrors.size(), 1u) << "run " << run;
    EXPECT_NE(seen.runtimeErrors[0].find("tackOverflow"), std::string::npos)
        << seen.runtimeErrors[0];
    EXPECT_EQ(script.State(), ScriptState::Aborted) << "run " << run;
    // The globals start over: the counter prints 1 on both runs, and
    // nothing after the overflow runs.
    EXPECT_EQ(seen.printed, std::vector<std::string>{"run 1"}) << "run " << run;
  }
}

TEST_F(HostStackOverflow, ACaughtOverflowLetsTheRunComplete) {
  Script script;
  Seen seen;
  Watch(script, seen);
  script.SetSource(
      "Function Down(n As Integer) As Integer\n"
      "  Return Down(n + 1) + 1\n"
      "End Function\n"
      "Try\n"
      "  Dim k As Integer = Down(1)\n"
      "Catch\n"
      "  Print \"caught\"\n"
      "End Try\n"
      "Print \"went on\"\n");
  script.Run();
  EXPECT_TRUE(seen.runtimeErrors.empty());
  EXPECT_EQ(seen.printed, (std::vector<std::string>{"caught", "went on"}));
  EXPECT_EQ(script.State(), ScriptState::Complete);
}

}  // namespace
