// Concatenation. Text of two encodings is first brought to one encoding, so
// that the sum carries one honest tag.
#include <string.h>

#include <new>

#include "Universal/Assertion.h"
#include "Universal/Encodings.h"
#include "Universal/StringAssembly.h"
#include "Universal/StringWorkCounters.h"
#include "Universal/ustring.h"

namespace {

// Nil when the sum would pass the length field or the heap refuses it; the
// lengths are compared before they are added, so that no sum wraps.
stringStorage* JoinBytes(char const* a, unsigned long lengthA, char const* b,
                         unsigned long lengthB, unsigned long tag) {
  if (lengthA > kLongestStringLength || lengthB > kLongestStringLength - lengthA)
    return nullptr;
  stringStorage* storage = TryNewStringStorage(
      nullptr, uint32_t(lengthA + lengthB), static_cast<uint32_t>(tag));
  if (!storage) return nullptr;
  memcpy(storage->CString(), a, lengthA);
  memcpy(storage->CString() + lengthA, b, lengthB);
  CountStringCopy(lengthA + lengthB);
  return storage;
}

string Join(char const* a, unsigned long lengthA, char const* b,
            unsigned long lengthB, unsigned long tag) {
  stringStorage* storage = JoinBytes(a, lengthA, b, lengthB, tag);
  QASSERT(storage);
  string result;
  result.AdoptReference(storage);
  return result;
}

}  // namespace

// Either side empty gives the other side, shared. Text of two encodings is
// brought to one, as ConvertToSameEncoding does; a side whose bytes stand
// as they are in that encoding (ASCII in UTF-8) is not copied first.
stringStorage* ConcatenateStorages(stringStorage* a, stringStorage* b) {
  if (!a || !a->mLength) {
    LockStringStorage(b);
    return b;
  }
  if (!b || !b->mLength) {
    LockStringStorage(a);
    return a;
  }
  if (a->mEncoding == b->mEncoding)
    return JoinBytes(a->CString(), a->mLength, b->CString(), b->mLength,
                     a->mEncoding);
  unsigned long tag = SumEncoding(a->mEncoding, b->mEncoding);
  if (BytesStandAs(a->mEncoding, tag) && BytesStandAs(b->mEncoding, tag))
    return JoinBytes(a->CString(), a->mLength, b->CString(), b->mLength, tag);
  string first(a), second(b);
  EnterStringCriticalSection();
  tag = ConvertToSameEncoding(&first, &second);
  LeaveStringCriticalSection();
  return JoinBytes(first.CString(), first.Length(), second.CString(),
                   second.Length(), tag);
}

string operator+(string const& a, string const& b) {
  stringStorage* storage =
      ConcatenateStorages(a.GetStringStorage(), b.GetStringStorage());
  QASSERT(storage || !a.Length() || !b.Length());
  string sum;
  sum.AdoptReference(storage);
  return sum;
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

// Text with UTF-8 bytes (ASCII or UTF-8 tags) on both sides, the common case
// of names, is joined directly under the tag the sums would give; anything
// else takes the sums themselves.
string JoinAround(string const& a, char separator, string const& b) {
  bool direct = a.Length() && b.Length() && a.HasUTF8Bytes() &&
                b.HasUTF8Bytes() && !(separator & 0x80) &&
                a.Length() < kLongestStringLength / 2 &&
                b.Length() < kLongestStringLength / 2;
  if (!direct) return a + string(separator) + b;
  unsigned long tag =
      SumEncoding(SumEncoding(a.Encoding(), kEncodingASCII), b.Encoding());
  unsigned long lengthA = a.Length(), lengthB = b.Length();
  stringStorage* storage = TryNewStringStorage(
      nullptr, uint32_t(lengthA + 1 + lengthB), static_cast<uint32_t>(tag));
  if (!storage) throw std::bad_alloc();
  char* out = storage->CString();
  memcpy(out, a.CString(), lengthA);
  out[lengthA] = separator;
  memcpy(out + lengthA + 1, b.CString(), lengthB);
  CountStringCopy(lengthA + 1 + lengthB);
  string result;
  result.AdoptReference(storage);
  return result;
}
