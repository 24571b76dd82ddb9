// Slices of a string: left, right, mid and the trims. A slice that covers the
// whole text shares the storage instead of copying it; a proper slice keeps
// the encoding tag.
#include <string.h>

#include "Universal/ustring.h"

namespace {

// Bytes [start, start + count) of `s`, which the caller has clipped.
string Slice(string const& s, unsigned long start, unsigned long count) {
  if (count == 0) return string();
  if (start == 0 && count == s.Length()) return s;
  string result;
  result.AdoptReference(NewStringStorage(s.CString() + start, count,
                                         static_cast<uint32_t>(s.Encoding())));
  return result;
}

bool IsBlankOrTab(char c) { return c == ' ' || c == '\t'; }

}  // namespace

string left(string const& s, int count) {
  if (count < 1) return string();
  if ((unsigned long)count >= s.Length()) return s;
  return Slice(s, 0, count);
}

string right(string const& s, int count) {
  if (count < 1) return string();
  if ((unsigned long)count >= s.Length()) return s;
  return Slice(s, s.Length() - count, count);
}

string mid(string const& s, int start) {
  if (start < 0) start = 0;
  if ((unsigned long)start >= s.Length()) return string();
  return Slice(s, start, s.Length() - start);
}

// Zero-based. A negative start eats into the count and moves to 0.
string mid(string const& s, int start, int count) {
  if (start < 0) {
    count += start;
    start = 0;
  }
  if (count <= 0 || (unsigned long)start >= s.Length()) return string();
  unsigned long available = s.Length() - start;
  if ((unsigned long)count > available) count = available;
  return Slice(s, start, count);
}

string ltrim(string const& s) {
  unsigned long length = s.Length(), first = 0;
  char const* text = s.CString();
  while (first < length && IsBlankOrTab(text[first])) first++;
  return Slice(s, first, length - first);
}

string rtrim(string const& s) {
  unsigned long end = s.Length();
  char const* text = s.CString();
  while (end > 0 && IsBlankOrTab(text[end - 1])) end--;
  return Slice(s, 0, end);
}

string trim(string const& s) { return ltrim(rtrim(s)); }
