#include "QuorlRunner/ConsoleEvents.h"

#include "Plugin/CompileErrorMessages.h"

namespace quorl {
namespace runner {
namespace {

void Write(std::FILE* stream, std::string const& text) {
  std::fwrite(text.data(), 1, text.size(), stream);
}

// Reports come after the output that preceded them, even when standard
// output is a buffered pipe.
void Report(Console const& console, std::string const& text) {
  std::fflush(console.out);
  Write(console.err, text + "\n");
}

// Lines count from 0 in the engine and from 1 for people.
std::string CompileErrorLine(std::string const& fileName, int line,
                             int number) {
  return fileName + ":" + std::to_string(line + 1) + ": error " +
         std::to_string(number) + ": " + CompileErrorSummary(number);
}

// An exception nobody caught, with the line it was raised at when known
// and its message when it has one.
std::string RuntimeErrorLine(std::string const& fileName,
                             ScriptError const& error) {
  std::string where =
      error.line > 0 ? fileName + ":" + std::to_string(error.line) : fileName;
  std::string text = where + ": runtime error: " + error.exceptionClass;
  return error.message.empty() ? text : text + ": " + error.message;
}

}  // namespace

std::string ReadLine(std::FILE* in) {
  std::string line;
  int c;
  while ((c = std::fgetc(in)) != EOF && c != '\n') line += static_cast<char>(c);
  if (!line.empty() && line.back() == '\r') line.pop_back();
  return line;
}

void ConnectConsole(Script& script, Console const& console,
                    std::string const& fileName, EventCounts& counts) {
  script.OnPrint([console](std::string const& message) {
    Write(console.out, message + "\n");
  });
  script.OnInput([console](std::string const& prompt) {
    Write(console.out, prompt);
    std::fflush(console.out);
    return ReadLine(console.in);
  });
  script.OnCompilerError([console, fileName, &counts](int line, int number,
                                                      std::string const&) {
    ++counts.compileErrors;
    Report(console, CompileErrorLine(fileName, line, number));
  });
  script.OnError([console, fileName, &counts](ScriptError const& error) {
    if (error.kind != ScriptError::Kind::Runtime) return;
    ++counts.runtimeErrors;
    Report(console, RuntimeErrorLine(fileName, error));
  });
}

void DisconnectConsole(Script& script) {
  script.OnPrint(nullptr);
  script.OnInput(nullptr);
  script.OnCompilerError(nullptr);
  script.OnError(nullptr);
}

}  // namespace runner
}  // namespace quorl
