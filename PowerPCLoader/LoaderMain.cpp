// quorl-ppc-loader MODULE [NAME]: links a PowerPC module against the
// runtime and runs its main body. The exit status is quorl's: 0 when the
// script ran to its end, 2 after a runtime error, 70 when the module
// cannot be loaded.
#include <stdio.h>
#include <pthread.h>

#include <string>

#include "Compiler/BackEnds/Minilinker/QuorlScriptIntrinsics.h"
#include "PowerPCLoader/CallBridges.h"
#include "PowerPCLoader/ExceptionRaiser.h"
#include "PowerPCLoader/LoadedCode.h"
#include "PowerPCLoader/NewerFloatInstructions.h"
#include "PowerPCLoader/RuntimeTable.h"

namespace {

int const kExitCompleted = 0;
int const kExitRuntimeError = 2;
int const kExitLoadFailure = 70;
// What a stack overflow leaves for the raise and its handlers.
unsigned long const kStackReserve = 256 * 1024;

char const* const kMainBodyName = "% main";

// The lowest address the script's stack may reach before the runtime
// raises a stack overflow.
unsigned long StackLimit() {
  pthread_attr_t attributes;
  if (pthread_getattr_np(pthread_self(), &attributes) != 0) return 0;
  void* low = nullptr;
  size_t size = 0;
  pthread_attr_getstack(&attributes, &low, &size);
  pthread_attr_destroy(&attributes);
  return reinterpret_cast<unsigned long>(low) + kStackReserve;
}

int Fail(std::string const& message) {
  fprintf(stderr, "quorl-ppc-loader: %s\n", message.c_str());
  return kExitLoadFailure;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 2 || argc > 3) return Fail("usage: quorl-ppc-loader MODULE [NAME]");
  ppcloader::EmulateNewerFloatInstructions();
  std::string error;
  ppcloader::Module module;
  if (!ppcloader::ReadModuleFile(argv[1], &module, &error)) return Fail(error);
  ppcloader::LoadedCode code;
  if (!code.Link(module, ppcloader::MakeRuntimeTable(), &error)) return Fail(error);
  void* entry = code.Entry(kMainBodyName);
  if (!entry) return kExitCompleted;
  InitQuorlScriptRuntime();
  ppcloader::ConnectConsole(argc == 3 ? argv[2] : argv[1]);
  SetRuntimeStackLimit(StackLimit());
  // A stack overflow whose handlers keep calling ends the run from where
  // it is (see RuntimeCheckStack).
  RuntimeObject* runaway = CallEndingRunaways(
      [](void* main) { ppcloader::CallGeneratedCode(main); }, entry);
  if (runaway) {
    ppcloader::ReportEndingException(runaway);
    RuntimeUnlockObject(runaway);
  }
  ExitQuorlScriptRuntime();
  fflush(stdout);
  return ppcloader::RuntimeErrorCount() ? kExitRuntimeError : kExitCompleted;
}
