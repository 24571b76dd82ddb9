// The mutator: a few edits to one corpus script. Edits work on lines and
// on words, the units a person editing a script slips on.
#include <cctype>

#include "tests/fuzz/ProgramGenerator.h"

namespace fuzz {
namespace {

char const* const kEdgeNumbers[] = {
    "0",  "-1", "2147483647", "-2147483648", "4294967296", "1e308", "-1e308",
    "9223372036854775807", "&hFFFFFFFF", "0.0", "1e-320", "65535", "256"};

char const* const kKeywords[] = {
    "If", "Then", "End", "For", "Next", "While", "Wend", "Do", "Loop",
    "Function", "Sub", "Class", "Module", "Try", "Catch", "Finally", "Raise",
    "New", "Nil", "Dim", "As", "ByRef", "Return", "Exit", "Select", "Case",
    "(", ")", ",", ".", "=", "+", "-", "*", "/", "\\", "Mod", "Not", "\"", "&",
    "Redim", "Static", "Const", "Me", "Super", "Interface", "Extends"};

int Below(Random& random, size_t n) {
  return n ? std::uniform_int_distribution<int>(0, int(n) - 1)(random) : 0;
}

std::vector<std::string> Lines(std::string const& text) {
  std::vector<std::string> lines;
  size_t start = 0;
  while (start <= text.size()) {
    size_t end = text.find('\n', start);
    if (end == std::string::npos) end = text.size();
    lines.push_back(text.substr(start, end - start));
    start = end + 1;
  }
  return lines;
}

// Words and the single characters between them, so that joining them back
// gives the line.
std::vector<std::string> Words(std::string const& line) {
  std::vector<std::string> words;
  for (size_t at = 0; at < line.size();) {
    size_t end = at;
    while (end < line.size() &&
           (std::isalnum(static_cast<unsigned char>(line[end])) || line[end] == '_'))
      end++;
    if (end == at) end = at + 1;
    words.push_back(line.substr(at, end - at));
    at = end;
  }
  return words;
}

std::string Join(std::vector<std::string> const& parts, char const* between) {
  std::string text;
  for (size_t k = 0; k < parts.size(); k++) {
    if (k) text += between;
    text += parts[k];
  }
  return text;
}

std::string AnyWord(Random& random, std::vector<std::string> const& corpus) {
  std::vector<std::string> lines = Lines(corpus[Below(random, corpus.size())]);
  std::vector<std::string> words = Words(lines[Below(random, lines.size())]);
  return words.empty() ? "x" : words[Below(random, words.size())];
}

void EditWord(Random& random, std::string& line,
              std::vector<std::string> const& corpus) {
  std::vector<std::string> words = Words(line);
  if (words.empty()) return;
  std::string& word = words[Below(random, words.size())];
  switch (Below(random, 4)) {
    case 0: word = kEdgeNumbers[Below(random, std::size(kEdgeNumbers))]; break;
    case 1: word = kKeywords[Below(random, std::size(kKeywords))]; break;
    case 2: word = AnyWord(random, corpus); break;
    default: word.clear(); break;
  }
  line = Join(words, "");
}

}  // namespace

std::string MutateProgram(Random& random,
                          std::vector<std::string> const& corpus) {
  std::vector<std::string> lines = Lines(corpus[Below(random, corpus.size())]);
  int edits = 1 + Below(random, 4);
  for (int k = 0; k < edits && !lines.empty(); k++) {
    size_t at = Below(random, lines.size());
    switch (Below(random, 7)) {
      case 0: lines.erase(lines.begin() + at); break;
      case 1: lines.insert(lines.begin() + at, lines[Below(random, lines.size())]); break;
      case 2: std::swap(lines[at], lines[Below(random, lines.size())]); break;
      case 3: lines[at] = lines[at].substr(0, Below(random, lines[at].size() + 1)); break;
      case 4: {
        std::vector<std::string> other = Lines(corpus[Below(random, corpus.size())]);
        lines.insert(lines.begin() + at, other[Below(random, other.size())]);
        break;
      }
      default: EditWord(random, lines[at], corpus); break;
    }
  }
  return Join(lines, "\n");
}

}  // namespace fuzz
