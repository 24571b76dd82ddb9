#include "QuorlRunner/CommandLine.h"

#include <algorithm>
#include <cstdlib>
#include <functional>

namespace quorl {
namespace runner {
namespace {

struct OptionRow {
  char const* name;       // without the leading "--"
  char const* shortName;  // with its "-", or null
  char const* valueName;  // null for an option without a value
  char const* help;
  std::function<void(RunnerOptions&, std::string const&)> apply;
};

// A positive number of seconds, or -1 for anything else.
double ParseSeconds(std::string const& text) {
  char* end = nullptr;
  double seconds = std::strtod(text.c_str(), &end);
  bool whole = !text.empty() && end && *end == 0;
  return whole && seconds > 0 ? seconds : -1;
}

// Every option of the runner. A new option is one more row.
std::vector<OptionRow> const& Options() {
  static std::vector<OptionRow> const options = {
      {"help", "-h", nullptr, "show this help and exit",
       [](RunnerOptions& o, std::string const&) { o.help = true; }},
      {"version", nullptr, nullptr, "show the version and exit",
       [](RunnerOptions& o, std::string const&) { o.version = true; }},
      {"execute", "-e", "TEXT",
       "run the program TEXT; no file is read, and every operand goes to the script",
       [](RunnerOptions& o, std::string const& v) {
         o.programText = v;
         o.hasProgramText = true;
       }},
      {"check", nullptr, nullptr, "compile the script without running it",
       [](RunnerOptions& o, std::string const&) { o.check = true; }},
      {"dump-tac", nullptr, nullptr,
       "print the script's three-address code instead of running it",
       [](RunnerOptions& o, std::string const&) { o.dumpTac = true; }},
      {"debug-symbols", nullptr, nullptr,
       "print the script's debug tables (functions, locals, globals) instead of running it",
       [](RunnerOptions& o, std::string const&) { o.debugSymbols = true; }},
      {"no-optimize", nullptr, nullptr,
       "compile the script exactly as written, without optimizing",
       [](RunnerOptions& o, std::string const&) { o.optimize = false; }},
      {"static-class-data", nullptr, nullptr,
       "lay out class records as linked data (with the engine built into quorl)",
       [](RunnerOptions& o, std::string const&) { o.staticClassData = true; }},
      {"time-limit", nullptr, "SECONDS",
       "stop the script once it has run that long (checked in its loops)",
       [](RunnerOptions& o, std::string const& v) { o.timeLimit = ParseSeconds(v); }},
      {"target", nullptr, "CPU",
       "compile for CPU: ia32 (the default, and run) or ppc (with --emit-object)",
       [](RunnerOptions& o, std::string const& v) { o.target = v; }},
      {"emit-object", nullptr, "OUT",
       "write the compiled PowerPC module to OUT instead of running it",
       [](RunnerOptions& o, std::string const& v) { o.emitObject = v; }},
      {"plugin", nullptr, "PATH",
       "load the script engine from PATH instead of the default",
       [](RunnerOptions& o, std::string const& v) { o.pluginPath = v; }},
  };
  return options;
}

OptionRow const* FindOption(std::string const& word) {
  for (OptionRow const& option : Options()) {
    if (word == std::string("--") + option.name) return &option;
    if (option.shortName && word == option.shortName) return &option;
  }
  return nullptr;
}

bool IsOption(std::string const& argument) {
  return argument.size() > 1 && argument[0] == '-';
}

// Applies the option at `index`, which may consume the next argument as its
// value; returns false with `error` set on a fault.
bool ApplyOption(std::vector<std::string> const& arguments, size_t& index,
                 CommandLine& result) {
  std::string word = arguments[index];
  std::string value;
  size_t equals = word.find('=');
  bool inlineValue = word.compare(0, 2, "--") == 0 && equals != std::string::npos;
  if (inlineValue) {
    value = word.substr(equals + 1);
    word.resize(equals);
  }
  OptionRow const* option = FindOption(word);
  if (!option) {
    result.error = "unknown option '" + word + "'";
  } else if (!option->valueName && inlineValue) {
    result.error = "option '" + word + "' takes no value";
  } else if (option->valueName && !inlineValue && index + 1 >= arguments.size()) {
    result.error = "option '" + word + "' needs a value " + option->valueName;
  } else {
    if (option->valueName && !inlineValue) value = arguments[++index];
    option->apply(result.options, value);
  }
  return result.error.empty();
}

// The first operand is the file, unless -e gave the program; it and all
// that follow belong to the script.
void TakeOperands(std::vector<std::string> const& arguments, size_t first,
                  RunnerOptions& options) {
  size_t next = first;
  if (!options.hasProgramText) options.file = arguments[next++];
  options.scriptArguments.assign(arguments.begin() + next, arguments.end());
}

// The description column starts after the widest option; descriptions wrap
// at the width of a terminal.
size_t const kHelpIndent = 2;
size_t const kHelpGap = 2;
size_t const kHelpWidth = 79;

// "-e, --execute TEXT"; a long name without a short one is indented as if
// it had one, so that the long names line up.
std::string OptionName(OptionRow const& option) {
  std::string left = option.shortName ? std::string(option.shortName) + ", " : "    ";
  left += std::string("--") + option.name;
  if (option.valueName) left += std::string(" ") + option.valueName;
  return left;
}

// `text` broken at spaces into lines of at most `width`, each after
// `indent` spaces except the first.
std::string Wrapped(std::string const& text, size_t indent, size_t width) {
  std::string result, line;
  size_t start = 0;
  while (start < text.size()) {
    size_t end = text.find(' ', start);
    if (end == std::string::npos) end = text.size();
    std::string word = text.substr(start, end - start);
    if (!line.empty() && line.size() + 1 + word.size() > width) {
      result += line + "\n" + std::string(indent, ' ');
      line.clear();
    }
    line += (line.empty() ? "" : " ") + word;
    start = end + 1;
  }
  return result + line + "\n";
}

std::string OptionHelp() {
  size_t column = 0;
  for (OptionRow const& option : Options())
    column = std::max(column, kHelpIndent + OptionName(option).size() + kHelpGap);
  std::string text;
  for (OptionRow const& option : Options()) {
    std::string left = std::string(kHelpIndent, ' ') + OptionName(option);
    left.resize(column, ' ');
    text += left + Wrapped(option.help, column, kHelpWidth - column);
  }
  return text;
}

}  // namespace

CommandLine ParseCommandLine(std::vector<std::string> const& arguments) {
  CommandLine result;
  RunnerOptions& options = result.options;
  size_t i = 0;
  for (; i < arguments.size(); ++i) {
    std::string const& argument = arguments[i];
    if (argument == "--") {
      ++i;
      break;
    }
    if (!IsOption(argument)) break;
    if (!ApplyOption(arguments, i, result)) return result;
  }
  if (i < arguments.size()) TakeOperands(arguments, i, options);
  bool needsProgram = !options.help && !options.version;
  if (options.timeLimit < 0)
    result.error = "--time-limit needs a positive number of seconds";
  else if (needsProgram && options.file.empty() && !options.hasProgramText)
    result.error = "no script file given";
  else if (options.target != "ia32" && options.target != "ppc")
    result.error = "--target must be ia32 or ppc";
  else if ((options.target == "ppc") != !options.emitObject.empty())
    result.error = "--target ppc and --emit-object OUT go together";
  return result;
}

std::string UsageLine() {
  return "usage: quorl [OPTIONS] FILE [ARGUMENTS...]\n"
         "       quorl [OPTIONS] -e TEXT [ARGUMENTS...]";
}

std::string VersionText() {
  return std::string("quorl ") + kRunnerVersion + "\n";
}

std::string HelpText() {
  return UsageLine() +
         "\n"
         "Compiles and runs the QuorlScript program in FILE ('-' reads it\n"
         "from standard input). Options come before FILE; what follows it\n"
         "belongs to the script.\n"
         "\n"
         "Options:\n" +
         OptionHelp() +
         "\n"
         "Print writes its text and a line feed to standard output. Input\n"
         "writes its prompt to standard output and reads one line from\n"
         "standard input; at the end of input it reads an empty line.\n"
         "Compile errors go to standard error as\n"
         "'FILE:LINE:COLUMN: error NUMBER: MESSAGE' with the line and a caret\n"
         "under the place, a runtime error as\n"
         "'FILE:LINE: runtime error: CLASS: MESSAGE'.\n"
         "\n"
         "The script's context:\n"
         "  ArgCount                     how many ARGUMENTS there are\n"
         "  Args(index As Integer)       one of them, from 0\n"
         "  Environment(name As String)  an environment variable; \"\" when unset\n"
         "  Quit(status As Integer)      ends the script at once with that exit\n"
         "                               status; Finally blocks still run\n"
         "\n"
         "Environment:\n"
         "  QUORL_PLUGIN  the script engine to load when --plugin is not\n"
         "                given; by default QuorlScriptPlugin.so beside quorl\n"
         "\n"
         "Exit status:\n"
         "  0   the script ran to its end (with --check: it compiles)\n"
         "  1   the script has compile errors\n"
         "  2   the script stopped with a runtime error\n"
         "  3   the script ran past its --time-limit\n"
         "  64  the command line is wrong\n"
         "  66  the script file cannot be read\n"
         "  69  the script engine cannot be loaded\n"
         "  70  the script engine failed\n"
         "  N   the script called Quit(N) (0 to 255)\n";
}

std::string DisplayName(RunnerOptions const& options) {
  if (options.hasProgramText) return kCommandLineProgramName;
  return options.file == kStandardInputOperand ? kStandardInputName
                                               : options.file;
}

}  // namespace runner
}  // namespace quorl
