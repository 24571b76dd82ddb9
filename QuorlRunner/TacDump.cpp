// The host interface carries no view of the compiler's intermediate code, so
// for this one option the runner links the engine itself and attaches it to
// the stand-in host in place of the plug-in. Everything else the runner does
// goes through the plug-in like any host.
#include "QuorlRunner/TacDump.h"

#include "Plugin/QuorlInterpreter.h"
#include "Plugin/QuorlScriptClass.h"
#include "QuorlRunner/ExitStatus.h"

extern "C" void VELDPluginMain(VELDResolver resolver);

namespace quorl {
namespace runner {

namespace {

// Compiles with the engine linked in and writes what `list` gives.
int DumpListing(RunnerOptions const& options, std::string const& text,
                Console const& console,
                bool (QuorlScriptInterface::*list)(string* listing)) {
  HostOptions host;
  host.optimize = options.optimize;
  Attach(&VELDPluginMain, host);
  Script script;
  EventCounts counts;
  ConnectConsole(script, console, DisplayName(options), counts);
  script.SetSource(text);
  string listing;
  QuorlScriptInterface* engine = QuorlScriptDataOf(script.Instance())->mInterface;
  bool compiled = (engine->*list)(&listing);
  DisconnectConsole(script);
  if (compiled) std::fwrite(listing.CString(), 1, listing.Length(), console.out);
  std::fflush(console.out);
  return counts.compileErrors || !compiled ? kExitCompileErrors : kExitCompleted;
}

}  // namespace

int DumpTac(RunnerOptions const& options, std::string const& text,
            Console const& console) {
  return DumpListing(options, text, console,
                     &QuorlScriptInterface::CompileToTacListing);
}

int DumpDebugSymbols(RunnerOptions const& options, std::string const& text,
                     Console const& console) {
  return DumpListing(options, text, console,
                     &QuorlScriptInterface::CompileToDebugSymbolListing);
}

}  // namespace runner
}  // namespace quorl
