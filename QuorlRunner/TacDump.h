// quorl --dump-tac and --debug-symbols: what the compiler made of a script,
// as a listing.
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
// quorl --debug-symbols: the same with the script's debug tables, read from
// a compile and link with debug data.
int DumpDebugSymbols(RunnerOptions const& options, std::string const& text,
                     Console const& console);

}  // namespace runner
}  // namespace quorl

#endif
