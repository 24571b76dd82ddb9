// Fields of delimited text, and replacement of found text.
//
// CountFields, NthField, Replace and ReplaceAll find their delimiter or
// target without regard to case; ReplaceB and ReplaceAllB compare bytes.
// Choices: an empty text has no fields (CountFields 0); an empty delimiter
// makes the whole text one field; NthField below 1 or past the last field is
// empty; an empty target leaves the text unchanged; ReplaceAll goes left to
// right over matches that do not overlap.
#include <string.h>

#include <new>

#include "Common/ObjectModel/RuntimeExceptionFoundation.h"
#include "StandInHost/RuntimeLibrary/LibraryEntries.h"
#include "StandInHost/RuntimeLibrary/LibraryText.h"
#include "Universal/StringAssembly.h"

namespace quorl {
namespace standin {
namespace library {
namespace {

const unsigned long kEveryMatch = ~0ul;

// Matches of `target` in `text`, left to right, never overlapping, at most
// `limit` of them.
std::vector<TextMatch> FoldedMatches(CharacterText const& text,
                                     string const& target,
                                     unsigned long limit) {
  FoldedNeedle pin{CharacterText(target)};
  std::vector<TextMatch> matches;
  bool refused = false;
  try {
    TextMatch match;
    for (unsigned long at = 0; matches.size() < limit &&
                               FindFolded(text, pin, at, &match);
         at = match.end)
      matches.push_back(match);
  } catch (std::bad_alloc const&) {
    refused = true;
  }
  // Raised outside the handler, so that the C++ exception is gone first.
  if (refused) RaiseOutOfMemoryException();
  return matches;
}

std::vector<TextMatch> ExactMatches(string const& text, string const& target,
                                    unsigned long limit) {
  std::vector<TextMatch> matches;
  bool refused = false;
  try {
    for (long at = FindBytes(text, target, 0);
         at >= 0 && matches.size() < limit;
         at = FindBytes(text, target, at + target.Length()))
      matches.push_back(
          {static_cast<unsigned long>(at), at + target.Length(), 0});
  } catch (std::bad_alloc const&) {
    refused = true;
  }
  if (refused) RaiseOutOfMemoryException();
  return matches;
}

// The text with every match replaced, made at its final size at once; a
// result the length field or the heap cannot hold raises
// OutOfMemoryException.
stringStorage* ReplaceMatches(string const& text,
                              std::vector<TextMatch> const& matches,
                              string const& replacement) {
  if (matches.empty()) return HandOut(text);
  bool refused = false;
  string replaced = AssembleString([&](auto piece) {
    unsigned long done = 0;
    for (TextMatch const& match : matches) {
      piece(text, done, match.start - done);
      piece(replacement, 0, replacement.Length());
      done = match.end;
    }
    piece(text, done, text.Length() - done);
  }, &refused);
  if (refused) RaiseOutOfMemoryException();
  return HandOut(replaced);
}

long StringCountFields(stringStorage* text, stringStorage* delimiter) {
  CharacterText characters(text);
  if (!characters.Length()) return 0;
  return static_cast<long>(
             FoldedMatches(characters, CharacterView(delimiter), kEveryMatch)
                 .size()) +
         1;
}

bool SameBytes(string const& a, stringStorage* b) {
  string other(b);
  return a.Length() == other.Length() && a.Encoding() == other.Encoding() &&
         memcmp(a.CString(), other.CString(), a.Length()) == 0;
}

// The walk starts from the remembered field when it lies on the way, and
// stops at the end of the field asked for.
stringStorage* StringNthField(stringStorage* text, stringStorage* delimiter,
                              long index) {
  if (index < 1) return nullptr;
  CharacterText characters(text);
  FoldedNeedle pin{CharacterText(delimiter)};
  long field = 1;
  unsigned long start = 0;
  FieldMemo& memo = RememberedField();
  if (characters.View().GetStringStorage() &&
      memo.text.GetStringStorage() == characters.View().GetStringStorage() &&
      memo.index <= index && SameBytes(memo.delimiter, delimiter)) {
    field = memo.index;
    start = memo.start;
  }
  TextMatch match;
  for (; field < index; field++) {
    if (!FindFolded(characters, pin, start, &match)) return nullptr;
    start = match.end;
  }
  memo.text = characters.View();
  memo.delimiter = string(delimiter);
  memo.index = index;
  memo.start = start;
  unsigned long end = FindFolded(characters, pin, start, &match)
                          ? match.start
                          : characters.Length();
  return HandOut(characters.Slice(start, end));
}

stringStorage* ReplaceFolded(stringStorage* source, stringStorage* target,
                             stringStorage* replacement, unsigned long limit) {
  CharacterText characters(source);
  return ReplaceMatches(
      characters.View(),
      FoldedMatches(characters, CharacterView(target), limit),
      string(replacement));
}

stringStorage* ReplaceExact(stringStorage* source, stringStorage* target,
                            stringStorage* replacement, unsigned long limit) {
  string bytes(source);
  return ReplaceMatches(bytes, ExactMatches(bytes, string(target), limit),
                        string(replacement));
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
      Entry<&StringCountFields>("StringCountFields"),
      Entry<&StringNthField>("StringNthField"),
      Entry<&StringReplace>("StringReplace"),
      Entry<&StringReplaceAll>("StringReplaceAll"),
      Entry<&StringReplaceB>("StringReplaceB"),
      Entry<&StringReplaceAllB>("StringReplaceAllB"),
  };
}

}  // namespace library
}  // namespace standin
}  // namespace quorl
