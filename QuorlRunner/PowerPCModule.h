// quorl --target ppc --emit-object OUT: a script compiled for 32-bit
// PowerPC and written as a module file for the PowerPC loader.
#ifndef QUORLRUNNER_POWERPCMODULE_H
#define QUORLRUNNER_POWERPCMODULE_H

#include <string>

#include "QuorlRunner/CommandLine.h"
#include "QuorlRunner/ConsoleEvents.h"

namespace quorl {
namespace runner {

// Compiles the text and writes the module to options.emitObject; compile
// errors are reported as in a run.
int EmitPowerPCModule(RunnerOptions const& options, std::string const& text,
                      Console const& console);

}  // namespace runner
}  // namespace quorl

#endif
