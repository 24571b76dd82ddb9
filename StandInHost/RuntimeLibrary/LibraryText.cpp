// Text helpers of the runtime library.
#include "StandInHost/RuntimeLibrary/LibraryText.h"

#include <string.h>

#include "Universal/Encodings.h"
#include "Universal/StringWorkCounters.h"

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

// ---------------------------------------------------------------------------
// Walking code points

CharacterText::CharacterText(stringStorage* text)
    : CharacterText(CharacterView(text)) {}

CharacterText::CharacterText(string const& view)
    : mView(view),
      mBytes(reinterpret_cast<unsigned char const*>(view.CString())),
      mLength(view.Length()),
      mOneBytePerCharacter(view.Encoding() == kEncodingASCII) {}

unsigned long CharacterText::CodeAt(unsigned long at) const {
  if (mOneBytePerCharacter || mBytes[at] < 0x80) return mBytes[at];
  unsigned long size = UTF8SequenceLength(mBytes[at]);
  return at + size <= mLength ? UTF8Decode(mBytes + at) : mBytes[at];
}

unsigned long CharacterText::Next(unsigned long at) const {
  unsigned long size =
      mOneBytePerCharacter ? 1 : UTF8SequenceLength(mBytes[at]);
  return at + size < mLength ? at + size : mLength;
}

unsigned long CharacterText::Advance(unsigned long at,
                                     unsigned long count) const {
  if (mOneBytePerCharacter)
    return count < mLength - at ? at + count : mLength;
  unsigned long from = at;
  for (; count && at < mLength; count--) at = Next(at);
  CountStringScan(at - from);
  return at;
}

unsigned long CharacterText::CountBetween(unsigned long from,
                                          unsigned long to) const {
  if (mOneBytePerCharacter) return to - from;
  unsigned long count = 0;
  for (unsigned long at = from; at < to; at = Next(at)) count++;
  CountStringScan(to - from);
  return count;
}

// ---------------------------------------------------------------------------
// Searching

// ASCII letters fold here without the table lookup that the rest needs.
unsigned long FoldCase(unsigned long code) {
  if (code < 0x80) return code >= 'a' && code <= 'z' ? code - 32 : code;
  return UnicodeCharToUpper(code);
}

std::vector<unsigned long> FoldedCodes(CharacterText const& text) {
  std::vector<unsigned long> codes;
  for (unsigned long at = 0; at < text.Length(); at = text.Next(at))
    codes.push_back(FoldCase(text.CodeAt(at)));
  return codes;
}

namespace {

// Whether the folded needle stands at `at`; if so, where the match ends.
bool MatchesAt(CharacterText const& haystack,
               std::vector<unsigned long> const& needle, unsigned long at,
               unsigned long* end) {
  for (unsigned long code : needle) {
    if (at >= haystack.Length() || FoldCase(haystack.CodeAt(at)) != code)
      return false;
    at = haystack.Next(at);
  }
  *end = at;
  return true;
}

}  // namespace

bool FindFolded(CharacterText const& haystack,
                std::vector<unsigned long> const& needle, unsigned long from,
                TextMatch* match) {
  if (needle.empty()) return false;
  bool found = false;
  unsigned long at = from;
  for (; at < haystack.Length(); at = haystack.Next(at)) {
    if (FoldCase(haystack.CodeAt(at)) != needle[0]) continue;
    if (MatchesAt(haystack, needle, at, &match->end)) {
      match->start = at;
      found = true;
      break;
    }
  }
  CountStringScan(at - from);
  return found;
}

long FindBytes(string const& haystack, string const& needle,
               unsigned long from) {
  unsigned long length = haystack.Length(), size = needle.Length();
  if (size == 0 || size > length || from > length - size) return -1;
  char const* text = haystack.CString();
  char const* last = text + length - size;
  char const* at = text + from;
  long found = -1;
  while (at <= last) {
    at = static_cast<char const*>(memchr(at, needle[0], last - at + 1));
    if (!at) break;
    if (memcmp(at, needle.CString(), size) == 0) {
      found = at - text;
      break;
    }
    at++;
  }
  CountStringScan((found >= 0 ? found : length) - from);
  return found;
}

}  // namespace library
}  // namespace standin
}  // namespace quorl
