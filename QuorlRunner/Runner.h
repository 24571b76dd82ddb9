// The runner's work from a parsed command line to an exit status.
#ifndef QUORLRUNNER_RUNNER_H
#define QUORLRUNNER_RUNNER_H

#include <string>
#include <vector>

#include "QuorlRunner/CommandLine.h"
#include "QuorlRunner/ConsoleEvents.h"

namespace quorl {
namespace runner {

// Everything quorl does, given its arguments (without the program name).
// Every fault becomes a message on the console's error stream and one of the
// statuses of ExitStatus.h.
int RunCommand(std::vector<std::string> const& arguments,
               Console const& console = Console());

// Loads the engine and runs (or, with --check, compiles) the script text.
int RunScript(RunnerOptions const& options, std::string const& text,
              Console const& console);

// Runs (or compiles) the text on a script of an engine already loaded, with
// its events on the console. Host failures are thrown.
int ExecuteScript(Script& script, RunnerOptions const& options,
                  std::string const& text, Console const& console);

}  // namespace runner
}  // namespace quorl

#endif
