#include "QuorlRunner/ConsoleEvents.h"

#include "QuorlRunner/Diagnostics.h"

namespace quorl {
namespace runner {
namespace {

int const kSyntaxErrorNumber = 1;

void Write(std::FILE* stream, std::string const& text) {
  std::fwrite(text.data(), 1, text.size(), stream);
}

// Reports come after the output that preceded them, even when standard
// output is a buffered pipe.
void Report(Console const& console, std::string const& text) {
  std::fflush(console.out);
  Write(console.err, text);
}

// One mistake often makes more than one report: the parser's recovery
// may stumble again on the rest of a line it could not read, and one place
// may be reported twice. Only the first report of a place, and nothing
// after a syntax error on the same line, reaches the user.
bool IsEcho(EventCounts& counts, ScriptError const& error) {
  if (error.line == 0) return false;
  if (error.line == counts.syntaxErrorLine) return true;
  if (error.number == kSyntaxErrorNumber) counts.syntaxErrorLine = error.line;
  return !counts.reported.insert({error.line, error.column, error.number}).second;
}

void ReportError(Console const& console, std::string const& fileName,
                 std::string const& source, EventCounts& counts,
                 ScriptError const& error) {
  switch (error.kind) {
    case ScriptError::Kind::Compile:
      if (!IsEcho(counts, error))
        Report(console, FormatCompileError(fileName, source, error));
      ++counts.compileErrors;
      break;
    case ScriptError::Kind::Runtime:
      ++counts.runtimeErrors;
      Report(console, FormatRuntimeError(fileName, error));
      break;
    case ScriptError::Kind::Stopped:
      counts.stopped = true;
      break;
  }
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
                    std::string const& fileName, std::string const& source,
                    EventCounts& counts) {
  script.OnPrint([console](std::string const& message) {
    Write(console.out, message + "\n");
  });
  script.OnInput([console](std::string const& prompt) {
    Write(console.out, prompt);
    std::fflush(console.out);
    return ReadLine(console.in);
  });
  script.OnError([console, fileName, &source, &counts](ScriptError const& error) {
    ReportError(console, fileName, source, counts, error);
  });
}

void DisconnectConsole(Script& script) {
  script.OnPrint(nullptr);
  script.OnInput(nullptr);
  script.OnError(nullptr);
}

}  // namespace runner
}  // namespace quorl
