// A script's events, connected to the terminal: output and prompts to
// standard output, answers from standard input, reports to standard error.
#ifndef QUORLRUNNER_CONSOLEEVENTS_H
#define QUORLRUNNER_CONSOLEEVENTS_H

#include <cstdio>
#include <set>
#include <string>
#include <tuple>

#include "quorl/QuorlHost.h"

namespace quorl {
namespace runner {

struct Console {
  std::FILE* in = stdin;
  std::FILE* out = stdout;
  std::FILE* err = stderr;
};

// What the events reported while the script was connected.
struct EventCounts {
  int compileErrors = 0;
  int runtimeErrors = 0;
  bool stopped = false;  // the host stopped the run
  // The places compile errors were reported at, to hold back their echoes:
  // line, column and number.
  std::set<std::tuple<int, int, int>> reported;
  int syntaxErrorLine = 0;  // the last line with a syntax error
};

// Connects the script's output, input and errors. `fileName` is how
// reports name the script, `source` the text they quote. The source and
// the counts must outlive the script's runs: the handlers refer to them.
void ConnectConsole(Script& script, Console const& console,
                    std::string const& fileName, std::string const& source,
                    EventCounts& counts);

// Removes the handlers again.
void DisconnectConsole(Script& script);

// One line of input without its line end; "" at the end of input.
std::string ReadLine(std::FILE* in);

}  // namespace runner
}  // namespace quorl

#endif
