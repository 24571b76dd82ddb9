// Concatenation. Text of two encodings is first brought to one encoding, so
// that the sum carries one honest tag.
#include <string.h>

#include "Universal/Encodings.h"
#include "Universal/StringAssembly.h"
#include "Universal/StringWorkCounters.h"
#include "Universal/ustring.h"

namespace {

string Join(char const* a, unsigned long lengthA, char const* b,
            unsigned long lengthB, unsigned long tag) {
  string result;
  stringStorage* storage = NewStringStorage(
      nullptr, lengthA + lengthB, static_cast<uint32_t>(tag));
  memcpy(storage->CString(), a, lengthA);
  memcpy(storage->CString() + lengthA, b, lengthB);
  CountStringCopy(lengthA + lengthB);
  result.AdoptReference(storage);
  return result;
}

}  // namespace

// Either side empty gives the other side, shared. Text of two encodings is
// brought to one, as ConvertToSameEncoding does; a side whose bytes stand
// as they are in that encoding (ASCII in UTF-8) is not copied first.
string operator+(string const& a, string const& b) {
  if (a.IsEmpty()) return b;
  if (b.IsEmpty()) return a;
  if (a.Encoding() == b.Encoding())
    return Join(a.CString(), a.Length(), b.CString(), b.Length(),
                a.Encoding());
  unsigned long tag = SumEncoding(a.Encoding(), b.Encoding());
  if (BytesStandAs(a.Encoding(), tag) && BytesStandAs(b.Encoding(), tag))
    return Join(a.CString(), a.Length(), b.CString(), b.Length(), tag);
  string first = a, second = b;
  EnterStringCriticalSection();
  tag = ConvertToSameEncoding(&first, &second);
  LeaveStringCriticalSection();
  return Join(first.CString(), first.Length(), second.CString(),
              second.Length(), tag);
}

// A byte of ASCII keeps what the tag allows; a byte with the top bit set
// belongs to no known encoding.
string operator+(string const& a, char c) {
  unsigned long tag = (c & 0x80) ? (unsigned long)kEncodingUnknown
                                 : CommonEncoding(a.Encoding(),
                                                  kEncodingASCII, false);
  return Join(a.CString(), a.Length(), &c, 1, tag);
}

string& string::operator+=(string const& other) {
  *this = *this + other;
  return *this;
}

string& string::operator+=(char const* text) {
  unsigned long length = text ? strlen(text) : 0;
  if (!length) return *this;
  *this = Join(CString(), Length(), text, length, Encoding());
  return *this;
}
