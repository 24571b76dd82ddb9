// What the runner writes for each event, and the exit status a run ends
// with. A scripted interpreter stands in for compiled code.
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
  for (int c; (c = std::fgetc(stream)) != EOF;) text += static_cast<char>(c);
  return text;
}

class RunnerEvents : public ::testing::Test {
 protected:
  RunnerEvents() { console = {std::tmpfile(), std::tmpfile(), std::tmpfile()}; }
  ~RunnerEvents() override {
    for (std::FILE* f : {console.in, console.out, console.err}) std::fclose(f);
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

TEST_F(RunnerEvents, PrintAndInputUseOneLineEach) {
  std::fputs("Ada\r\nBob\nCy", console.in);
  std::rewind(console.in);
  std::vector<std::string> answers;
  int status = Execute([&](ScriptedInterpreter& code) {
    code.Say("");
    code.Say("w\xC3\xB6rld");
    for (int i = 0; i < 4; ++i) answers.push_back(code.Ask("? "));
  });
  EXPECT_EQ(status, kExitCompleted);
  EXPECT_EQ(answers, (std::vector<std::string>{"Ada", "Bob", "Cy", "<null>"}));
  EXPECT_EQ(Contents(console.out), "\nw\xC3\xB6rld\n? ? ? ? ");
  EXPECT_EQ(Contents(console.err), "");
  script.Run();  // the console is disconnected after the call
  EXPECT_EQ(Contents(console.out), "\nw\xC3\xB6rld\n? ? ? ? ");
}

TEST_F(RunnerEvents, CompileErrorsAreReportedWithLinesFromOne) {
  for (bool check : {false, true}) {
    std::fclose(console.err);
    console.err = std::tmpfile();
    int status = Execute([](ScriptedInterpreter& code) {
      code.CompilerError(static_cast<CompileErrorCode>(2), 0);
      code.CompilerError(static_cast<CompileErrorCode>(11), 41);
      code.CompilerError(static_cast<CompileErrorCode>(4242), 3);
    }, check);
    EXPECT_EQ(status, kExitCompileErrors);
    // Without a column there is no caret; a line past the end has no
    // excerpt.
    EXPECT_EQ(Contents(console.err),
              "demo.qs:1: error 2: type mismatch\n"
              " 1 | source\n"
              "demo.qs:42: error 11: unknown name\n"
              "demo.qs:4: error 4242: compile error\n");
  }
}

TEST_F(RunnerEvents, ARuntimeErrorNamesTheExceptionClassAfterTheOutput) {
  int status = Execute([](ScriptedInterpreter& code) {
    code.Say("before");
    code.RuntimeError(kRuntimeErrorNoExceptionClass, 0);
  });
  EXPECT_EQ(status, kExitRuntimeError);
  EXPECT_EQ(Contents(console.out), "before\n");
  EXPECT_EQ(Contents(console.err), "demo.qs: runtime error: RuntimeException\n");
}

}  // namespace
