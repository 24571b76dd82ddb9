// Unicode case mapping and case-aware comparison, over single code points,
// UTF-8 text and 16-bit units. Only the simple one-to-one pairs of the Basic
// Multilingual Plane have a case here; everything else maps to itself.
#include <stdlib.h>

#include <new>

#include "Universal/Assertion.h"
#include "Universal/CaseTables.h"
#include "Universal/Encodings.h"

IntMap<unsigned short>* sUpperMap = nullptr;
IntMap<unsigned short>* sLowerMap = nullptr;

namespace {

bool BuildCaseMaps() {
  IntMap<unsigned short>* upper = new IntMap<unsigned short>;
  IntMap<unsigned short>* lower = new IntMap<unsigned short>;
  for (unsigned long i = 0; i < kCaseTableSize; i++) {
    upper->AddEntry(sUpperTable[i], static_cast<unsigned short>(i));
    lower->AddEntry(sLowerTable[i], static_cast<unsigned short>(i));
  }
  sUpperMap = upper;
  sLowerMap = lower;
  return true;
}

}  // namespace

// Scripts on several threads may be the first to ask at once: the maps are
// built by one of them while the others wait, and published only whole.
void InitCaseMaps() {
  static bool const sBuilt = BuildCaseMaps();
  (void)sBuilt;
}

namespace {

// The partner of `code` when `code` is found in `from`; `code` otherwise.
// Code points beyond 16 bits have no pair.
unsigned long Partner(unsigned long code, IntMap<unsigned short>* from,
                      unsigned short const* toTable) {
  if (code > 0xFFFF) return code;
  unsigned short index;
  if (!from->GetEntry(static_cast<int>(code), index)) return code;
  return toTable[index];
}

int Order(unsigned long a, unsigned long b) {
  if (a == b) return 0;
  return a < b ? -1 : 1;
}

// One code point of [*p, end); a sequence cut off by `end` yields its lead
// byte alone, so that no read passes the range.
unsigned long DecodeWithin(unsigned char const** p, unsigned char const* end) {
  int length = UTF8SequenceLength(**p);
  if (*p + length > end) return *(*p)++;
  unsigned long code = UTF8Decode(*p);
  *p += length;
  return code;
}

// How a case function treats one code point, given whether it starts a word.
typedef unsigned long (*CaseMapper)(unsigned long code, bool wordStart);

unsigned long UpperMapper(unsigned long code, bool) {
  return UnicodeCharToUpper(code);
}
unsigned long LowerMapper(unsigned long code, bool) {
  return UnicodeCharToLower(code);
}
unsigned long CapitalMapper(unsigned long code, bool wordStart) {
  return wordStart ? UnicodeCharToUpper(code) : UnicodeCharToLower(code);
}

// Maps UTF-8 text into a fresh buffer. The buffer starts with 5 spare bytes
// and grows whenever fewer than 5 remain, so a mapped code point (at most 4
// bytes) and the NUL always fit. A buffer the heap cannot give throws
// std::bad_alloc, as a C++ container would.
void MapUTF8(unsigned char const* text, unsigned long length,
             unsigned char** out, unsigned long* outLength, CaseMapper mapper) {
  unsigned long capacity = length + 5, used = 0;
  unsigned char* buffer = static_cast<unsigned char*>(malloc(capacity));
  if (!buffer) throw std::bad_alloc();
  unsigned char const* p = text;
  unsigned char const* end = text + length;
  bool wordStart = true;
  while (p < end) {
    unsigned long code = DecodeWithin(&p, end);
    if (used + 5 > capacity) {
      capacity += capacity / 2 + 5;
      void* grown = realloc(buffer, capacity);
      if (!grown) {
        free(buffer);
        throw std::bad_alloc();
      }
      buffer = static_cast<unsigned char*>(grown);
    }
    used += UTF8Encode(mapper(code, wordStart), buffer + used);
    wordStart = UnicodeCharIsWhitespace(code);
  }
  buffer[used] = 0;
  *out = buffer;
  *outLength = used;
}

void MapUCS2(unsigned short* units, unsigned long count, CaseMapper mapper) {
  bool wordStart = true;
  for (unsigned long i = 0; i < count; i++) {
    unsigned long code = units[i];
    units[i] = static_cast<unsigned short>(mapper(code, wordStart));
    wordStart = UnicodeCharIsWhitespace(code);
  }
}

}  // namespace

unsigned long UnicodeCharToUpper(unsigned long code) {
  InitCaseMaps();
  return Partner(code, sLowerMap, sUpperTable);
}

unsigned long UnicodeCharToLower(unsigned long code) {
  InitCaseMaps();
  return Partner(code, sUpperMap, sLowerTable);
}

bool UnicodeCharHasCase(unsigned long code) {
  InitCaseMaps();
  if (code > 0xFFFF) return false;
  return sUpperMap->HasEntry(static_cast<int>(code)) ||
         sLowerMap->HasEntry(static_cast<int>(code));
}

int UnicodeCharCompare(unsigned long a, unsigned long b, bool ignoreCase) {
  if (a == b) return 0;
  if (ignoreCase) return Order(UnicodeCharToUpper(a), UnicodeCharToUpper(b));
  return Order(a, b);
}

int UTF8StringCompare(unsigned char const* a, unsigned long lengthA,
                      unsigned char const* b, unsigned long lengthB,
                      bool ignoreCase) {
  unsigned char const* endA = a + lengthA;
  unsigned char const* endB = b + lengthB;
  while (a < endA && b < endB) {
    int order = UnicodeCharCompare(DecodeWithin(&a, endA),
                                   DecodeWithin(&b, endB), ignoreCase);
    if (order) return order;
  }
  return Order(lengthA, lengthB);
}

int UCS2StringCompare(unsigned short const* a, unsigned long countA,
                      unsigned short const* b, unsigned long countB,
                      bool ignoreCase) {
  unsigned long common = countA < countB ? countA : countB;
  for (unsigned long i = 0; i < common; i++) {
    int order = UnicodeCharCompare(a[i], b[i], ignoreCase);
    if (order) return order;
  }
  return Order(countA, countB);
}

void UCS2ToUpper(unsigned short* units, unsigned long count) {
  MapUCS2(units, count, UpperMapper);
}

void UCS2ToLower(unsigned short* units, unsigned long count) {
  MapUCS2(units, count, LowerMapper);
}

void UCS2Capitalize(unsigned short* units, unsigned long count) {
  MapUCS2(units, count, CapitalMapper);
}

void UTF8ToUpper(unsigned char const* text, unsigned long length,
                 unsigned char** out, unsigned long* outLength) {
  MapUTF8(text, length, out, outLength, UpperMapper);
}

void UTF8ToLower(unsigned char const* text, unsigned long length,
                 unsigned char** out, unsigned long* outLength) {
  MapUTF8(text, length, out, outLength, LowerMapper);
}

void UTF8Capitalize(unsigned char const* text, unsigned long length,
                    unsigned char** out, unsigned long* outLength) {
  MapUTF8(text, length, out, outLength, CapitalMapper);
}

bool UTF8IsCaseless(unsigned char const* text, unsigned long length) {
  unsigned char const* end = text + length;
  while (text < end)
    if (UnicodeCharHasCase(DecodeWithin(&text, end))) return false;
  return true;
}
