#include "QuorlRunner/CommandLine.h"

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

bool AddOperand(std::string const& operand, CommandLine& result) {
  if (!result.options.file.empty()) {
    result.error = "too many arguments: '" + operand + "'";
    return false;
  }
  result.options.file = operand;
  return true;
}

std::string OptionHelp() {
  std::string text;
  for (OptionRow const& option : Options()) {
    std::string left = std::string("  --") + option.name;
    if (option.valueName) left += std::string(" ") + option.valueName;
    if (option.shortName) left += std::string(", ") + option.shortName;
    left.resize(left.size() < 20 ? 20 : left.size() + 1, ' ');
    text += left + option.help + "\n";
  }
  return text;
}

}  // namespace

CommandLine ParseCommandLine(std::vector<std::string> const& arguments) {
  CommandLine result;
  bool optionsEnded = false;
  for (size_t i = 0; i < arguments.size(); ++i) {
    std::string const& argument = arguments[i];
    if (!optionsEnded && argument == "--") {
      optionsEnded = true;
      continue;
    }
    bool ok = !optionsEnded && IsOption(argument)
                  ? ApplyOption(arguments, i, result)
                  : AddOperand(argument, result);
    if (!ok) return result;
  }
  if (result.options.timeLimit < 0)
    result.error = "--time-limit needs a positive number of seconds";
  else if (result.options.file.empty() && !result.options.help)
    result.error = "no script file given";
  else if (result.options.target != "ia32" && result.options.target != "ppc")
    result.error = "--target must be ia32 or ppc";
  else if ((result.options.target == "ppc") != !result.options.emitObject.empty())
    result.error = "--target ppc and --emit-object OUT go together";
  return result;
}

std::string UsageLine() { return "usage: quorl [OPTIONS] FILE"; }

std::string HelpText() {
  return UsageLine() +
         "\n"
         "Compiles and runs the QuorlScript program in FILE ('-' reads it\n"
         "from standard input).\n"
         "\n"
         "Options:\n" +
         OptionHelp() +
         "\n"
         "Print writes its text and a line feed to standard output. Input\n"
         "writes its prompt to standard output and reads one line from\n"
         "standard input; at the end of input it reads an empty line.\n"
         "Compile errors go to standard error as 'FILE:LINE: error NUMBER:\n"
         "MESSAGE', an uncaught exception as 'FILE:LINE: runtime error:\n"
         "CLASS: MESSAGE'.\n"
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
         "  70  the script engine failed\n";
}

std::string DisplayName(RunnerOptions const& options) {
  return options.file == kStandardInputOperand ? kStandardInputName
                                               : options.file;
}

}  // namespace runner
}  // namespace quorl
