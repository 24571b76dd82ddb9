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

namespace {

bool WalksAsUTF8(unsigned long tag) {
  return tag == kEncodingUTF8 || tag == kEncodingASCII ||
         tag == kEncodingUnknown;
}

}  // namespace

string CharacterView(stringStorage* text) {
  string view(text);
  if (WalksAsUTF8(view.Encoding())) return view;
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

namespace {

// The last character position looked up in text that is not one byte per
// character, and the text's count of code points once known (-1 before).
// It keeps a reference to its text, so that the text can be neither freed,
// with its address given to other text, nor changed in place while its
// positions are remembered. One per thread, as scripts run on several at
// once; set by the lookups below, dropped by ForgetCharacterPositions or
// when the thread ends.
struct PositionMemo {
  string text;
  unsigned long index = 0;
  unsigned long offset = 0;
  long count = -1;
};
thread_local PositionMemo sPositionMemo;

bool Remembers(string const& view) {
  return view.GetStringStorage() &&
         sPositionMemo.text.GetStringStorage() == view.GetStringStorage();
}

// Makes the memo the one of `view`, keeping what it knew of the same text.
void RememberText(string const& view) {
  if (Remembers(view)) return;
  sPositionMemo = PositionMemo();
  sPositionMemo.text = view;
}

}  // namespace

thread_local FieldMemo sFieldMemo;

FieldMemo& RememberedField() { return sFieldMemo; }

void ForgetCharacterPositions() {
  sPositionMemo = PositionMemo();
  sFieldMemo = FieldMemo();
}

// Text that walks as UTF-8 is shared as it is: no copy, no conversion.
CharacterText::CharacterText(stringStorage* text) : mView(text) {
  if (!WalksAsUTF8(mView.Encoding())) mView = mView.GetUTF8String();
  Describe();
}

CharacterText::CharacterText(string const& view) : mView(view) { Describe(); }

void CharacterText::Describe() {
  mBytes = reinterpret_cast<unsigned char const*>(mView.CString());
  mLength = mView.Length();
  mOneBytePerCharacter = mView.Encoding() == kEncodingASCII;
}

// A sequence that the end of the text cuts short is its lead byte alone.
unsigned long CharacterText::CodeOfSequenceAt(unsigned long at) const {
  unsigned long size = UTF8SequenceLength(mBytes[at]);
  return at + size <= mLength ? UTF8Decode(mBytes + at) : mBytes[at];
}

unsigned long CharacterText::EndOfSequenceAt(unsigned long at) const {
  unsigned long size = UTF8SequenceLength(mBytes[at]);
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

unsigned long CharacterText::OffsetOf(unsigned long index) const {
  if (mOneBytePerCharacter || !mLength)
    return index < mLength ? index : mLength;
  RememberText(mView);
  unsigned long at = 0, reached = 0;
  if (sPositionMemo.index <= index) {
    at = sPositionMemo.offset;
    reached = sPositionMemo.index;
  }
  unsigned long from = at;
  for (; reached < index && at < mLength; reached++) at = Next(at);
  CountStringScan(at - from);
  sPositionMemo.index = reached;
  sPositionMemo.offset = at;
  return at;
}

unsigned long CharacterText::CharacterCount() const {
  if (mOneBytePerCharacter || !mLength) return mLength;
  RememberText(mView);
  if (sPositionMemo.count < 0)
    sPositionMemo.count = static_cast<long>(CountBetween(0, mLength));
  return static_cast<unsigned long>(sPositionMemo.count);
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

unsigned long FoldCaseBeyondASCII(unsigned long code) {
  return UnicodeCharToUpper(code);
}

FoldedNeedle::FoldedNeedle(CharacterText const& text) {
  for (unsigned long at = 0; at < text.Length(); at = text.Next(at), mCount++) {
    unsigned long code = FoldCase(text.CodeAt(at));
    if (mCount < kInlineCodes)
      mInline[mCount] = code;
    else
      mRest.push_back(code);
  }
}

namespace {

// Whether the needle stands at `at`; if so, where the match ends.
bool MatchesAt(CharacterText const& haystack, FoldedNeedle const& needle,
               unsigned long at, unsigned long* end) {
  for (unsigned long k = 0; k < needle.size(); k++) {
    if (at >= haystack.Length() || FoldCase(haystack.CodeAt(at)) != needle[k])
      return false;
    at = haystack.Next(at);
  }
  *end = at;
  return true;
}

}  // namespace

// Code points are counted on the way, so that a caller that wants the
// match's position in characters need not walk the text again.
bool FindFolded(CharacterText const& haystack, FoldedNeedle const& needle,
                unsigned long from, TextMatch* match) {
  if (needle.empty()) return false;
  unsigned long first = needle[0], skipped = 0, at = from;
  bool found = false;
  for (; at < haystack.Length(); at = haystack.Next(at), skipped++) {
    if (FoldCase(haystack.CodeAt(at)) == first &&
        MatchesAt(haystack, needle, at, &match->end)) {
      match->start = at;
      match->skipped = skipped;
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
