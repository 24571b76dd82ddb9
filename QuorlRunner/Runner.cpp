#include "QuorlRunner/Runner.h"

#include <chrono>
#include <cstdlib>
#include <functional>
#include <stdexcept>

#include "QuorlRunner/ExitStatus.h"
#include "QuorlRunner/PowerPCModule.h"
#include "QuorlRunner/ScriptContext.h"
#include "QuorlRunner/ScriptText.h"
#include "QuorlRunner/StaticClassDataEngine.h"
#include "QuorlRunner/TacDump.h"

namespace quorl {
namespace runner {
namespace {

int Fail(Console const& console, std::string const& message, int status) {
  std::fflush(console.out);
  std::fprintf(console.err, "quorl: %s\n", message.c_str());
  return status;
}

int UsageError(Console const& console, std::string const& message) {
  Fail(console, message, kExitUsage);
  std::fprintf(console.err, "%s\nTry 'quorl --help' for more information.\n",
               UsageLine().c_str());
  return kExitUsage;
}

int StatusOf(EventCounts const& counts, ContextState const& context) {
  if (counts.compileErrors) return kExitCompileErrors;
  if (counts.runtimeErrors) return kExitRuntimeError;
  if (counts.stopped && context.quit) return context.exitStatus;
  return kExitCompleted;
}

// A byte-order mark says only that the file is UTF-8, which scripts are.
char const kUtf8ByteOrderMark[] = "\xEF\xBB\xBF";

void SkipByteOrderMark(std::string& text) {
  if (text.compare(0, sizeof kUtf8ByteOrderMark - 1, kUtf8ByteOrderMark) == 0)
    text.erase(0, sizeof kUtf8ByteOrderMark - 1);
}

// Keeps the console connected for one call: the handlers count into a
// local of that call.
class ConsoleConnection {
 public:
  ConsoleConnection(Script& script, Console const& console,
                    std::string const& fileName, std::string const& source,
                    EventCounts& counts)
      : mScript(script) {
    ConnectConsole(script, console, fileName, source, counts);
  }
  ~ConsoleConnection() { DisconnectConsole(mScript); }

 private:
  Script& mScript;
};

}  // namespace

// A compile error stops the script before it runs, so one run never sets
// both counts.
int ExecuteScript(Script& script, RunnerOptions const& options,
                  std::string const& text, Console const& console) {
  EventCounts counts;
  ContextState context;
  context.arguments = options.scriptArguments;
  GiveContext(script, context);
  ConsoleConnection connection(script, console, DisplayName(options), text,
                               counts);
  script.SetSource(text);
  if (options.check)
    script.Precompile();
  else
    script.Run();
  script.SetContext(nullptr);
  std::fflush(console.out);
  return StatusOf(counts, context);
}

// The time limit stops the script the way any host stops one: the yield
// hook throws, the engine unwinds the script (its cleanup runs), and Run()
// rethrows here.
struct TimeLimitReached : std::runtime_error {
  TimeLimitReached() : std::runtime_error("time limit reached") {}
};

static std::function<void()> TimeLimitHook(RunnerOptions const& options) {
  if (options.timeLimit <= 0) return nullptr;
  auto deadline = std::chrono::steady_clock::now() +
                  std::chrono::duration<double>(options.timeLimit);
  return [deadline] {
    if (std::chrono::steady_clock::now() >= deadline) throw TimeLimitReached();
  };
}

int RunScript(RunnerOptions const& options, std::string const& text,
              Console const& console) {
  try {
    if (options.dumpTac) return DumpTac(options, text, console);
    if (options.debugSymbols) return DumpDebugSymbols(options, text, console);
    if (!options.emitObject.empty())
      return EmitPowerPCModule(options, text, console);
    HostOptions host;
    host.optimize = options.optimize;
    host.yieldHook = TimeLimitHook(options);
    if (options.staticClassData)
      AttachWithStaticClassData(host);
    else
      LoadPlugin(options.pluginPath, host);
    Script script;
    return ExecuteScript(script, options, text, console);
  } catch (TimeLimitReached const&) {
    char limit[32];
    std::snprintf(limit, sizeof limit, "%g", options.timeLimit);
    char const* unit = options.timeLimit == 1 ? " second" : " seconds";
    return Fail(console, DisplayName(options) +
                             ": stopped after the time limit of " + limit +
                             unit, kExitTimeLimit);
  } catch (LoadError const& e) {
    return Fail(console, e.what(), kExitEngineUnavailable);
  } catch (UnknownClass const& e) {
    return Fail(console, std::string("the script engine is unusable: ") +
                             e.what(), kExitEngineUnavailable);
  } catch (std::exception const& e) {
    return Fail(console, DisplayName(options) + ": " + e.what(),
                kExitHostFailure);
  }
}

int RunCommand(std::vector<std::string> const& arguments,
               Console const& console) {
  CommandLine command = ParseCommandLine(arguments);
  if (!command.error.empty()) return UsageError(console, command.error);
  if (command.options.help || command.options.version) {
    std::string text = command.options.help ? HelpText() : VersionText();
    std::fputs(text.c_str(), console.out);
    return kExitCompleted;
  }
  std::string text = command.options.programText, error;
  if (!command.options.hasProgramText &&
      !ReadScriptText(command.options.file, text, error)) {
    return Fail(console,
                "cannot read " + DisplayName(command.options) + ": " + error,
                kExitUnreadableFile);
  }
  SkipByteOrderMark(text);
  return RunScript(command.options, text, console);
}

}  // namespace runner
}  // namespace quorl
