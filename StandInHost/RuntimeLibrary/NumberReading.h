// Reading and writing numbers as script text, shared by Val, CDbl, Str,
// CStr and Format.
#ifndef STANDINHOST_RUNTIMELIBRARY_NUMBERREADING_H
#define STANDINHOST_RUNTIMELIBRARY_NUMBERREADING_H

#include <string>
#include <string_view>

namespace quorl {
namespace standin {
namespace library {

// The number at the start of the text, after blanks and tabs: a decimal
// with an optional sign, fraction and exponent, or an unsigned integer
// after "&h", "&o" or "&b" (any case). The rest is ignored; 0 when no
// number stands there. With `thousands`, commas between the digits of the
// integer part are skipped.
double ReadLeadingNumber(std::string_view text, bool thousands);

// The digits of an integral `value` below 1e15 in magnitude, as DoubleText
// writes them, into `buffer` of kShortIntegerTextSize bytes (no NUL), and
// their count; false for any other value.
const size_t kShortIntegerTextSize = 24;
bool ShortIntegerText(double value, char* buffer, size_t* length);

// The shortest faithful decimal text of at most 15 significant digits, with
// "." as the decimal point whatever the locale; "-0" is "0", and the
// non-numbers read "NaN", "INF" and "-INF".
std::string DoubleText(double value);

}  // namespace library
}  // namespace standin
}  // namespace quorl

#endif
