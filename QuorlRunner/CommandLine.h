// The command line of quorl: a table of options, the parser and the help.
#ifndef QUORLRUNNER_COMMANDLINE_H
#define QUORLRUNNER_COMMANDLINE_H

#include <string>
#include <vector>

namespace quorl {
namespace runner {

// What the file operand "-" stands for, and how that file is shown.
constexpr char kStandardInputOperand[] = "-";
constexpr char kStandardInputName[] = "<stdin>";

struct RunnerOptions {
  std::string file;  // kStandardInputOperand for standard input
  bool check = false;
  bool dumpTac = false;
  bool debugSymbols = false;  // list the debug tables instead of running
  bool optimize = true;
  bool staticClassData = false;  // class records as linked data
  double timeLimit = 0;  // seconds; 0 for none
  bool help = false;
  std::string pluginPath;  // empty: the host's default
  std::string target = "ia32";  // "ia32", or "ppc" with emitObject
  std::string emitObject;       // where a PowerPC module is written
};

struct CommandLine {
  RunnerOptions options;
  std::string error;  // set for a usage error
};

// Parses the arguments after the program name. Options may come before or
// after the file; "--" ends them; "--name=value" and "--name value" both
// give a value.
CommandLine ParseCommandLine(std::vector<std::string> const& arguments);

// The one-line synopsis, and the whole text of --help.
std::string UsageLine();
std::string HelpText();

// How the file appears in messages.
std::string DisplayName(RunnerOptions const& options);

}  // namespace runner
}  // namespace quorl

#endif
