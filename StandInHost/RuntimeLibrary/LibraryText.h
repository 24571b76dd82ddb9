// What the runtime library's string functions share: taking arguments and
// handing results over the C boundary, and walking text as code points.
//
// Arguments arrive as borrowed `stringStorage*` words (nil is the empty
// string); a result leaves with one reference that the caller owns.
//
// Cost: a function walks the text only as far as its answer needs, and
// makes nothing but its result. Text tagged ASCII has one byte per
// character, so a character position in it is found at once. In other text
// a position takes a walk, which starts from the last position looked up in
// the same text when that lies before it: a program that walks forward
// through a text (InStr from a start, Mid from there, InStr from further
// on) pays for each stretch once.
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

// Text seen as code points, with positions as byte offsets. A sequence cut
// short by the end of the text counts as one code point.
class CharacterText {
 public:
  explicit CharacterText(stringStorage* text);
  explicit CharacterText(string const& view);

  string const& View() const { return mView; }
  unsigned long Length() const { return mLength; }
  // The code point that starts at `at`, and where the next one starts.
  // Inline, with ASCII first: every search and walk goes through them.
  unsigned long CodeAt(unsigned long at) const {
    if (mOneBytePerCharacter || mBytes[at] < 0x80) return mBytes[at];
    return CodeOfSequenceAt(at);
  }
  unsigned long Next(unsigned long at) const {
    if (mOneBytePerCharacter || mBytes[at] < 0x80) return at + 1;
    return EndOfSequenceAt(at);
  }
  // The offset `count` code points after `at`, or the length.
  unsigned long Advance(unsigned long at, unsigned long count) const;
  // The offset of the code point `index` code points from the start, or the
  // length; remembered for the next lookup in this text.
  unsigned long OffsetOf(unsigned long index) const;
  // The number of code points of the whole text; remembered as well.
  unsigned long CharacterCount() const;
  // The number of code points in bytes [from, to).
  unsigned long CountBetween(unsigned long from, unsigned long to) const;
  // Bytes [start, end) as a string of the text's tag.
  string Slice(unsigned long start, unsigned long end) const {
    return ByteSlice(mView, start, end - start);
  }

 private:
  void Describe();
  unsigned long CodeOfSequenceAt(unsigned long at) const;
  unsigned long EndOfSequenceAt(unsigned long at) const;

  string mView;
  unsigned char const* mBytes;
  unsigned long mLength;
  bool mOneBytePerCharacter;
};

// Where the last NthField found its field: a program that asks for every
// field in turn then pays for each field once, not for the text before it.
// The text is kept alive while remembered, so that no other text can take
// its address; each thread remembers its own.
struct FieldMemo {
  string text;
  string delimiter;
  long index = 0;
  unsigned long start = 0;
};
FieldMemo& RememberedField();

// Drops the remembered positions of characters and of a field, and the
// references to their texts that come with them.
void ForgetCharacterPositions();

// The code point as searches without regard to case see it. ASCII folds
// in line, without the table lookup that the rest needs.
unsigned long FoldCaseBeyondASCII(unsigned long code);
inline unsigned long FoldCase(unsigned long code) {
  if (code >= 0x80) return FoldCaseBeyondASCII(code);
  return code >= 'a' && code <= 'z' ? code - ('a' - 'A') : code;
}

// The code points of a text, each folded: what a search without regard to
// case looks for. Short needles, the usual ones, need no allocation.
class FoldedNeedle {
 public:
  explicit FoldedNeedle(CharacterText const& text);
  unsigned long size() const { return mCount; }
  bool empty() const { return !mCount; }
  unsigned long operator[](unsigned long k) const {
    return k < kInlineCodes ? mInline[k] : mRest[k - kInlineCodes];
  }

 private:
  static const unsigned long kInlineCodes = 16;
  unsigned long mInline[kInlineCodes];
  std::vector<unsigned long> mRest;
  unsigned long mCount = 0;
};

// A match: bytes [start, end), and the number of code points between where
// the search began and `start`.
struct TextMatch {
  unsigned long start;
  unsigned long end;
  unsigned long skipped;
};

// The first occurrence of `needle` in `haystack` that starts at or after
// byte `from` (a code point boundary). An empty needle is never found.
bool FindFolded(CharacterText const& haystack, FoldedNeedle const& needle,
                unsigned long from, TextMatch* match);
// First index at or after `from` where the bytes of `needle` occur in
// `haystack`, or -1. An empty needle is never found.
long FindBytes(string const& haystack, string const& needle,
               unsigned long from);

}  // namespace library
}  // namespace standin
}  // namespace quorl

#endif
