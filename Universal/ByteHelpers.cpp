// Byte and C-string primitives, and the byte-wise comparisons behind
// string comparison.
#include "Universal/ByteHelpers.h"

#include <string.h>

unsigned long ustrlen(char const* text) { return text ? strlen(text) : 0; }

char* ustrcpy(char* dst, char const* src) { return strcpy(dst, src); }

void ustrcat(char** cursor, char const* src) {
  char* end = *cursor + strlen(*cursor);
  unsigned long length = ustrlen(src);
  memcpy(end, src, length);
  end[length] = 0;
  *cursor = end + length;
}

char utoupper(char c) { return (c >= 'a' && c <= 'z') ? c - 32 : c; }

void umemcpy(void* dst, void const* src, unsigned long n) {
  memmove(dst, src, n);
}

void umemzero(void* dst, unsigned long n) { memset(dst, 0, n); }

void umemset(void* dst, int value, unsigned long n) { memset(dst, value, n); }

int umemcmp(void const* a, void const* b, unsigned long n) {
  int raw = memcmp(a, b, n);
  return raw < 0 ? -1 : (raw > 0 ? 1 : 0);
}

void pstrcpy(unsigned char* dst, unsigned char const* src) {
  memmove(dst, src, src[0] + 1u);
}

namespace {

signed char Folded(char c) {
  return static_cast<signed char>(upperMap[static_cast<unsigned char>(c)]);
}

signed char Raw(char c) { return static_cast<signed char>(c); }

// Walks the common prefix of two counted ranges; the first differing byte
// (after `map`) decides as a signed 8-bit value, then the longer is greater.
int CompareRanges(char const* a, unsigned long lengthA, char const* b,
                  unsigned long lengthB, signed char (*map)(char)) {
  unsigned long common = lengthA < lengthB ? lengthA : lengthB;
  for (unsigned long i = 0; i < common; i++) {
    signed char x = map(a[i]), y = map(b[i]);
    if (x != y) return x < y ? -1 : 1;
  }
  if (lengthA == lengthB) return 0;
  return lengthA < lengthB ? -1 : 1;
}

}  // namespace

int ustrncmpi(char const* a, unsigned long lengthA, char const* b,
              unsigned long lengthB) {
  return CompareRanges(a, lengthA, b, lengthB, Folded);
}

int ustrncmp(char const* a, unsigned long lengthA, char const* b,
             unsigned long lengthB) {
  return CompareRanges(a, lengthA, b, lengthB, Raw);
}

int ustrcmpi(char const* a, char const* b) {
  return ustrncmpi(a, ustrlen(a), b, ustrlen(b));
}

int ustrcmp(char const* a, char const* b) {
  return ustrncmp(a, ustrlen(a), b, ustrlen(b));
}
