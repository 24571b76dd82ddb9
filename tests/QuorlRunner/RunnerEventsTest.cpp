// What the runner writes for each event, and the exit status a run ends
// with. The engine is linked in, with a scripted interpreter standing in for
// compiled code.
#include <gtest/gtest.h>

#include <cstdio>

#include "QuorlRunner/ExitStatus.h"
#include "QuorlRunner/Runner.h"
#include "tests/StandInHost/ScriptedInterpreter.h"

namespace {

using namespace quorl::runner;

std::string Contents(std::FILE* stream) {
  std::fflush(stream);
  std::rewind(stream);
  std::string text;
  int c;
  while ((c = std::fgetc(stream)) != EOF) text += static_cast<char>(c);
  return text;
}

class RunnerEvents : public ::testing::Test {
 protected:
  RunnerEvents() {
    console.in = std::tmpfile();
    console.out = std::tmpfile();
    console.err = std::tmpfile();
  }
  ~RunnerEvents() override {
    std::fclose(console.in);
    std::fclose(console.out);
    std::fclose(console.err);
  }

  void GiveInput(std::string const& text) {
    std::fputs(text.c_str(), console.in);
    std::rewind(console.in);
  }

  int Execute(ScriptedInterpreter::Program program, bool check = false) {
    InstallProgram(script, std::move(program));
    RunnerOptions options;
    options.file = "demo.qs";
    options.check = check;
    return ExecuteScript(script, options, "source", console);
  }

  LinkedEngine engine;
  quorl::Script script;
  Console console;
};

TEST_F(RunnerEvents, PrintWritesEachTextOnItsOwnLine) {
  int status = Execute([](ScriptedInterpreter& code) {
    code.Say("hello");
    code.Say("");
    code.Say("w\xC3\xB6rld");
  });
  EXPECT_EQ(status, kExitCompleted);
  EXPECT_EQ(Contents(console.out), "hello\n\nw\xC3\xB6rld\n");
  EXPECT_EQ(Contents(console.err), "");
}

TEST_F(RunnerEvents, InputPromptsAndReadsOneLineWithoutItsEnd) {
  GiveInput("Ada\r\nBob\nCy");
  std::vector<std::string> answers;
  Execute([&](ScriptedInterpreter& code) {
    for (int i = 0; i < 4; ++i) answers.push_back(code.Ask("? "));
  });
  EXPECT_EQ(answers, (std::vector<std::string>{"Ada", "Bob", "Cy", "<null>"}));
  EXPECT_EQ(Contents(console.out), "? ? ? ? ");
}

TEST_F(RunnerEvents, CompileErrorsAreReportedWithLinesFromOne) {
  int status = Execute([](ScriptedInterpreter& code) {
    code.CompilerError(static_cast<CompileErrorCode>(2), 0);
    code.CompilerError(static_cast<CompileErrorCode>(11), 41);
    code.CompilerError(static_cast<CompileErrorCode>(4242), 3);
  });
  EXPECT_EQ(status, kExitCompileErrors);
  EXPECT_EQ(Contents(console.err),
            "demo.qs:1: error 2: type mismatch\n"
            "demo.qs:42: error 11: unknown name\n"
            "demo.qs:4: error 4242: compile error\n");
}

TEST_F(RunnerEvents, CheckReportsCompileErrorsToo) {
  int status = Execute(
      [](ScriptedInterpreter& code) {
        code.CompilerError(static_cast<CompileErrorCode>(1), 6);
      },
      true);
  EXPECT_EQ(status, kExitCompileErrors);
  EXPECT_EQ(Contents(console.err), "demo.qs:7: error 1: syntax error\n");
}

TEST_F(RunnerEvents, ARuntimeErrorNamesTheExceptionClassAfterTheOutput) {
  int status = Execute([](ScriptedInterpreter& code) {
    code.Say("before");
    code.RuntimeError(static_cast<RuntimeErrorCode>(9), 0);
  });
  EXPECT_EQ(status, kExitRuntimeError);
  EXPECT_EQ(Contents(console.out), "before\n");
  EXPECT_EQ(Contents(console.err), "demo.qs: runtime error: OutOfBoundsException\n");
}

TEST_F(RunnerEvents, TheConsoleIsDisconnectedAfterTheCall) {
  Execute([](ScriptedInterpreter& code) { code.Say("one"); });
  script.Run();
  EXPECT_EQ(Contents(console.out), "one\n");
}

}  // namespace
