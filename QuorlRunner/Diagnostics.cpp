#include "QuorlRunner/Diagnostics.h"

namespace quorl {
namespace runner {
namespace {

// The gutter before an excerpt: the line number, right aligned, and a bar.
std::string Gutter(std::string const& number, size_t width) {
  std::string gutter(width - number.size() + 1, ' ');
  return gutter + number + " | ";
}

bool IsContinuationByte(char c) { return (static_cast<unsigned char>(c) & 0xC0) == 0x80; }

std::string Place(std::string const& fileName, ScriptError const& error,
                  bool withColumn) {
  std::string place = fileName;
  if (error.line > 0) place += ":" + std::to_string(error.line);
  if (error.line > 0 && withColumn && error.column > 0)
    place += ":" + std::to_string(error.column);
  return place;
}

// Below the error line, the frames of the script where the exception was
// raised, innermost first, as "  at Leaf (FILE:LINE)"; a frame repeated
// more than kRepeatsShown times in a row (a recursion) is shown once with
// the count of its repeats. Each line ends in a line feed.
size_t const kRepeatsShown = 3;

std::string CallStackText(ScriptError const& error, std::string const& fileName) {
  std::vector<StackFrame> const& frames = error.callStack;
  std::string text;
  for (size_t i = 0; i < frames.size();) {
    size_t same = i + 1;
    while (same < frames.size() && frames[same].function == frames[i].function &&
           frames[same].line == frames[i].line)
      same++;
    size_t shown = same - i > kRepeatsShown ? 1 : same - i;
    for (size_t k = 0; k < shown; k++)
      text += "  at " + frames[i].function + " (" + fileName + ":" +
              std::to_string(frames[i].line) + ")\n";
    if (shown < same - i)
      text += "  ... the same " + std::to_string(same - i - 1) + " more times\n";
    i = same;
  }
  if (!error.callStackComplete) text += "  ... and deeper frames\n";
  return text;
}

}  // namespace

bool SourceLine(std::string const& source, int line, std::string& text) {
  if (line < 1) return false;
  size_t start = 0;
  for (int n = 1; n < line; ++n) {
    start = source.find('\n', start);
    if (start == std::string::npos) return false;
    ++start;
  }
  if (start >= source.size() && line > 1) return false;
  size_t end = source.find('\n', start);
  text = source.substr(start, end == std::string::npos ? end : end - start);
  if (!text.empty() && text.back() == '\r') text.pop_back();
  return true;
}

std::string CaretLine(std::string const& lineText, int column) {
  std::string caret;
  size_t before = column > 0 ? static_cast<size_t>(column - 1) : 0;
  for (size_t i = 0; i < before && i < lineText.size(); ++i) {
    if (lineText[i] == '\t')
      caret += '\t';
    else if (!IsContinuationByte(lineText[i]))
      caret += ' ';
  }
  return caret + "^";
}

std::string FormatCompileError(std::string const& fileName,
                               std::string const& source,
                               ScriptError const& error) {
  std::string text = Place(fileName, error, true) + ": error " +
                     std::to_string(error.number) + ": " +
                     (error.message.empty() ? error.summary : error.message) + "\n";
  std::string lineText;
  if (!SourceLine(source, error.line, lineText)) return text;
  std::string number = std::to_string(error.line);
  text += Gutter(number, number.size()) + lineText + "\n";
  if (error.column > 0)
    text += Gutter("", number.size()) + CaretLine(lineText, error.column) + "\n";
  return text;
}

std::string FormatRuntimeError(std::string const& fileName,
                               ScriptError const& error) {
  std::string text = Place(fileName, error, false) + ": runtime error: " +
                     error.exceptionClass;
  if (!error.message.empty()) text += ": " + error.message;
  return text + "\n" + CallStackText(error, fileName);
}

}  // namespace runner
}  // namespace quorl
