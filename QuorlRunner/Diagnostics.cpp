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
  return text + "\n";
}

}  // namespace runner
}  // namespace quorl
