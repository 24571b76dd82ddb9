// Like --dump-tac, this reaches below the host interface: the runner links
// the engine and attaches it to the stand-in host in place of the plug-in.
#include "QuorlRunner/PowerPCModule.h"

#include <cstdio>

#include "Compiler/BackEnds/PowerPC/PPCModuleFile.h"
#include "Plugin/QuorlInterpreter.h"
#include "Plugin/QuorlScriptClass.h"
#include "QuorlRunner/ExitStatus.h"
#include "QuorlRunner/ScriptContext.h"

extern "C" void VELDPluginMain(VELDResolver resolver);

namespace quorl {
namespace runner {

int EmitPowerPCModule(RunnerOptions const& options, std::string const& text,
                      Console const& console) {
  Attach(&VELDPluginMain);
  Script script;
  EventCounts counts;
  ContextState context;
  GiveContext(script, context);
  ConnectConsole(script, console, DisplayName(options), text, counts);
  script.SetSource(text);
  QuorlScriptInterface* engine = QuorlScriptDataOf(script.Instance())->mInterface;
  StringMapCase<string> shapes;
  Ref<CodeModule> module = engine->CompileForPowerPC(&shapes);
  DisconnectConsole(script);
  if (counts.compileErrors || !module) return kExitCompileErrors;
  Ref<DataBlock> file = WritePPCModuleFile(module, shapes);
  std::FILE* out = file ? std::fopen(options.emitObject.c_str(), "wb") : nullptr;
  bool written = out && std::fwrite(file->Buffer(), 1, file->Length(), out) ==
                            file->Length();
  if (out) written = std::fclose(out) == 0 && written;
  if (!written) {
    std::fprintf(console.err, "quorl: cannot write %s\n",
                 options.emitObject.c_str());
    return kExitHostFailure;
  }
  return kExitCompleted;
}

}  // namespace runner
}  // namespace quorl
