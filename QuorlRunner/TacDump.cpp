// The host interface carries no view of the compiler's intermediate code, so
// for this one option the runner links the engine itself and attaches it to
// the stand-in host in place of the plug-in. Everything else the runner does
// goes through the plug-in like any host.
#include "QuorlRunner/TacDump.h"

#include "Plugin/QuorlInterpreter.h"
#include "Plugin/QuorlScriptClass.h"
#include "QuorlRunner/ExitStatus.h"
#include "QuorlRunner/ScriptContext.h"

extern "C" void VELDPluginMain(VELDResolver resolver);

namespace quorl {
namespace runner {

int DumpTac(RunnerOptions const& options, std::string const& text,
            Console const& console) {
  HostOptions host;
  host.optimize = options.optimize;
  Attach(&VELDPluginMain, host);
  Script script;
  EventCounts counts;
  ContextState context;
  GiveContext(script, context);
  ConnectConsole(script, console, DisplayName(options), text, counts);
  script.SetSource(text);
  string listing;
  QuorlScriptInterface* engine = QuorlScriptDataOf(script.Instance())->mInterface;
  bool compiled = engine->CompileToTacListing(&listing);
  DisconnectConsole(script);
  if (compiled) std::fwrite(listing.CString(), 1, listing.Length(), console.out);
  std::fflush(console.out);
  return counts.compileErrors || !compiled ? kExitCompileErrors : kExitCompleted;
}

}  // namespace runner
}  // namespace quorl
