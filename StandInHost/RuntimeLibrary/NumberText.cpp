// Numbers to text and back: Val, CDbl, Str, CStr, Hex, Oct, Bin.
//
// Choices: Val and CDbl read the number at the start of the text and ignore
// the rest (0 when there is none); CDbl also skips thousands separators
// (CDbl("1,234.5") is 1234.5), Val stops at a comma. The "&h", "&o" and
// "&b" forms read unsigned values ("&hFFFFFFFF" is 4294967295). Str and
// CStr give the same text, of at most 15 significant digits. Hex, Oct and
// Bin show the 32-bit two's complement of negative values, in upper case,
// without leading zeros.
#include <stdio.h>

#include "StandInHost/RuntimeLibrary/LibraryEntries.h"
#include "StandInHost/RuntimeLibrary/LibraryText.h"
#include "StandInHost/RuntimeLibrary/NumberReading.h"

namespace quorl {
namespace standin {
namespace library {
namespace {

// The number is read in place: only its own digits are copied.
double ReadNumber(stringStorage* text, bool thousands) {
  string view = CharacterView(text);
  return ReadLeadingNumber(std::string_view(view.CString(), view.Length()),
                           thousands);
}

double StringVal(stringStorage* text) { return ReadNumber(text, false); }

double runCDbl(stringStorage* text) { return ReadNumber(text, true); }

stringStorage* StringStrDouble(double value) {
  char digits[kShortIntegerTextSize];
  size_t length;
  if (ShortIntegerText(value, digits, &length))
    return HandOut(MakeText(digits, length, kEncodingASCII));
  return HandOut(MakeText(DoubleText(value), kEncodingASCII));
}

stringStorage* runCStr(double value) { return StringStrDouble(value); }

stringStorage* DigitsText(unsigned long value, unsigned bitsPerDigit) {
  static char const kDigits[] = "0123456789ABCDEF";
  char text[33];
  char* end = text + sizeof text;
  char* at = end;
  unsigned long mask = (1ul << bitsPerDigit) - 1;
  do {
    *--at = kDigits[value & mask];
    value >>= bitsPerDigit;
  } while (value);
  return HandOut(MakeText(at, end - at, kEncodingASCII));
}

stringStorage* RuntimeHex(long value) {
  return DigitsText(static_cast<unsigned long>(value), 4);
}

stringStorage* RuntimeOct(long value) {
  return DigitsText(static_cast<unsigned long>(value), 3);
}

stringStorage* RuntimeBin(long value) {
  return DigitsText(static_cast<unsigned long>(value), 1);
}

}  // namespace

LibraryEntries NumberTextEntries() {
  return {
      Entry<&StringVal>("StringVal"),
      Entry<&runCDbl>("runCDbl"),
      Entry<&StringStrDouble>("StringStrDouble"),
      Entry<&runCStr>("runCStr"),
      Entry<&RuntimeHex>("RuntimeHex"),
      Entry<&RuntimeOct>("RuntimeOct"),
      Entry<&RuntimeBin>("RuntimeBin"),
  };
}

}  // namespace library
}  // namespace standin
}  // namespace quorl
