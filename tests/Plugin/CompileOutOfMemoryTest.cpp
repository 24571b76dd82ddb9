// A compile that runs out of memory is compile error 141, and the engine
// compiles again afterwards. The test runs in a child process whose
// address space is capped a little above what it uses before the compile.
#include <gtest/gtest.h>
#include <sys/resource.h>

#include <cstdio>
#include <string>
#include <vector>

#include "tests/Plugin/PluginTestSupport.h"

namespace {

int const kErrorCompilerOutOfMemory = 141;
unsigned long const kHeadroomBytes = 24ul << 20;

// Functions enough to need several times the headroom.
std::string BigProgram() {
  std::string text;
  for (int i = 0; i < 20000; i++) {
    std::string name = "F" + std::to_string(i);
    text += "Function " + name + "(n As Integer) As Integer\n"
            "  Dim total As Integer = n * 3\n"
            "  Return total + " + std::to_string(i) + "\n"
            "End Function\n";
  }
  return text;
}

unsigned long AddressSpaceInUse() {
  unsigned long pages = 0;
  std::FILE* statm = std::fopen("/proc/self/statm", "r");
  if (statm) {
    if (std::fscanf(statm, "%lu", &pages) != 1) pages = 0;
    std::fclose(statm);
  }
  return pages * 4096;
}

void CapAddressSpace(rlim_t bytes) {
  rlimit limit;
  getrlimit(RLIMIT_AS, &limit);
  limit.rlim_cur = bytes;
  setrlimit(RLIMIT_AS, &limit);
}

// Exit status 0: error 141 alone, then a clean compile of a small script.
int CompileBigProgramUnderACap() {
  AttachEngine();
  std::vector<int> errors;
  quorl::Script script;
  script.OnCompilerError([&](int, int number, std::string const&) { errors.push_back(number); });
  script.SetSource(BigProgram());
  CapAddressSpace(AddressSpaceInUse() + kHeadroomBytes);
  script.Precompile();
  CapAddressSpace(RLIM_INFINITY);
  if (errors.size() != 1 || errors[0] != kErrorCompilerOutOfMemory) return 1;
  errors.clear();
  script.SetSource("Dim x As Integer = 2\nx = x * 3\n");
  script.Precompile();
  return errors.empty() ? 0 : 2;
}

TEST(CompileOutOfMemory, IsError141AndTheNextCompileWorks) {
#if defined(QUORL_SANITIZE)
  GTEST_SKIP() << "the sanitizers reserve address space far beyond any cap";
#endif
  EXPECT_EXIT(std::exit(CompileBigProgramUnderACap()), testing::ExitedWithCode(0), "");
}

}  // namespace
