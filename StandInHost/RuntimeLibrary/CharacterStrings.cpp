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

unsigned long FirstIndex(long start) {
  return start > 1 ? static_cast<unsigned long>(start - 1) : 0;
}

unsigned long Count(long count) {
  return count > 0 ? static_cast<unsigned long>(count) : 0;
}

// `count` code points from the one `first` code points in, clamped to the
// text; the walk stops where the slice does.
stringStorage* CharacterRange(stringStorage* text, unsigned long first,
                              unsigned long count) {
  if (!count) return nullptr;
  CharacterText characters(text);
  unsigned long start = characters.OffsetOf(first);
  return HandOut(characters.Slice(start, characters.Advance(start, count)));
}

stringStorage* StringDBCSLeft(stringStorage* text, long count) {
  return CharacterRange(text, 0, Count(count));
}

stringStorage* StringDBCSRight(stringStorage* text, long count) {
  if (count <= 0) return nullptr;
  CharacterText characters(text);
  unsigned long total = characters.CharacterCount();
  unsigned long wanted = Count(count) < total ? Count(count) : total;
  unsigned long start = characters.OffsetOf(total - wanted);
  return HandOut(characters.Slice(start, characters.Length()));
}

stringStorage* StringDBCSMid3(stringStorage* text, long start, long count) {
  return CharacterRange(text, FirstIndex(start), Count(count));
}

stringStorage* StringDBCSMid2(stringStorage* text, long start) {
  CharacterText characters(text);
  unsigned long first = characters.OffsetOf(FirstIndex(start));
  return HandOut(characters.Slice(first, characters.Length()));
}

long StringDBCSLen(stringStorage* text) {
  return static_cast<long>(CharacterText(text).CharacterCount());
}

long StringDBCSAsc(stringStorage* text) {
  CharacterText characters(text);
  return characters.Length() ? static_cast<long>(characters.CodeAt(0)) : 0;
}

// A character of ASCII is tagged so: positions in text made of such
// characters then cost nothing to find.
stringStorage* StringDBCSChr(long code) {
  if (code < 0 || code > 0x10FFFF) return nullptr;
  if (code < 0x80) {
    char byte = static_cast<char>(code);
    return HandOut(MakeText(&byte, 1, kEncodingASCII));
  }
  return HandOut(UnicodeChar(static_cast<unsigned long>(code), kEncodingUTF8));
}

// The search starts at the code point `start`; the answer counts the code
// points up to the match from there.
long StringInStr(long start, stringStorage* haystack, stringStorage* needle) {
  CharacterText hay(haystack);
  FoldedNeedle pin{CharacterText(needle)};
  unsigned long first = FirstIndex(start);
  TextMatch match;
  if (!FindFolded(hay, pin, hay.OffsetOf(first), &match)) return 0;
  return static_cast<long>(first + match.skipped) + 1;
}

long StringExtendsInStr(stringStorage* haystack, long start,
                        stringStorage* needle) {
  return StringInStr(start, haystack, needle);
}

}  // namespace

LibraryEntries CharacterStringEntries() {
  return {
      Entry<&StringDBCSLeft>("StringDBCSLeft"),
      Entry<&StringDBCSRight>("StringDBCSRight"),
      Entry<&StringDBCSMid3>("StringDBCSMid3"),
      Entry<&StringDBCSMid2>("StringDBCSMid2"),
      Entry<&StringDBCSLen>("StringDBCSLen"),
      Entry<&StringDBCSAsc>("StringDBCSAsc"),
      Entry<&StringDBCSChr>("StringDBCSChr"),
      Entry<&StringInStr>("StringInStr"),
      Entry<&StringExtendsInStr>("StringExtendsInStr"),
  };
}

}  // namespace library
}  // namespace standin
}  // namespace quorl
