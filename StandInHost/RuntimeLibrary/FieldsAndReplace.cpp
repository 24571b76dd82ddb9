// Fields of delimited text, and replacement of found text.
//
// CountFields, NthField, Replace and ReplaceAll find their delimiter or
// target without regard to case; ReplaceB and ReplaceAllB compare bytes.
// Choices: an empty text has no fields (CountFields 0); an empty delimiter
// makes the whole text one field; NthField below 1 or past the last field is
// empty; an empty target leaves the text unchanged; ReplaceAll goes left to
// right over matches that do not overlap.
#include <utility>

#include "StandInHost/RuntimeLibrary/LibraryEntries.h"
#include "StandInHost/RuntimeLibrary/LibraryText.h"

namespace quorl {
namespace standin {
namespace library {
namespace {

// Byte ranges [first, second) of matches, left to right.
using Matches = std::vector<std::pair<unsigned long, unsigned long>>;

const unsigned long kEveryMatch = ~0ul;

Matches FoldedMatches(string const& text, string const& target,
                      unsigned long limit) {
  CodePoints hay = DecodeFolded(text), pin = DecodeFolded(target);
  Matches matches;
  long at = FindCodes(hay.codes, pin.codes, 0);
  while (at >= 0 && matches.size() < limit) {
    unsigned long end = at + pin.Count();
    matches.push_back({hay.offsets[at], hay.offsets[end]});
    at = FindCodes(hay.codes, pin.codes, end);
  }
  return matches;
}

Matches ExactMatches(string const& text, string const& target,
                     unsigned long limit) {
  Matches matches;
  long at = FindBytes(text, target, 0);
  while (at >= 0 && matches.size() < limit) {
    unsigned long end = at + target.Length();
    matches.push_back({static_cast<unsigned long>(at), end});
    at = FindBytes(text, target, end);
  }
  return matches;
}

// The text with every match replaced; pieces of different encodings are
// brought to one by the string sum.
string ReplaceMatches(string const& text, Matches const& matches,
                      string const& replacement) {
  if (matches.empty()) return text;
  string result;
  unsigned long done = 0;
  for (auto const& match : matches) {
    result += ByteSlice(text, done, match.first - done);
    result += replacement;
    done = match.second;
  }
  return result + ByteSlice(text, done, text.Length() - done);
}

long StringCountFields(stringStorage* text, stringStorage* delimiter) {
  string view = CharacterView(text);
  if (view.IsEmpty()) return 0;
  Matches matches = FoldedMatches(view, CharacterView(delimiter), kEveryMatch);
  return static_cast<long>(matches.size()) + 1;
}

stringStorage* StringNthField(stringStorage* text, stringStorage* delimiter,
                              long index) {
  string view = CharacterView(text);
  if (index < 1) return nullptr;
  Matches matches = FoldedMatches(view, CharacterView(delimiter), index);
  unsigned long field = static_cast<unsigned long>(index) - 1;
  if (field > matches.size()) return nullptr;
  unsigned long start = field ? matches[field - 1].second : 0;
  unsigned long end =
      field < matches.size() ? matches[field].first : view.Length();
  return HandOut(ByteSlice(view, start, end - start));
}

stringStorage* ReplaceFolded(stringStorage* source, stringStorage* target,
                             stringStorage* replacement, unsigned long limit) {
  string view = CharacterView(source);
  return HandOut(ReplaceMatches(
      view, FoldedMatches(view, CharacterView(target), limit),
      string(replacement)));
}

stringStorage* ReplaceExact(stringStorage* source, stringStorage* target,
                            stringStorage* replacement, unsigned long limit) {
  string bytes(source);
  return HandOut(ReplaceMatches(bytes,
                                ExactMatches(bytes, string(target), limit),
                                string(replacement)));
}

stringStorage* StringReplace(stringStorage* s, stringStorage* o,
                             stringStorage* n) {
  return ReplaceFolded(s, o, n, 1);
}

stringStorage* StringReplaceAll(stringStorage* s, stringStorage* o,
                                stringStorage* n) {
  return ReplaceFolded(s, o, n, kEveryMatch);
}

stringStorage* StringReplaceB(stringStorage* s, stringStorage* o,
                              stringStorage* n) {
  return ReplaceExact(s, o, n, 1);
}

stringStorage* StringReplaceAllB(stringStorage* s, stringStorage* o,
                                 stringStorage* n) {
  return ReplaceExact(s, o, n, kEveryMatch);
}

}  // namespace

LibraryEntries FieldAndReplaceEntries() {
  return {
      Entry("StringCountFields", &StringCountFields),
      Entry("StringNthField", &StringNthField),
      Entry("StringReplace", &StringReplace),
      Entry("StringReplaceAll", &StringReplaceAll),
      Entry("StringReplaceB", &StringReplaceB),
      Entry("StringReplaceAllB", &StringReplaceAllB),
  };
}

}  // namespace library
}  // namespace standin
}  // namespace quorl
