// Numbers to and from text, and fixed-width values as byte strings in network
// order.
#include <locale.h>
#include <math.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include "Universal/ByteHelpers.h"

namespace {

string AsciiText(char const* text) { return string(text); }

// The bytes, untagged: they are data, not text.
string Bytes(unsigned char const* bytes, unsigned int count) {
  string result;
  result.ConstructFromBuffer(reinterpret_cast<char const*>(bytes), count);
  return result;
}

// Big-endian value of up to `width` leading bytes of `bits`; missing bytes
// count as zero.
unsigned long ReadBigEndian(string const& bits, unsigned long width) {
  unsigned long value = 0;
  for (unsigned long i = 0; i < width; i++) {
    unsigned char byte =
        i < bits.Length() ? static_cast<unsigned char>(bits[i]) : 0;
    value = (value << 8) | byte;
  }
  return value;
}

}  // namespace

long uatol(char const* text) { return uatol(text, 0x7FFFFFFF); }

long uatol(char const* text, int length) {
  if (!text) return 0;
  int i = 0;
  while (i < length && text[i] == ' ') i++;
  bool negative = false;
  if (i < length && (text[i] == '-' || text[i] == '+')) negative = text[i++] == '-';
  unsigned long value = 0;
  for (; i < length && text[i] >= '0' && text[i] <= '9'; i++)
    value = value * 10 + (text[i] - '0');
  return negative ? -(long)value : (long)value;
}

// Script and compiler text always writes the decimal point as ".", whatever
// locale the host runs in.
double uatod(char const* text) {
  char const* current = setlocale(LC_NUMERIC, nullptr);
  char* saved = current ? strdup(current) : nullptr;
  setlocale(LC_NUMERIC, "C");
  double value = atof(text);
  if (saved) {
    setlocale(LC_NUMERIC, saved);
    free(saved);
  }
  return value;
}

string ultoa(long value) {
  char text[32];
  snprintf(text, sizeof text, "%ld", value);
  return AsciiText(text);
}

string ulltoa(long long value) {
  char text[32];
  snprintf(text, sizeof text, "%lld", value);
  return AsciiText(text);
}

string uulltoa(unsigned long long value) {
  char text[32];
  snprintf(text, sizeof text, "%llu", value);
  return AsciiText(text);
}

string udtoa(double value, bool exponent) {
  if (isinf(value) || isnan(value)) value = 0;
  char text[64];
  snprintf(text, sizeof text, exponent ? "%e" : "%g", value);
  return AsciiText(text);
}

// Eight upper-case digits, as "%08lX" writes them; by hand, as the compiler
// names every hidden variable with it.
string ultohexa(unsigned long value) {
  static char const kDigits[] = "0123456789ABCDEF";
  uint32_t bits = static_cast<uint32_t>(value);
  char text[8];
  for (int i = 7; i >= 0; i--, bits >>= 4) text[i] = kDigits[bits & 0xF];
  string result;
  result.AdoptReference(NewStringStorage(text, sizeof text, kEncodingASCII));
  return result;
}

string FourCharCodeToString(unsigned long code) {
  unsigned char bytes[4] = {
      static_cast<unsigned char>(code >> 24),
      static_cast<unsigned char>(code >> 16),
      static_cast<unsigned char>(code >> 8), static_cast<unsigned char>(code)};
  return Bytes(bytes, 4);
}

unsigned long StringToFourCharCode(string const& text) {
  return ReadBigEndian(text, 4);
}

string WriteShortAsBits(short value) {
  unsigned short bits = static_cast<unsigned short>(value);
  unsigned char bytes[2] = {static_cast<unsigned char>(bits >> 8),
                            static_cast<unsigned char>(bits)};
  return Bytes(bytes, 2);
}

string WriteLongAsBits(long value) {
  return FourCharCodeToString(static_cast<unsigned long>(value));
}

short ReadShortAsBits(string const& bits) {
  return static_cast<short>(ReadBigEndian(bits, 2));
}

long ReadLongAsBits(string const& bits) {
  return static_cast<long>(ReadBigEndian(bits, 4));
}
