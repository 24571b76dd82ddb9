// Literals: decimal, real, radix and colour numbers, plain and escaped
// strings. Each is interned in the current literal pool and delivered in
// yylval as a SemValue at the token's location.
#include <stdint.h>

#include "Compiler/Frontend/LexerInternal.h"
#include "Compiler/Frontend/TacLiteralPool.h"
#include "Compiler/SemBase.h"
#include "Universal/ByteHelpers.h"
#include "Universal/SimpleVector.h"

namespace {

int Deliver(TacAddr const* addr, int token) {
  EndTokenLocation();
  yylval = SemValue::New(addr, &sTokenLocation);
  return token;
}

// A skimmed literal: read over, with no value and nothing interned.
int Skimmed(int token) {
  EndTokenLocation();
  return token;
}

// A decimal literal that fits 32 signed bits is an Integer, any larger one
// a signed 64-bit literal; a radix literal is unsigned, 32 or 64 bits by
// its high word.
int IntegerLiteralToken(uint64_t value, bool decimal) {
  SimpleDataType type;
  if (decimal) {
    int64_t v = int64_t(value);
    type = (v >= INT32_MIN && v <= INT32_MAX) ? kSInt32Type : kSInt64Type;
  } else {
    type = (value >> 32) == 0 ? kUInt32Type : kUInt64Type;
  }
  if (sSkimming) return Skimmed(kTokInteger);
  return Deliver(CurrentTLP()->GetLiteral((long long)value, type), kTokInteger);
}

// The value comes from the literal's own bytes in the source, read in the
// "C" locale: tokenbuf keeps only the first of a very long literal.
int RealLiteralToken(unsigned int start) {
  if (sSkimming) return Skimmed(kTokFloat);
  string literal;
  literal.ConstructFromBuffer(sState.text + start, sState.pos - start);
  double value = uatod(literal.CString());
  TacAddr const* addr =
      CurrentTLP()->GetLiteral(IRValue::Real64(value), IRDataType(kReal64Type));
  return Deliver(addr, kTokFloat);
}

void AddDigits(TokenText& text, int& c) {
  while (IsDigit(c)) {
    text.Add(c);
    c = nextchar();
  }
}

// The optional "e", sign and digits of a real; `c` is the byte after the
// fraction. Leaves the first byte after the literal in `c`.
bool AddExponent(TokenText& text, int& c) {
  if (c != 'e' && c != 'E') return false;
  text.Add(c);
  c = nextchar();
  if (c == '+' || c == '-') {
    text.Add(c);
    c = nextchar();
  }
  AddDigits(text, c);
  return true;
}

// Digits of one radix shifted into 64 bits; overflow drops silently.
uint64_t RadixDigits(int shift, int limit) {
  uint64_t value = 0;
  int c;
  int digit;
  while ((c = nextchar()) != 0 && (digit = HexDigitValue(c)) >= 0 &&
         digit < limit)
    value = (value << shift) | uint64_t(digit);
  putback(c);
  return value;
}

// Up to six hex digits, each in its fixed place: missing digits at the end
// count as zero, so `&cFF` is red.
int ColorLiteralToken() {
  long value = 0;
  int c = 0;
  int digit;
  for (int i = 0; i < 6; i++) {
    c = nextchar();
    digit = HexDigitValue(c);
    if (digit < 0) {
      putback(c);
      break;
    }
    value |= long(digit) << (20 - 4 * i);
  }
  if (sSkimming) return Skimmed(kTokColor);
  TacAddr const* addr =
      CurrentTLP()->GetLiteral(IRValue::SInt32(value), IRDataType(kColorType));
  return Deliver(addr, kTokColor);
}

// The text of a string literal, tagged UTF-8, interned; tokenbuf gets its
// first bytes.
int StringToken(SimpleVector<char> const& bytes, int token) {
  if (sSkimming) return Skimmed(token);
  string text;
  if (bytes.size()) text.ConstructFromBuffer(&bytes[0], bytes.size());
  text.SetEncoding(kEncodingUTF8);
  TokenText copy;
  for (unsigned long i = 0; i < bytes.size(); i++) copy.Add(bytes[i]);
  return Deliver(CurrentTLP()->GetLiteral(text), token);
}

int HexVal(char const* digits, int count) {
  int value = 0;
  for (int i = 0; i < count; i++) {
    int digit = HexDigitValue(digits[i]);
    if (digit >= 0) value = (value << 4) | digit;
  }
  return value;
}

// The byte that an escape letter stands for; -1 for letters without one.
int SimpleEscape(char c) {
  switch (c) {
    case '"':
    case '\'':
    case '?':
    case '\\':
      return c;
    case 'a':
      return 7;
    case 'b':
      return 8;
    case 'f':
      return 12;
    case 'n':
      return 10;
    case 'r':
      return 13;
    case 't':
      return 9;
    case 'v':
      return 11;
    default:
      return -1;
  }
}

// Replaces the backslash escapes of `raw`. An unknown escape yields one
// byte for its two, "?".
void DecodeBackslashEscape(SimpleVector<char> const& raw,
                           SimpleVector<char>& out) {
  unsigned long n = raw.size();
  for (unsigned long i = 0; i < n; i++) {
    if (raw[i] != '\\' || i + 1 >= n) {
      out.push_back(raw[i]);
      continue;
    }
    char c = raw[++i];
    int simple = SimpleEscape(c);
    if (simple >= 0) {
      out.push_back(char(simple));
    } else if (c == 'x') {
      int count = (n - i - 1) < 2 ? int(n - i - 1) : 2;
      out.push_back(char(HexVal(&raw[i + 1], count)));
      i += count;
    } else {
      out.push_back('?');
    }
  }
}

}  // namespace

int HexDigitValue(int c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  return -1;
}

// Digits, then "." or an exponent make a real; the value scanned digit by
// digit serves integers only and wraps silently.
int NumericLiteralToken(int first) {
  ClearCanAssignAtDepthZero();
  unsigned int start = sState.pos - 1;
  TokenText text;
  uint64_t value = 0;
  int c = first;
  while (IsDigit(c)) {
    text.Add(c);
    value = value * 10 + uint64_t(c - '0');
    c = nextchar();
  }
  bool real = false;
  if (c == '.') {
    real = true;
    text.Add(c);
    c = nextchar();
    AddDigits(text, c);
  }
  real = AddExponent(text, c) || real;
  putback(c);
  if (real) return RealLiteralToken(start);
  return IntegerLiteralToken(value, true);
}

// `.5` reads as 0.5.
int FractionLiteralToken() {
  ClearCanAssignAtDepthZero();
  unsigned int start = sState.pos - 1;
  TokenText text;
  text.Add('0');
  text.Add('.');
  int c = nextchar();
  AddDigits(text, c);
  AddExponent(text, c);
  putback(c);
  return RealLiteralToken(start);
}

// After "&": h, o, b radix prefixes and c for a colour; anything else is
// the lone "&", which no rule accepts.
int RadixLiteralToken() {
  int c = nextchar();
  switch (c) {
    case 'h':
    case 'H':
      return IntegerLiteralToken(RadixDigits(4, 16), false);
    case 'o':
    case 'O':
      return IntegerLiteralToken(RadixDigits(3, 8), false);
    case 'b':
    case 'B':
      return IntegerLiteralToken(RadixDigits(1, 2), false);
    case 'c':
    case 'C':
      return ColorLiteralToken();
    default:
      putback(c);
      return '&';
  }
}

// `""` stands for one quote. A line end or the end of the text closes the
// literal as unterminated; its value is made all the same.
int StringLiteralToken() {
  ClearCanAssignAtDepthZero();
  SimpleVector<char> bytes;
  for (;;) {
    int c = nextchar();
    if (c == 0 || c == '\r' || c == '\n') {
      putback(c);
      return StringToken(bytes, kTokBadString);
    }
    if (c == '"') {
      int next = nextchar();
      if (next != '"') {
        putback(next);
        return StringToken(bytes, kTokString);
      }
    }
    bytes.push_back(char(c));
  }
}

// \"...\" runs to the first quote that is not escaped by a backslash
// (a backslash escapes the byte after it, so `\\"` closes), across line
// ends, which are not counted, or to the end of the text.
int EscapedStringLiteralToken() {
  ClearCanAssignAtDepthZero();
  SimpleVector<char> raw;
  int c;
  while ((c = nextchar()) != 0 && c != '"') {
    raw.push_back(char(c));
    if (c == '\\' && (c = nextchar()) != 0) raw.push_back(char(c));
  }
  SimpleVector<char> bytes;
  DecodeBackslashEscape(raw, bytes);
  return StringToken(bytes, kTokString);
}
