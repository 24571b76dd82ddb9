// Format(value, pattern): a number laid out by a pattern of placeholders.
//
// Choices: up to three sections separated by ';' serve positive, negative
// and zero values; with one section (or an empty negative section) a
// negative value gets a leading "-" in front of everything, unless it
// rounds to zero; the negative section shows the value without its sign.
// Digits beyond the integer placeholders all appear at the first one;
// halves round away from zero; the decimal point is shown only when a
// fractional digit follows it, so Format(0, "#") is empty, as '#' shows no
// zeros of its own. An empty pattern gives the text of Str, and
// so do NaN and the infinities.
#include <math.h>
#include <stdio.h>

#include "StandInHost/RuntimeLibrary/FormatPattern.h"
#include "StandInHost/RuntimeLibrary/LibraryEntries.h"
#include "StandInHost/RuntimeLibrary/LibraryText.h"
#include "StandInHost/RuntimeLibrary/NumberReading.h"

namespace quorl {
namespace standin {
namespace library {
namespace {

// The digits of a non-negative value rounded to `decimals` places, split at
// the decimal point.
struct Digits {
  std::string integer;
  std::string fraction;
};

// Scaling first makes exact halves (2.5, 0.125) round away from zero where
// printf would round them to even.
Digits RoundedDigits(double value, int decimals) {
  double scale = pow(10.0, decimals);
  if (value * scale < 1e15) value = round(value * scale) / scale;
  int length = snprintf(nullptr, 0, "%.*f", decimals, value);
  std::string all(length + 1, '\0');
  snprintf(&all[0], all.size(), "%.*f", decimals, value);
  all.resize(length);
  size_t point = all.find_first_of(".,");
  if (point == std::string::npos) return {all, std::string()};
  return {all.substr(0, point), all.substr(point + 1)};
}

// Drops the zeros that optional placeholders need not show.
void ApplyMinimums(Digits& digits, FormatPattern const& pattern) {
  if (digits.integer == "0") digits.integer.clear();
  while (static_cast<int>(digits.integer.size()) < pattern.minIntegerDigits)
    digits.integer.insert(0, 1, '0');
  while (static_cast<int>(digits.fraction.size()) > pattern.minFractionDigits &&
         digits.fraction.back() == '0')
    digits.fraction.pop_back();
}

// Emits integer digit `i` of `digits`, followed by a thousands separator
// where one is due.
void PutIntegerDigit(std::string& out, std::string const& digits, size_t i,
                     bool grouping) {
  out += digits[i];
  size_t remaining = digits.size() - 1 - i;
  if (grouping && remaining && remaining % 3 == 0) out += ',';
}

// Placeholders are filled from the right; the digits that find no
// placeholder all go to the first one, or in front of the point when the
// pattern has no integer placeholder at all.
std::string RenderInteger(FormatPattern const& pattern,
                          std::string const& digits) {
  std::string out;
  size_t count = digits.size();
  size_t slots = pattern.integerPlaceholders;
  size_t slot = 0;
  for (FormatToken const& token : pattern.integerPart) {
    if (!token.placeholder) {
      out += token.literal;
      continue;
    }
    if (slot == 0)
      for (size_t i = 0; i + slots < count; i++)
        PutIntegerDigit(out, digits, i, pattern.grouping);
    size_t fromRight = slots - 1 - slot++;
    if (fromRight < count)
      PutIntegerDigit(out, digits, count - 1 - fromRight, pattern.grouping);
  }
  if (!slots)
    for (size_t i = 0; i < count; i++)
      PutIntegerDigit(out, digits, i, pattern.grouping);
  return out;
}

std::string RenderFraction(FormatPattern const& pattern,
                           std::string const& digits) {
  std::string out = digits.empty() ? "" : ".";
  size_t slot = 0;
  for (FormatToken const& token : pattern.fractionPart) {
    if (!token.placeholder)
      out += token.literal;
    else if (slot < digits.size())
      out += digits[slot++];
  }
  return out;
}

std::string RenderSection(std::string const& section, double magnitude,
                          bool minus) {
  FormatPattern pattern = ParseFormatPattern(section);
  if (pattern.percent) magnitude *= 100;
  Digits digits = RoundedDigits(magnitude, pattern.fractionPlaceholders);
  bool allZero = digits.integer.find_first_not_of('0') == std::string::npos &&
                 digits.fraction.find_first_not_of('0') == std::string::npos;
  ApplyMinimums(digits, pattern);
  std::string sign = minus && !allZero ? "-" : "";
  return sign + RenderInteger(pattern, digits.integer) +
         RenderFraction(pattern, digits.fraction);
}

// Picks the section for the value's sign; an absent or empty section falls
// back to the first, with a minus sign for negative values.
std::string FormatText(double value, std::string const& formatText) {
  if (formatText.empty() || isnan(value) || isinf(value)) return DoubleText(value);
  std::vector<std::string> sections = SplitFormatSections(formatText);
  if (value < 0 && sections.size() > 1 && !sections[1].empty())
    return RenderSection(sections[1], -value, false);
  if (value == 0 && sections.size() > 2 && !sections[2].empty())
    return RenderSection(sections[2], 0, false);
  return RenderSection(sections[0], fabs(value), value < 0);
}

stringStorage* StringFormat(double value, stringStorage* formatText) {
  string view = CharacterView(formatText);
  std::string text =
      FormatText(value, std::string(view.CString(), view.Length()));
  unsigned long tag = view.IsEmpty() ? (unsigned long)kEncodingASCII
                                     : view.Encoding();
  return HandOut(MakeText(text, tag));
}

}  // namespace

LibraryEntries FormatEntries() {
  return {Entry<&StringFormat>("StringFormat")};
}

}  // namespace library
}  // namespace standin
}  // namespace quorl
