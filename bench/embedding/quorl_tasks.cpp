// The embedding tasks, done with QuorlScript's C++ API. The same tasks are
// done with the Lua C API in lua_tasks.cpp; `count` compares the lines of
// host code each needs. The suite builds and runs this program.
#include <cassert>
#include <chrono>
#include <cstdio>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include "quorl/QuorlHost.h"

// task: run a script and take its output
void RunAScript() {
  quorl::Script script;
  std::vector<std::string> out;
  script.OnPrint([&](std::string const& line) { out.push_back(line); });
  script.SetSource("Dim i As Integer\nFor i = 1 To 3\n  Print \"line \" + Str(i)\nNext\n");
  script.Run();
  assert(out.size() == 3 && out[2] == "line 3");
}

// task: read a compile error and an uncaught exception
void ReadErrors() {
  quorl::Script script;
  script.SetSource("Dim total As Integer\ntotal = Countr + 1\n");
  script.Run();
  quorl::ScriptError const& compile = script.Errors().at(0);
  assert(compile.line == 2 && compile.column == 9 && compile.number == 11);
  assert(compile.message == "unknown name: Countr");
  script.SetSource("Dim a(2) As Integer\na(5) = 1\n");
  script.Run();
  quorl::ScriptError const& uncaught = script.Errors().at(0);
  assert(uncaught.line == 2 && uncaught.exceptionClass == "OutOfBoundsException");
}

// task: stop a runaway script from the yield hook and from another thread
void StopRunaways() {
  quorl::Script script;
  script.SetSource("Dim n As Integer\nWhile True\n  n = n + 1\nWend\n");
  int yields = 0;
  quorl::SetYieldHook([&] {
    if (++yields == 10000) script.Stop();
  });
  assert(script.Run() == quorl::ScriptState::Aborted);
  quorl::SetYieldHook(nullptr);
  std::thread watchdog([&] {
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
    script.Stop();
  });
  assert(script.Run() == quorl::ScriptState::Aborted);
  watchdog.join();
}

// task: a context property the script reads and assigns
int gScore = 0;
int GetScore(VELDObject, long) { return gScore; }
void SetScore(VELDObject, long, int value) { gScore = value; }

void AssignAProperty() {
  quorl::HostClass game("Game");
  game.AddProperty<&GetScore, &SetScore>(0, "Score As Integer");
  quorl::DefineClass(game);
  quorl::Script script;
  script.SetContext(quorl::Object::New("Game"));
  script.SetSource("Score = Score + 5\n");
  script.Run();
  assert(gScore == 5);
}

// task: host functions, one raising an error the script catches
void BindFunctions() {
  quorl::Script script;
  std::vector<std::string> out;
  script.OnPrint([&](std::string const& line) { out.push_back(line); });
  script.AddFunction("Twice", [](int n) { return 2 * n; });
  script.AddFunction("Root", [](double x) {
    if (x < 0) throw std::domain_error("no root of a negative number");
    return x < 1 ? x : x / 2;
  });
  script.SetSource("Print Str(Twice(21))\nTry\n  Print Str(Root(-1))\nCatch\n  Print \"caught\"\nEnd Try\n");
  script.Run();
  assert(out.size() == 2 && out[0] == "42" && out[1] == "caught");
}

// task: call a script's function with two arguments and read the result
void CallAFunction() {
  quorl::Script script;
  script.SetSource("Function Area(w As Integer, h As Integer) As Integer\n  Return w * h\nEnd Function\n");
  assert(script.Call<int>("Area", 6, 7) == 42);
}

// task: run scripts on several threads at once
void RunOnThreads() {
  std::vector<std::string> results(4);
  std::vector<std::thread> threads;
  for (int t = 0; t < 4; ++t) {
    threads.emplace_back([t, &results] {
      quorl::Script script;
      script.OnPrint([&](std::string const& line) { results[t] = line; });
      script.SetSource("Print Str(" + std::to_string(t) + " * 10)\n");
      script.Run();
    });
  }
  for (std::thread& thread : threads) thread.join();
  assert(results[3] == "30");
}

// task: end
int main() {
  quorl::LoadPlugin();
  RunAScript();
  ReadErrors();
  StopRunaways();
  AssignAProperty();
  BindFunctions();
  CallAFunction();
  RunOnThreads();
  std::puts("all tasks ran");
  return 0;
}
