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
// and its message when it has one. The detail of the error came just
// before its event.
std::string RuntimeErrorLine(Script const& script, std::string const& fileName,
                             std::string const& exceptionClass) {
  std::vector<ScriptError> const& errors = script.Errors();
  if (errors.empty() || errors.back().kind != ScriptError::Kind::Runtime)
    return fileName + ": runtime error: " + exceptionClass;
  ScriptError const& error = errors.back();
  std::string where =
      error.line > 0 ? fileName + ":" + std::to_string(error.line) : fileName;
  std::string text = where + ": runtime error: " + error.exceptionClass;
  return error.message.empty() ? text : text + ": " + error.message;
}

// Below the error line, the frames of the script where the exception was
// raised, innermost first, as "  at Leaf (FILE:LINE)"; a frame repeated
// more than kRepeatsShown times in a row (a recursion) is shown once with
// the count of its repeats. The detail of the error came just before its
// event.
size_t const kRepeatsShown = 3;

std::string CallStackText(Script const& script, std::string const& fileName) {
  std::vector<ScriptError> const& errors = script.Errors();
  if (errors.empty() || errors.back().kind != ScriptError::Kind::Runtime)
    return "";
  std::vector<StackFrame> const& frames = errors.back().callStack;
  std::string text;
  for (size_t i = 0; i < frames.size();) {
    size_t same = i + 1;
    while (same < frames.size() && frames[same].function == frames[i].function &&
           frames[same].line == frames[i].line)
      same++;
    size_t shown = same - i > kRepeatsShown ? 1 : same - i;
    for (size_t k = 0; k < shown; k++)
      text += "\n  at " + frames[i].function + " (" + fileName + ":" +
              std::to_string(frames[i].line) + ")";
    if (shown < same - i)
      text += "\n  ... the same " + std::to_string(same - i - 1) + " more times";
    i = same;
  }
  if (!errors.back().callStackComplete) text += "\n  ... and deeper frames";
  return text;
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
  script.OnRuntimeError([console, fileName, &counts, &script](
                            int, std::string const& exceptionClass) {
    ++counts.runtimeErrors;
    Report(console, RuntimeErrorLine(script, fileName, exceptionClass) +
                        CallStackText(script, fileName));
  });
}

void DisconnectConsole(Script& script) {
  script.OnPrint(nullptr);
  script.OnInput(nullptr);
  script.OnCompilerError(nullptr);
  script.OnRuntimeError(nullptr);
}

}  // namespace runner
}  // namespace quorl
