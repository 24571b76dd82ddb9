// Taking Format patterns apart.
#include "StandInHost/RuntimeLibrary/FormatPattern.h"

#include "Universal/Encodings.h"

namespace quorl {
namespace standin {
namespace library {
namespace {

// Length of the literal or quoted run that starts at `at`: an escape with
// its whole (UTF-8) character, a quoted text with its quotes, or one byte.
size_t QuotedRunLength(std::string const& text, size_t at) {
  if (text[at] == '\\' && at + 1 < text.size())
    return 1 + UTF8SequenceLength(static_cast<unsigned char>(text[at + 1]));
  if (text[at] == '"') {
    size_t close = text.find('"', at + 1);
    return close == std::string::npos ? text.size() - at : close - at + 1;
  }
  return 1;
}

// The shown text of a quoted run: the bytes without the escape or quotes.
std::string QuotedRunText(std::string const& run) {
  if (run[0] == '\\') return run.substr(1);
  if (run[0] == '"') {
    size_t end = run.size() > 1 && run.back() == '"' ? run.size() - 1 : run.size();
    return run.substr(1, end - 1);
  }
  return run;
}

void AddLiteral(std::vector<FormatToken>& tokens, std::string const& text) {
  if (!tokens.empty() && !tokens.back().placeholder)
    tokens.back().literal += text;
  else
    tokens.push_back({false, text});
}

void AddPlaceholder(FormatPattern& pattern, bool inFraction, bool zero) {
  if (inFraction) {
    pattern.fractionPart.push_back({true, std::string()});
    pattern.fractionPlaceholders++;
    if (zero) pattern.minFractionDigits = pattern.fractionPlaceholders;
    return;
  }
  pattern.integerPart.push_back({true, std::string()});
  pattern.integerPlaceholders++;
  if (zero || pattern.minIntegerDigits) pattern.minIntegerDigits++;
}

}  // namespace

std::vector<std::string> SplitFormatSections(std::string const& formatText) {
  std::vector<std::string> sections(1);
  for (size_t at = 0; at < formatText.size();) {
    size_t run = QuotedRunLength(formatText, at);
    if (run == 1 && formatText[at] == ';')
      sections.emplace_back();
    else
      sections.back() += formatText.substr(at, run);
    at += run;
  }
  return sections;
}

FormatPattern ParseFormatPattern(std::string const& section) {
  FormatPattern pattern;
  bool inFraction = false;
  for (size_t at = 0; at < section.size();) {
    size_t run = QuotedRunLength(section, at);
    char code = run == 1 ? section[at] : 0;
    std::vector<FormatToken>& tokens =
        inFraction ? pattern.fractionPart : pattern.integerPart;
    if (code == '#' || code == '0')
      AddPlaceholder(pattern, inFraction, code == '0');
    else if (code == '.' && !inFraction)
      inFraction = true;
    else if (code == ',' && !inFraction)
      pattern.grouping = true;
    else {
      if (code == '%') pattern.percent = true;
      AddLiteral(tokens, QuotedRunText(section.substr(at, run)));
    }
    at += run;
  }
  return pattern;
}

}  // namespace library
}  // namespace standin
}  // namespace quorl
