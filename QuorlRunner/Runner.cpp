#include "QuorlRunner/Runner.h"

#include <chrono>
#include <cstdlib>
#include <functional>
#include <stdexcept>

#include "QuorlRunner/ExitStatus.h"
#include "QuorlRunner/PowerPCModule.h"
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

int StatusOf(EventCounts const& counts) {
  if (counts.compileErrors) return kExitCompileErrors;
  if (counts.runtimeErrors) return kExitRuntimeError;
  return kExitCompleted;
}

// Keeps the console connected for one call: the handlers count into a
// local of that call.
class ConsoleConnection {
 public:
  ConsoleConnection(Script& script, Console const& console,
                    std::string const& fileName, EventCounts& counts)
      : mScript(script) {
    ConnectConsole(script, console, fileName, counts);
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
  ConsoleConnection connection(script, console, DisplayName(options), counts);
  script.SetSource(text);
  if (options.check)
    script.Precompile();
  else
    script.Run();
  std::fflush(console.out);
  return StatusOf(counts);
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
    return Fail(console, DisplayName(options) +
                             ": stopped after the time limit of " + limit +
                             " seconds", kExitTimeLimit);
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
  if (command.options.help) {
    std::fputs(HelpText().c_str(), console.out);
    return kExitCompleted;
  }
  std::string text, error;
  if (!ReadScriptText(command.options.file, text, error)) {
    return Fail(console,
                "cannot read " + DisplayName(command.options) + ": " + error,
                kExitUnreadableFile);
  }
  return RunScript(command.options, text, console);
}

}  // namespace runner
}  // namespace quorl
