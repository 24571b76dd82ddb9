// The call stack of an uncaught exception as the embedding API gives it:
// the raise first, then each call that led there, with names and lines.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "quorl/QuorlHost.h"

namespace {

using quorl::Script;
using quorl::ScriptError;
using quorl::ScriptState;

class ScriptCallStack : public ::testing::Test {
 protected:
  void SetUp() override { quorl::LoadPlugin(); }
};

// "Name:line" for each frame, innermost first.
std::vector<std::string> Frames(ScriptError const& error) {
  std::vector<std::string> frames;
  for (quorl::StackFrame const& frame : error.callStack)
    frames.push_back(frame.function + ":" + std::to_string(frame.line));
  return frames;
}

char const kSource[] =
    "Function Inner(n As Integer) As Integer\n"  // 1
    "  Dim a(1) As Integer\n"                    // 2
    "  Return a(n)\n"                            // 3
    "End Function\n"                             // 4
    "Function Outer(n As Integer) As Integer\n"  // 5
    "  Try\n"                                    // 6
    "    Return Inner(9)\n"                      // 7
    "  Catch\n"                                  // 8
    "  End Try\n"                                // 9
    "  Return Inner(n)\n"                        // 10
    "End Function\n"                             // 11
    "Print Str(Outer(0))\n"                      // 12
    "Print Str(Outer(5))\n";                     // 13

// A raise that was caught leaves nothing behind: the stack reported is that
// of the raise nobody caught, from a later call on another line.
TEST_F(ScriptCallStack, TheUncaughtRaiseIsReportedNotAnEarlierCaughtOne) {
  Script script;
  script.SetSource(kSource);
  EXPECT_EQ(script.Run(), ScriptState::Aborted);
  ASSERT_EQ(script.Errors().size(), 1u);
  ScriptError const& error = script.Errors()[0];
  EXPECT_EQ(error.kind, ScriptError::Kind::Runtime);
  EXPECT_EQ(error.line, 3);
  EXPECT_EQ(Frames(error),
            (std::vector<std::string>{"Inner:3", "Outer:10", "<main>:13"}));
  EXPECT_TRUE(error.callStackComplete);
}

// A function the host calls has no main body beneath it.
TEST_F(ScriptCallStack, AHostCallStartsTheStackAtTheCalledFunction) {
  Script script;
  script.SetSource(kSource);
  script.Precompile();
  EXPECT_THROW(script.Call<int>("Outer", 4), quorl::CallError);
  ASSERT_FALSE(script.Errors().empty());
  EXPECT_EQ(Frames(script.Errors().back()),
            (std::vector<std::string>{"Inner:3", "Outer:10"}));
}

// Runaway recursion keeps the innermost frames and says there were more.
TEST_F(ScriptCallStack, ADeepStackKeepsItsInnermostFrames) {
  Script script;
  script.SetSource(
      "Function Down(n As Integer) As Integer\n"
      "  Return Down(n + 1) + 1\n"
      "End Function\n"
      "Print Str(Down(1))\n");
  EXPECT_EQ(script.Run(), ScriptState::Aborted);
  ASSERT_EQ(script.Errors().size(), 1u);
  ScriptError const& error = script.Errors()[0];
  EXPECT_EQ(error.exceptionClass, "StackOverflowException");
  EXPECT_FALSE(error.callStackComplete);
  ASSERT_GT(error.callStack.size(), 2u);
  EXPECT_EQ(Frames(error)[0], "Down:1");
  EXPECT_EQ(Frames(error).back(), "Down:2");
}

}  // namespace
