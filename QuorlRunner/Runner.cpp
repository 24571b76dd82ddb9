#include "QuorlRunner/Runner.h"

#include <chrono>
#include <cstdlib>
#include <functional>

#include "QuorlRunner/ExitStatus.h"
#include "QuorlRunner/ScriptText.h"
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

// A runaway script can't be stopped from inside the engine: a running
// script is machine code on this thread. Its loops call the host's yield,
// though, and there the runner ends the whole process once the time is up.
static std::function<void()> TimeLimitHook(RunnerOptions const& options,
                                    Console const& console) {
  if (options.timeLimit <= 0) return nullptr;
  auto deadline = std::chrono::steady_clock::now() +
                  std::chrono::duration<double>(options.timeLimit);
  std::string name = DisplayName(options);
  double limit = options.timeLimit;
  return [deadline, name, limit, console] {
    if (std::chrono::steady_clock::now() < deadline) return;
    std::fflush(console.out);
    std::fprintf(console.err, "quorl: %s: stopped after the time limit of %g seconds\n",
                 name.c_str(), limit);
    std::fflush(console.err);
    std::_Exit(kExitTimeLimit);
  };
}

int RunScript(RunnerOptions const& options, std::string const& text,
              Console const& console) {
  try {
    if (options.dumpTac) return DumpTac(options, text, console);
    HostOptions host;
    host.optimize = options.optimize;
    host.yieldHook = TimeLimitHook(options, console);
    LoadPlugin(options.pluginPath, host);
    Script script;
    return ExecuteScript(script, options, text, console);
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
