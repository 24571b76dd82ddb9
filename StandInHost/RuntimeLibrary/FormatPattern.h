// A Format pattern, taken apart: the placeholders and literal text on each
// side of the decimal point, and the options that act on the whole number.
#ifndef STANDINHOST_RUNTIMELIBRARY_FORMATPATTERN_H
#define STANDINHOST_RUNTIMELIBRARY_FORMATPATTERN_H

#include <string>
#include <vector>

namespace quorl {
namespace standin {
namespace library {

// One element of a pattern: a digit placeholder ('#' or '0') or literal
// bytes shown as they stand.
struct FormatToken {
  bool placeholder;
  std::string literal;
};

struct FormatPattern {
  std::vector<FormatToken> integerPart;
  std::vector<FormatToken> fractionPart;
  int integerPlaceholders = 0;
  int minIntegerDigits = 0;  // placeholders from the first '0' to the point
  int fractionPlaceholders = 0;
  int minFractionDigits = 0;  // placeholders up to the last '0'
  bool grouping = false;      // a ',' before the point
  bool percent = false;       // a '%' anywhere
};

// Splits a format text into its sections at the semicolons that are not
// quoted or escaped.
std::vector<std::string> SplitFormatSections(std::string const& formatText);

// Reads one section. Codes: '#' a digit if there is one, '0' a digit or a
// zero, '.' the decimal point (the first one), ',' thousands grouping in
// the integer part, '%' the value in hundredths; '\' shows the next
// character as it is, and text between double quotes is shown as it is.
// Everything else is literal.
FormatPattern ParseFormatPattern(std::string const& section);

}  // namespace library
}  // namespace standin
}  // namespace quorl

#endif
