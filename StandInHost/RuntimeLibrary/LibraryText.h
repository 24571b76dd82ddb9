// What the runtime library's string functions share: taking arguments and
// handing results over the C boundary, and seeing text as code points.
//
// Arguments arrive as borrowed `stringStorage*` words (nil is the empty
// string); a result leaves with one reference that the caller owns.
#ifndef STANDINHOST_RUNTIMELIBRARY_LIBRARYTEXT_H
#define STANDINHOST_RUNTIMELIBRARY_LIBRARYTEXT_H

#include <string>
#include <vector>

#include "Universal/ustring.h"

namespace quorl {
namespace standin {
namespace library {

// A result leaves with the reference its caller will own.
inline stringStorage* HandOut(string const& value) {
  return value.ExtractStringStorage();
}

// Bytes as a new string with the given tag; nil when empty.
string MakeText(char const* bytes, unsigned long length, unsigned long tag);
inline string MakeText(std::string const& bytes, unsigned long tag) {
  return MakeText(bytes.data(), bytes.size(), tag);
}

// The argument as text that can be walked as UTF-8: ASCII, UTF-8 and
// untagged text as they are, any other encoding converted to UTF-8.
string CharacterView(stringStorage* text);

// Bytes [start, start + count) of `text` with its tag; the text itself
// (shared) when that is all of it.
string ByteSlice(string const& text, unsigned long start, unsigned long count);

// UTF-8 text as code points, each with the byte offset where it starts;
// `offsets` has one more element, the byte length. A sequence cut short by
// the end of the text counts as one code point.
struct CodePoints {
  std::vector<unsigned long> codes;
  std::vector<unsigned long> offsets;
  unsigned long Count() const { return codes.size(); }
};
CodePoints DecodeUTF8(string const& text);
// The same with every code point mapped to upper case, for searches that
// ignore case.
CodePoints DecodeFolded(string const& text);

// First index at or after `from` where `needle` occurs in `haystack`, or -1.
// An empty needle is never found.
long FindCodes(std::vector<unsigned long> const& haystack,
               std::vector<unsigned long> const& needle, unsigned long from);
// The same over bytes.
long FindBytes(string const& haystack, string const& needle,
               unsigned long from);

}  // namespace library
}  // namespace standin
}  // namespace quorl

#endif
