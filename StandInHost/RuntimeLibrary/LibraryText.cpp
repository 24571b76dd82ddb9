// Text helpers of the runtime library.
#include "StandInHost/RuntimeLibrary/LibraryText.h"

#include <string.h>

#include <algorithm>

#include "Universal/Encodings.h"

namespace quorl {
namespace standin {
namespace library {

string MakeText(char const* bytes, unsigned long length, unsigned long tag) {
  string result;
  if (length)
    result.AdoptReference(NewStringStorage(bytes, length, tag));
  return result;
}

string CharacterView(stringStorage* text) {
  string view(text);
  unsigned long tag = view.Encoding();
  if (tag == kEncodingUTF8 || tag == kEncodingASCII || tag == kEncodingUnknown)
    return view;
  return view.GetUTF8String();
}

string ByteSlice(string const& text, unsigned long start, unsigned long count) {
  unsigned long length = text.Length();
  if (start >= length || count == 0) return string();
  if (count > length - start) count = length - start;
  if (start == 0 && count == length) return text;
  return MakeText(text.CString() + start, count, text.Encoding());
}

namespace {

CodePoints Decode(string const& text, bool fold) {
  CodePoints points;
  unsigned char const* bytes =
      reinterpret_cast<unsigned char const*>(text.CString());
  unsigned long length = text.Length();
  unsigned long at = 0;
  while (at < length) {
    unsigned long size = UTF8SequenceLength(bytes[at]);
    unsigned long code = at + size <= length ? UTF8Decode(bytes + at)
                                             : bytes[at];
    if (at + size > length) size = length - at;
    points.codes.push_back(fold ? UnicodeCharToUpper(code) : code);
    points.offsets.push_back(at);
    at += size;
  }
  points.offsets.push_back(length);
  return points;
}

}  // namespace

CodePoints DecodeUTF8(string const& text) { return Decode(text, false); }
CodePoints DecodeFolded(string const& text) { return Decode(text, true); }

long FindCodes(std::vector<unsigned long> const& haystack,
               std::vector<unsigned long> const& needle, unsigned long from) {
  if (needle.empty() || needle.size() > haystack.size()) return -1;
  for (unsigned long i = from; i + needle.size() <= haystack.size(); i++)
    if (std::equal(needle.begin(), needle.end(), haystack.begin() + i))
      return static_cast<long>(i);
  return -1;
}

long FindBytes(string const& haystack, string const& needle,
               unsigned long from) {
  unsigned long length = haystack.Length(), size = needle.Length();
  if (size == 0 || size > length) return -1;
  for (unsigned long i = from; i + size <= length; i++)
    if (memcmp(haystack.CString() + i, needle.CString(), size) == 0)
      return static_cast<long>(i);
  return -1;
}

}  // namespace library
}  // namespace standin
}  // namespace quorl
