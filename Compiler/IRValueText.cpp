// How constants are spelled: in class metadata (default values), in
// diagnostics and in listings of three-address code.
#include "Compiler/InterRep.h"

#include <string.h>

#include "Universal/Assertion.h"
#include "Universal/ByteHelpers.h"

namespace {

char const kHexDigits[] = "0123456789ABCDEF";

// Bytes of the quoted form: the quotes and one more byte per quote inside.
unsigned long QuotedLength(string const& text) {
  unsigned long length = text.Length() + 2;
  for (unsigned long i = 0; i < text.Length(); i++)
    if (text[i] == '"') length++;
  return length;
}

// Bytes of the escaped form: \" at the start, " at the end, \ before each
// quote and backslash, \xNN for each byte that counts as a control byte
// when read as a signed char (bytes from 128 up included).
unsigned long EscapedLength(string const& text) {
  unsigned long length = text.Length() + 3;
  for (unsigned long i = 0; i < text.Length(); i++) {
    char c = text[i];
    if (c == '"' || c == '\\')
      length++;
    else if (c < 32)
      length += 3;
  }
  return length;
}

bool HasControlByte(string const& text) {
  for (unsigned long i = 0; i < text.Length(); i++)
    if ((unsigned char)text[i] < 32) return true;
  return false;
}

void PutQuoted(string const& text, char* out, unsigned long& pos) {
  out[pos++] = '"';
  for (unsigned long i = 0; i < text.Length(); i++) {
    char c = text[i];
    if (c == '"') out[pos++] = '"';
    out[pos++] = c;
  }
  out[pos++] = '"';
}

void PutEscaped(string const& text, char* out, unsigned long& pos) {
  out[pos++] = '\\';
  out[pos++] = '"';
  for (unsigned long i = 0; i < text.Length(); i++) {
    char c = text[i];
    if (c == '"' || c == '\\') {
      out[pos++] = '\\';
      out[pos++] = c;
    } else if (c < 32) {
      out[pos++] = '\\';
      out[pos++] = 'x';
      out[pos++] = kHexDigits[((unsigned char)c) >> 4];
      out[pos++] = kHexDigits[c & 15];
    } else {
      out[pos++] = c;
    }
  }
  out[pos++] = '"';
}

}  // namespace

// A literal with no control byte keeps backslashes as they are and doubles
// quotes, as the language writes them. One with a control byte switches to
// the escaped form, where every byte from 128 up is written in hex as well.
string FormatStringLiteral(string const& text) {
  string utf8 = text.GetUTF8String();
  bool escaped = HasControlByte(utf8);
  string out;
  out.AllocateBuffer(escaped ? EscapedLength(utf8) : QuotedLength(utf8));
  char* buffer = out.GetStringStorage()->CString();
  unsigned long outPos = 0;
  if (escaped)
    PutEscaped(utf8, buffer, outPos);
  else
    PutQuoted(utf8, buffer, outPos);
  QASSERT(outPos == out.Length());
  out.SetEncoding(utf8.Encoding());
  return out;
}

// Always with a point, so that the text reads back as a floating value;
// also after an exponent ("1e+20.0"), deliberately.
string FormatFloatLiteral(double value) {
  string text = udtoa(value, false);
  if (strchr(text.CString(), '.') == nullptr) text += ".0";
  return text;
}

// Integers print in full (64-bit types use all 64 bits), unsigned types
// unsigned; a colour as "&c" and six hex digits; reference-counted handles
// can only be Nil. Types without a literal form give the empty text.
string IRValue::ToString(IRDataType const& type) const {
  switch (type.GetMainType()) {
    case kBooleanType:
      return uSInt32 == 1 ? "True" : "False";
    case kSInt8Type:
    case kSInt16Type:
    case kSInt32Type:
      return ultoa(uSInt32);
    case kUInt8Type:
    case kUInt16Type:
    case kUInt32Type:
      return uulltoa((unsigned long)uSInt32);
    case kSInt64Type:
      return ulltoa(uSInt64);
    case kUInt64Type:
      return uulltoa((unsigned long long)uSInt64);
    case kReal32Type:
      return FormatFloatLiteral(uReal32);
    case kReal64Type:
      return FormatFloatLiteral(uReal64);
    case kStringType:
      return FormatStringLiteral(mString);
    case kColorType:
      return string("&c") + right(ultohexa(uSInt32), 6);
    case kVariantType:
    case kObjectType:
    case kNilType:
      QASSERT(0 == uSInt32);
      return "Nil";
    default:
      return string();
  }
}
