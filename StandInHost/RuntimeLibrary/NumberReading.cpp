// Number text: the reader behind Val and CDbl, the writer behind Str.
#include "StandInHost/RuntimeLibrary/NumberReading.h"

#include <ctype.h>
#include <math.h>
#include <stdint.h>
#include <stdio.h>
#include <string.h>

#include "Universal/ByteHelpers.h"

namespace quorl {
namespace standin {
namespace library {
namespace {

int DigitValue(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  c = static_cast<char>(tolower(static_cast<unsigned char>(c)));
  if (c >= 'a' && c <= 'z') return c - 'a' + 10;
  return 99;
}

int RadixOfPrefix(char letter) {
  switch (tolower(static_cast<unsigned char>(letter))) {
    case 'h': return 16;
    case 'o': return 8;
    case 'b': return 2;
    default: return 0;
  }
}

// Digits of the radix from `at`; the value wraps at 64 bits.
double ReadRadixDigits(std::string_view text, size_t at, int radix) {
  unsigned long long value = 0;
  for (; at < text.size() && DigitValue(text[at]) < radix; at++)
    value = value * radix + DigitValue(text[at]);
  return static_cast<double>(value);
}

bool IsDigit(std::string_view text, size_t at) {
  return at < text.size() && text[at] >= '0' && text[at] <= '9';
}

// Copies a run of digits to `out`, skipping commas that stand between
// digits when `thousands` allows; returns how many digits were copied.
size_t CopyDigits(std::string_view text, size_t& at, std::string& out,
                  bool thousands) {
  size_t copied = 0;
  while (IsDigit(text, at) ||
         (thousands && copied && text[at] == ',' && IsDigit(text, at + 1))) {
    if (text[at] != ',') {
      out += text[at];
      copied++;
    }
    at++;
  }
  return copied;
}

// An exponent counts only when at least one digit follows its sign.
void CopyExponent(std::string_view text, size_t at, std::string& out) {
  if (at >= text.size() || (text[at] != 'e' && text[at] != 'E')) return;
  std::string exponent = "e";
  at++;
  if (at < text.size() && (text[at] == '+' || text[at] == '-'))
    exponent += text[at++];
  if (CopyDigits(text, at, exponent, false)) out += exponent;
}

// Up to 15 digits make an integer that a double holds exactly: such a number
// needs none of the general (and locale-guarded) conversion.
const size_t kExactDigits = 15;
// Exact powers of ten for the digits after the ninth.
const double kPowersOfTen[] = {1, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6};
// Integers below this print as their digits under "%.15g" too.
const double kLargestShortInteger = 1e15;

// The plain integer of at most 15 digits that stands at `at` (after any
// sign), when nothing that would continue the number follows it.
bool ReadShortInteger(std::string_view text, size_t at, bool thousands,
                      double* value) {
  // Nine digits fit 32 bits, whose conversion to a double is the cheap one
  // here; the six that may follow make a second part.
  const size_t kLeadingDigits = 9;
  size_t first = at;
  uint32_t leading = 0, trailing = 0;
  for (; IsDigit(text, at) && at - first < kLeadingDigits; at++)
    leading = leading * 10 + (text[at] - '0');
  size_t trailingFirst = at;
  for (; IsDigit(text, at); at++) trailing = trailing * 10 + (text[at] - '0');
  size_t count = at - first;
  if (!count || count > kExactDigits) return false;
  if (at < text.size() && (text[at] == '.' || text[at] == 'e' ||
                           text[at] == 'E' || (thousands && text[at] == ',')))
    return false;
  *value = static_cast<int32_t>(leading);
  if (at > trailingFirst)
    *value = *value * kPowersOfTen[at - trailingFirst] +
             static_cast<int32_t>(trailing);
  return true;
}

}  // namespace

namespace {

// The integer that the magnitude bits of a double hold, if they hold one.
// Read from the bits alone: on this target every conversion between a
// double and an integer goes through the FPU and memory, and costs more
// than the digits themselves.
bool IntegerOf(uint64_t magnitude, uint64_t* integer) {
  const int kFractionBits = 52, kExponentBias = 1023, kIntegerBits = 63;
  if (!magnitude) {
    *integer = 0;
    return true;
  }
  int exponent = static_cast<int>(magnitude >> kFractionBits) - kExponentBias;
  if (exponent < 0 || exponent >= kIntegerBits) return false;
  uint64_t significand = (magnitude & ((uint64_t(1) << kFractionBits) - 1)) |
                         (uint64_t(1) << kFractionBits);
  if (exponent >= kFractionBits) {
    *integer = significand << (exponent - kFractionBits);
    return true;
  }
  int fractionBits = kFractionBits - exponent;
  *integer = significand >> fractionBits;
  return (significand & ((uint64_t(1) << fractionBits) - 1)) == 0;
}

}  // namespace

// The digits of the usual numbers come from 32-bit divisions.
bool ShortIntegerText(double value, char* buffer, size_t* length) {
  const uint32_t kNineDigits = 1000000000;
  const uint64_t kSignBit = uint64_t(1) << 63;
  uint64_t bits, integer;
  memcpy(&bits, &value, sizeof bits);
  if (!IntegerOf(bits & ~kSignBit, &integer) ||
      integer >= static_cast<uint64_t>(kLargestShortInteger))
    return false;
  uint32_t high = 0, low = static_cast<uint32_t>(integer);
  if (integer >= kNineDigits) {
    high = static_cast<uint32_t>(integer / kNineDigits);
    low = static_cast<uint32_t>(integer % kNineDigits);
  }
  char* end = buffer + kShortIntegerTextSize;
  char* at = end;
  // Nine digits of the low half, leading zeros included when a high half
  // follows; at least one digit.
  for (int digit = 0; digit < 9 && (low || high || at == end); digit++) {
    *--at = static_cast<char>('0' + low % 10);
    low /= 10;
  }
  for (; high; high /= 10) *--at = static_cast<char>('0' + high % 10);
  if ((bits & kSignBit) && integer) *--at = '-';
  *length = end - at;
  memmove(buffer, at, *length);
  return true;
}

double ReadLeadingNumber(std::string_view text, bool thousands) {
  size_t at = 0;
  while (at < text.size() && (text[at] == ' ' || text[at] == '\t')) at++;
  if (at + 1 < text.size() && text[at] == '&' && RadixOfPrefix(text[at + 1]))
    return ReadRadixDigits(text, at + 2, RadixOfPrefix(text[at + 1]));
  size_t sign = at;
  if (at < text.size() && (text[at] == '-' || text[at] == '+')) at++;
  double integer;
  if (ReadShortInteger(text, at, thousands, &integer))
    return at > sign && text[sign] == '-' ? -integer : integer;
  std::string number(text.substr(sign, at - sign));
  size_t digits = CopyDigits(text, at, number, thousands);
  if (at < text.size() && text[at] == '.') {
    number += text[at++];
    digits += CopyDigits(text, at, number, false);
  }
  if (!digits) return 0;
  CopyExponent(text, at, number);
  return uatod(number.c_str());
}

std::string DoubleText(double value) {
  if (isnan(value)) return "NaN";
  if (isinf(value)) return value < 0 ? "-INF" : "INF";
  if (value == 0) return "0";
  char digits[kShortIntegerTextSize];
  size_t length;
  if (ShortIntegerText(value, digits, &length))
    return std::string(digits, length);
  char text[40];
  snprintf(text, sizeof text, "%.15g", value);
  for (char* c = text; *c; c++)
    if (*c == ',') *c = '.';  // a locale's decimal comma
  return text;
}

}  // namespace library
}  // namespace standin
}  // namespace quorl
