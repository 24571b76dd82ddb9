// Strings by byte: the B forms. Positions and lengths count bytes of the
// text as stored, positions start at 1, and searches compare bytes exactly.
// Results keep the text's tag, even where a cut splits a character.
//
// The same choices as the character forms: a start below 1 counts as 1, a
// length of 0 or below gives the empty string, an empty needle is never
// found. ChrB of a value outside 0..255 is the empty string; a byte of 128
// or more belongs to no known encoding and is left untagged.
#include "StandInHost/RuntimeLibrary/LibraryEntries.h"
#include "StandInHost/RuntimeLibrary/LibraryText.h"

namespace quorl {
namespace standin {
namespace library {
namespace {

unsigned long FirstByte(long start) {
  return start > 1 ? static_cast<unsigned long>(start - 1) : 0;
}

unsigned long Count(long count) {
  return count > 0 ? static_cast<unsigned long>(count) : 0;
}

stringStorage* StringLeft(stringStorage* text, long count) {
  return HandOut(ByteSlice(string(text), 0, Count(count)));
}

stringStorage* StringRight(stringStorage* text, long count) {
  string bytes(text);
  unsigned long length = bytes.Length(), wanted = Count(count);
  if (wanted > length) wanted = length;
  return HandOut(ByteSlice(bytes, length - wanted, wanted));
}

stringStorage* StringMid3(stringStorage* text, long start, long count) {
  return HandOut(ByteSlice(string(text), FirstByte(start), Count(count)));
}

stringStorage* StringMid2(stringStorage* text, long start) {
  string bytes(text);
  return HandOut(ByteSlice(bytes, FirstByte(start), bytes.Length()));
}

long StringLen(stringStorage* text) {
  return text ? static_cast<long>(text->mLength) : 0;
}

long StringAsc(stringStorage* text) {
  return text && text->mLength
             ? static_cast<unsigned char>(text->CString()[0])
             : 0;
}

stringStorage* StringChr(long value) {
  if (value < 0 || value > 255) return nullptr;
  char byte = static_cast<char>(value);
  return HandOut(MakeText(&byte, 1,
                          value < 128 ? kEncodingASCII : kEncodingUnknown));
}

long StringInStrB(long start, stringStorage* haystack, stringStorage* needle) {
  return FindBytes(string(haystack), string(needle), FirstByte(start)) + 1;
}

long StringExtendsInStrB(stringStorage* haystack, long start,
                         stringStorage* needle) {
  return StringInStrB(start, haystack, needle);
}

}  // namespace

LibraryEntries ByteStringEntries() {
  return {
      Entry<&StringLeft>("StringLeft"),
      Entry<&StringRight>("StringRight"),
      Entry<&StringMid3>("StringMid3"),
      Entry<&StringMid2>("StringMid2"),
      Entry<&StringLen>("StringLen"),
      Entry<&StringAsc>("StringAsc"),
      Entry<&StringChr>("StringChr"),
      Entry<&StringInStrB>("StringInStrB"),
      Entry<&StringExtendsInStrB>("StringExtendsInStrB"),
  };
}

}  // namespace library
}  // namespace standin
}  // namespace quorl
