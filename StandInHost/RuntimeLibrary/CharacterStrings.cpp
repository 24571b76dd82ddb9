// Strings by character: positions and lengths count code points of the
// text seen as UTF-8, and positions start at 1. Searches ignore case.
//
// Choices where a BASIC leaves room: a start below 1 counts as 1; a
// length of 0 or below gives the empty string; a start past the end gives
// the empty string (InStr: 0); an empty needle is never found (0); Asc of
// the empty string is 0; Chr of a value that is no code point (below 0,
// above 0x10FFFF) is the empty string.
#include "StandInHost/RuntimeLibrary/LibraryEntries.h"
#include "StandInHost/RuntimeLibrary/LibraryText.h"
#include "Universal/Encodings.h"

namespace quorl {
namespace standin {
namespace library {
namespace {

// `count` code points from the 0-based code point `first`, clamped to the
// text.
string CharacterRange(string const& view, CodePoints const& points,
                      unsigned long first, long count) {
  if (count <= 0 || first >= points.Count()) return string();
  unsigned long last = first + static_cast<unsigned long>(count);
  if (last > points.Count() || last < first) last = points.Count();
  unsigned long start = points.offsets[first];
  return ByteSlice(view, start, points.offsets[last] - start);
}

unsigned long FirstIndex(long start) {
  return start > 1 ? static_cast<unsigned long>(start - 1) : 0;
}

stringStorage* StringDBCSLeft(stringStorage* text, long count) {
  string view = CharacterView(text);
  return HandOut(CharacterRange(view, DecodeUTF8(view), 0, count));
}

stringStorage* StringDBCSRight(stringStorage* text, long count) {
  string view = CharacterView(text);
  CodePoints points = DecodeUTF8(view);
  if (count <= 0) return nullptr;
  unsigned long first = static_cast<unsigned long>(count) >= points.Count()
                            ? 0
                            : points.Count() - count;
  return HandOut(CharacterRange(view, points, first, count));
}

stringStorage* StringDBCSMid3(stringStorage* text, long start, long count) {
  string view = CharacterView(text);
  return HandOut(CharacterRange(view, DecodeUTF8(view), FirstIndex(start),
                                count));
}

stringStorage* StringDBCSMid2(stringStorage* text, long start) {
  string view = CharacterView(text);
  CodePoints points = DecodeUTF8(view);
  return HandOut(CharacterRange(view, points, FirstIndex(start),
                                static_cast<long>(points.Count())));
}

long StringDBCSLen(stringStorage* text) {
  return static_cast<long>(DecodeUTF8(CharacterView(text)).Count());
}

long StringDBCSAsc(stringStorage* text) {
  CodePoints points = DecodeUTF8(CharacterView(text));
  return points.Count() ? static_cast<long>(points.codes[0]) : 0;
}

stringStorage* StringDBCSChr(long code) {
  if (code < 0 || code > 0x10FFFF) return nullptr;
  return HandOut(UnicodeChar(static_cast<unsigned long>(code), kEncodingUTF8));
}

long StringInStr(long start, stringStorage* haystack, stringStorage* needle) {
  CodePoints hay = DecodeFolded(CharacterView(haystack));
  CodePoints pin = DecodeFolded(CharacterView(needle));
  long found = FindCodes(hay.codes, pin.codes, FirstIndex(start));
  return found + 1;
}

long StringExtendsInStr(stringStorage* haystack, long start,
                        stringStorage* needle) {
  return StringInStr(start, haystack, needle);
}

}  // namespace

LibraryEntries CharacterStringEntries() {
  return {
      Entry("StringDBCSLeft", &StringDBCSLeft),
      Entry("StringDBCSRight", &StringDBCSRight),
      Entry("StringDBCSMid3", &StringDBCSMid3),
      Entry("StringDBCSMid2", &StringDBCSMid2),
      Entry("StringDBCSLen", &StringDBCSLen),
      Entry("StringDBCSAsc", &StringDBCSAsc),
      Entry("StringDBCSChr", &StringDBCSChr),
      Entry("StringInStr", &StringInStr),
      Entry("StringExtendsInStr", &StringExtendsInStr),
  };
}

}  // namespace library
}  // namespace standin
}  // namespace quorl
