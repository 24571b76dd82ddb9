// Case mapping, trimming and comparison of whole strings.
//
// Choices: Trim, LTrim and RTrim drop every Unicode white space (blanks,
// tabs, line ends, no-break spaces...), not only blanks. Titlecase raises
// the first letter of each word and lowers the rest. StrComp mode 0
// compares bytes as unsigned values, so that text beyond ASCII sorts after
// it; any other mode ignores case, code point by code point. Text in an
// encoding other than ASCII or UTF-8 is converted to UTF-8 first, and the
// result is then UTF-8.
#include <stdlib.h>
#include <string.h>

#include "StandInHost/RuntimeLibrary/LibraryEntries.h"
#include "StandInHost/RuntimeLibrary/LibraryText.h"
#include "Universal/Encodings.h"
#include "Universal/StringWorkCounters.h"

namespace quorl {
namespace standin {
namespace library {
namespace {

typedef void (*CaseMapper)(unsigned char const* text, unsigned long length,
                           unsigned char** out, unsigned long* outLength);

stringStorage* MapCase(stringStorage* text, CaseMapper mapper) {
  string view = CharacterView(text);
  if (view.IsEmpty()) return nullptr;
  unsigned char* out = nullptr;
  unsigned long outLength = 0;
  mapper(reinterpret_cast<unsigned char const*>(view.CString()),
         view.Length(), &out, &outLength);
  string result =
      MakeText(reinterpret_cast<char const*>(out), outLength, view.Encoding());
  free(out);
  return HandOut(result);
}

stringStorage* StringUCase(stringStorage* text) {
  return MapCase(text, &UTF8ToUpper);
}

stringStorage* StringLCase(stringStorage* text) {
  return MapCase(text, &UTF8ToLower);
}

stringStorage* StringTitleCase(stringStorage* text) {
  return MapCase(text, &UTF8Capitalize);
}

// Drops leading and/or trailing white space; the text itself when there is
// none to drop. One walk finds both ends.
stringStorage* TrimEnds(stringStorage* text, bool front, bool back) {
  CharacterText characters(text);
  unsigned long length = characters.Length();
  unsigned long first = 0, end = 0;
  bool seen = false;
  for (unsigned long at = 0; at < length;) {
    unsigned long next = characters.Next(at);
    if (!UnicodeCharIsWhitespace(characters.CodeAt(at))) {
      if (!seen) first = at;
      seen = true;
      end = next;
    }
    at = next;
  }
  CountStringScan(length);
  if (!seen) return nullptr;
  return HandOut(characters.Slice(front ? first : 0, back ? end : length));
}

stringStorage* runTrim(stringStorage* text) { return TrimEnds(text, true, true); }
stringStorage* runLTrim(stringStorage* text) { return TrimEnds(text, true, false); }
stringStorage* runRTrim(stringStorage* text) { return TrimEnds(text, false, true); }

int UnsignedByteOrder(string const& a, string const& b) {
  unsigned long common = a.Length() < b.Length() ? a.Length() : b.Length();
  int order = memcmp(a.CString(), b.CString(), common);
  if (order) return order;
  return a.Length() < b.Length() ? -1 : a.Length() > b.Length();
}

long StringStrCompare(stringStorage* a, stringStorage* b, long mode) {
  string x = CharacterView(a), y = CharacterView(b);
  int order =
      mode == 0
          ? UnsignedByteOrder(x, y)
          : UTF8StringCompare(
                reinterpret_cast<unsigned char const*>(x.CString()), x.Length(),
                reinterpret_cast<unsigned char const*>(y.CString()), y.Length(),
                true);
  return order < 0 ? -1 : order > 0;
}

}  // namespace

LibraryEntries CaseAndTrimEntries() {
  return {
      Entry<&StringUCase>("StringUCase"),
      Entry<&StringLCase>("StringLCase"),
      Entry<&StringTitleCase>("StringTitleCase"),
      Entry<&runTrim>("runTrim"),
      Entry<&runLTrim>("runLTrim"),
      Entry<&runRTrim>("runRTrim"),
      Entry<&StringStrCompare>("StringStrCompare"),
  };
}

}  // namespace library
}  // namespace standin
}  // namespace quorl
