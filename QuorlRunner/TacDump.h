// quorl --dump-tac: the listing of a script's three-address code.
#ifndef QUORLRUNNER_TACDUMP_H
#define QUORLRUNNER_TACDUMP_H

#include <string>

#include "QuorlRunner/CommandLine.h"
#include "QuorlRunner/ConsoleEvents.h"

namespace quorl {
namespace runner {

// Compiles the text and prints its listing to the console's output instead
// of running it; compile errors are reported as in a run.
int DumpTac(RunnerOptions const& options, std::string const& text,
            Console const& console);

}  // namespace runner
}  // namespace quorl

#endif
