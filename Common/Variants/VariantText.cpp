// Numbers to text and text to numbers, for variants that change between
// the two. The digits agree with the script's Str and Val.
#include <math.h>
#include <stdio.h>

#include <string>

#include "Common/Variants/VariantValues.h"
#include "Universal/ByteHelpers.h"

namespace variants {
namespace {

int const kCurrencyScale = 10000;
int const kCurrencyDecimals = 4;
// The red, green and blue bytes of a colour word.
uint32_t const kColorComponents = 0xFFFFFF;

bool IsDigitIn(char c, int radix) {
  int value = c >= '0' && c <= '9'   ? c - '0'
              : c >= 'a' && c <= 'z' ? c - 'a' + 10
              : c >= 'A' && c <= 'Z' ? c - 'A' + 10
                                     : radix;
  return value < radix;
}

int DigitOf(char c) { return c <= '9' ? c - '0' : (c | 0x20) - 'a' + 10; }

// The radix that "&h", "&o" or "&b" names; 0 for none.
int PrefixRadix(char letter) {
  switch (letter | 0x20) {
    case 'h': return 16;
    case 'o': return 8;
    case 'b': return 2;
    default: return 0;
  }
}

// HexVal, OctVal and BinVal: the digits of the radix after the prefix, as
// an unsigned number that wraps at 64 bits.
double RadixVal(char const* text, int radix) {
  unsigned long long value = 0;
  for (; IsDigitIn(*text, radix); text++)
    value = value * radix + DigitOf(*text);
  return static_cast<double>(value);
}

// Copies the digits at `text` to `out`; answers how many there were.
size_t CopyDigits(char const*& text, std::string& out) {
  size_t count = 0;
  for (; *text >= '0' && *text <= '9'; text++, count++) out += *text;
  return count;
}

}  // namespace

// Leading blanks are skipped; the number ends where its form does, and text
// without one reads as 0.
double DuplicateVal(stringStorage* storage) {
  string held(storage);
  char const* text = held.CString();
  while (*text == ' ' || *text == '\t') text++;
  if (text[0] == '&' && text[1] && PrefixRadix(text[1]))
    return RadixVal(text + 2, PrefixRadix(text[1]));
  std::string number;
  if (*text == '-' || *text == '+') number += *text++;
  size_t digits = CopyDigits(text, number);
  if (*text == '.') {
    number += *text++;
    digits += CopyDigits(text, number);
  }
  if (!digits) return 0;
  if ((*text | 0x20) == 'e') {
    std::string exponent = "e";
    char const* at = text + 1;
    if (*at == '-' || *at == '+') exponent += *at++;
    if (CopyDigits(at, exponent)) number += exponent;
  }
  return uatod(number.c_str());
}

string WholeNumberText(int64_t value, bool isUnsigned) {
  return isUnsigned ? uulltoa(static_cast<uint64_t>(value)) : ulltoa(value);
}

// A locale's decimal comma becomes the script's point.
string RealNumberText(double value, int significantDigits) {
  if (isnan(value)) return string("NaN");
  if (isinf(value)) return string(value < 0 ? "-INF" : "INF");
  if (value == 0) return string("0");
  char text[48];
  snprintf(text, sizeof text, "%.*g", significantDigits, value);
  for (char* c = text; *c; c++)
    if (*c == ',') *c = '.';
  return string(text);
}

// Whole units, then the fraction without its trailing zeros.
string CurrencyText(int64_t value) {
  uint64_t magnitude = value < 0 ? 0 - static_cast<uint64_t>(value)
                                 : static_cast<uint64_t>(value);
  uint64_t units = magnitude / kCurrencyScale;
  unsigned fraction = static_cast<unsigned>(magnitude % kCurrencyScale);
  char text[48];
  int length = snprintf(text, sizeof text, "%s%llu", value < 0 ? "-" : "",
                        static_cast<unsigned long long>(units));
  if (fraction) {
    length += snprintf(text + length, sizeof text - length, ".%0*u",
                       kCurrencyDecimals, fraction);
    while (text[length - 1] == '0') text[--length] = 0;
  }
  return string(text);
}

string ColorText(uint32_t value) {
  char text[16];
  snprintf(text, sizeof text, "&c%06X",
           static_cast<unsigned>(value & kColorComponents));
  return string(text);
}

}  // namespace variants
