// UTF-8 to and from UTF-16 without iconv: a statically linked C library,
// as the PowerPC loader's, carries no UTF-16 converter, and wide text
// (WString fields and arguments) must still convert there.
#include <string>

#include "Universal/Encodings.h"
#include "Universal/ustring.h"

namespace {

// What a sequence that does not convert becomes, as iconv's caller makes it.
unsigned long const kReplacement = '?';
unsigned long const kFirstHighSurrogate = 0xD800;
unsigned long const kFirstLowSurrogate = 0xDC00;
unsigned long const kPastSurrogates = 0xE000;
unsigned long const kFirstSupplementary = 0x10000;
unsigned long const kPastUnicode = 0x110000;
unsigned long const kLowTenBits = 0x3FF;
int const kHighHalfShift = 10;
// The smallest code point that needs a sequence of each length.
unsigned long const kShortestForLength[5] = {0, 0, 0x80, 0x800, 0x10000};

bool IsSurrogate(unsigned long code) {
  return code >= kFirstHighSurrogate && code < kPastSurrogates;
}

// The code point of the well-formed sequence at `p` and its length; false
// for a stray continuation byte, a cut or overlong sequence, a surrogate.
bool DecodeUTF8(unsigned char const* p, unsigned char const* end,
                unsigned long* code, int* length) {
  int n = UTF8SequenceLength(p[0]);
  if (n == 1) {
    *code = p[0];
    *length = 1;
    return p[0] < 0x80;
  }
  if (end - p < n) return false;
  for (int i = 1; i < n; i++)
    if ((p[i] & 0xC0) != 0x80) return false;
  *code = UTF8Decode(p);
  *length = n;
  return *code >= kShortestForLength[n] && *code < kPastUnicode &&
         !IsSurrogate(*code);
}

// Units are stored little-endian, as every UTF-16 string here is.
void PutUnit(std::string& out, unsigned long unit) {
  out += static_cast<char>(unit & 0xFF);
  out += static_cast<char>(unit >> 8);
}

unsigned long UnitAt(unsigned char const* p) { return p[0] | (p[1] << 8); }

std::string UTF8ToUTF16(unsigned char const* p, unsigned char const* end) {
  std::string out;
  while (p < end) {
    unsigned long code;
    int length;
    if (!DecodeUTF8(p, end, &code, &length)) {
      code = kReplacement;
      length = 1;
    }
    p += length;
    if (code < kFirstSupplementary) {
      PutUnit(out, code);
      continue;
    }
    code -= kFirstSupplementary;
    PutUnit(out, kFirstHighSurrogate + (code >> kHighHalfShift));
    PutUnit(out, kFirstLowSurrogate + (code & kLowTenBits));
  }
  return out;
}

// A surrogate without its partner, or an odd last byte, is one "?".
std::string UTF16ToUTF8(unsigned char const* p, unsigned char const* end) {
  std::string out;
  for (; end - p >= 2; p += 2) {
    unsigned long code = UnitAt(p);
    if (code >= kFirstHighSurrogate && code < kFirstLowSurrogate &&
        end - p >= 4) {
      unsigned long low = UnitAt(p + 2);
      if (low >= kFirstLowSurrogate && low < kPastSurrogates) {
        code = kFirstSupplementary +
               ((code - kFirstHighSurrogate) << kHighHalfShift) +
               (low - kFirstLowSurrogate);
        p += 2;
      }
    }
    if (IsSurrogate(code)) code = kReplacement;
    unsigned char bytes[5];
    out.append(reinterpret_cast<char*>(bytes), UTF8Encode(code, bytes));
  }
  if (p < end) out += static_cast<char>(kReplacement);
  return out;
}

bool IsNarrowUnicode(unsigned long tag) {
  return tag == kEncodingUTF8 || tag == kEncodingASCII;
}

}  // namespace

bool ConvertsWithoutIconv(unsigned long from, unsigned long to) {
  return (IsNarrowUnicode(from) && to == kEncodingUTF16) ||
         (from == kEncodingUTF16 && to == kEncodingUTF8);
}

stringStorage* ConvertWithoutIconv(stringStorage* input, unsigned long from,
                                   unsigned long to) {
  unsigned char const* bytes =
      input ? reinterpret_cast<unsigned char const*>(input->CString()) : nullptr;
  unsigned char const* end = bytes ? bytes + input->mLength : nullptr;
  std::string out = from == kEncodingUTF16 ? UTF16ToUTF8(bytes, end)
                                           : UTF8ToUTF16(bytes, end);
  return TryNewStringStorage(out.data(), static_cast<uint32_t>(out.size()),
                             static_cast<uint32_t>(to));
}
