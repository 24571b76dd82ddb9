// Scripts on several threads at once, through the real plug-in: each
// thread compiles and runs its own scripts (compilations take turns, runs
// overlap) and every output is the right one.
#include <gtest/gtest.h>

#include <atomic>
#include <string>
#include <thread>
#include <vector>

#include "quorl/QuorlHost.h"

namespace {

int const kThreads = 8;
int const kScriptsPerThread = 1000;

TEST(ScriptThreads, EightThreadsEachCompileAndRunAThousandScripts) {
  quorl::LoadPlugin();
  std::atomic<int> wrong{0};
  std::atomic<int> done{0};
  auto work = [&](int thread) {
    for (int k = 0; k < kScriptsPerThread; ++k) {
      quorl::Script script;
      std::string printed;
      script.OnPrint([&](std::string const& s) { printed += s; });
      script.AddFunction("Tag", [thread] { return thread; });
      int n = thread * kScriptsPerThread + k;
      script.SetSource(
          "Dim parts() As String\n"
          "Dim i As Integer\n"
          "For i = 1 To 3\n"
          "  parts.Append(Str(i * " + std::to_string(n) + "))\n"
          "Next\n"
          "Print Join(parts, \",\") + \"/\" + Str(Tag())\n");
      script.Run();
      std::string expected = std::to_string(n) + "," + std::to_string(2 * n) + "," +
                             std::to_string(3 * n) + "/" + std::to_string(thread);
      if (printed != expected || script.State() != quorl::ScriptState::Complete) ++wrong;
      ++done;
    }
  };
  std::vector<std::thread> threads;
  for (int t = 0; t < kThreads; ++t) threads.emplace_back(work, t);
  for (std::thread& t : threads) t.join();
  EXPECT_EQ(done, kThreads * kScriptsPerThread);
  EXPECT_EQ(wrong, 0);
}

}  // namespace
