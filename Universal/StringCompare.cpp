// Comparison of strings. Equality of `string` ignores case: that is the
// language's rule for identifiers and script strings, and the compiler's
// tables rely on it.
#include <string.h>
#include <strings.h>

#include "Universal/ByteHelpers.h"
#include "Universal/Encodings.h"
#include "Universal/ustring.h"

namespace {

int Sign(int value) { return value < 0 ? -1 : (value > 0 ? 1 : 0); }

// Equal lengths go through strncasecmp / strncmp, which stop at a NUL inside
// the text; this is long-standing behaviour and is kept. Different lengths
// walk the common prefix byte by byte.
int CompareCounted(string const& a, string const& b, bool ignoreCase) {
  unsigned long lengthA = a.Length(), lengthB = b.Length();
  if (lengthA == lengthB) {
    int raw = ignoreCase ? strncasecmp(a.CString(), b.CString(), lengthA)
                         : strncmp(a.CString(), b.CString(), lengthA);
    return Sign(raw);
  }
  return ignoreCase ? ustrncmpi(a.CString(), lengthA, b.CString(), lengthB)
                    : ustrncmp(a.CString(), lengthA, b.CString(), lengthB);
}

// Text in two known encodings is compared in one of them.
int CompareStrings(string const& a, string const& b, bool ignoreCase) {
  if (a.GetStringStorage() == b.GetStringStorage()) return 0;
  if (a.HasUTF8Bytes() && b.HasUTF8Bytes())
    return CompareCounted(a, b, ignoreCase);
  unsigned long tagA = a.Encoding(), tagB = b.Encoding();
  if (tagA != tagB && tagA != kEncodingUnknown && tagB != kEncodingUnknown) {
    string first = a, second = b;
    ConvertToSameEncoding(&first, &second);
    return CompareCounted(first, second, ignoreCase);
  }
  return CompareCounted(a, b, ignoreCase);
}

}  // namespace

int string::Compare(string const& other) const {
  return CompareStrings(*this, other, true);
}

int string::CompareWithCase(string const& other) const {
  return CompareStrings(*this, other, false);
}

bool operator==(string const& a, string const& b) { return a.Compare(b) == 0; }
bool operator!=(string const& a, string const& b) { return a.Compare(b) != 0; }
bool operator<(string const& a, string const& b) { return a.Compare(b) < 0; }
bool operator<=(string const& a, string const& b) { return a.Compare(b) <= 0; }
bool operator>(string const& a, string const& b) { return a.Compare(b) > 0; }
bool operator>=(string const& a, string const& b) { return a.Compare(b) >= 0; }

bool operator==(string const& a, char const* b) {
  return ustrcmpi(a.CString(), b ? b : "") == 0;
}

bool operator!=(string const& a, char const* b) { return !(a == b); }
