// Split, Join, Max and Min: the library functions that work on arrays.
#include "Common/Arrays/ArrayLibrary.h"

#include <ctype.h>
#include <string.h>
#include <strings.h>

#include "Common/Arrays/RuntimeArrays.h"
#include "Common/ObjectModel/RuntimeExceptionFoundation.h"
#include "Universal/Encodings.h"
#include "Universal/StringAssembly.h"
#include "Universal/StringWorkCounters.h"

namespace {

long const kStringElements = 3;

// The search for a delimiter, which is not empty, compared as
// string::Compare compares runs of equal length (case ignored): only the
// positions whose byte is one of the two cases of the delimiter's first
// byte are compared in full.
class DelimiterSearch {
 public:
  DelimiterSearch(string const& text, string const& delimiter)
      : mBytes(text.CString()), mLength(text.Length()),
        mRest(delimiter.CString() + 1), mStep(delimiter.Length()) {
    unsigned char first = static_cast<unsigned char>(delimiter.CString()[0]);
    mLower = static_cast<unsigned char>(tolower(first));
    mUpper = static_cast<unsigned char>(toupper(first));
  }
  unsigned long Step() const { return mStep; }
  // Where the delimiter next stands at or after `from`; the text's length
  // when it does not.
  unsigned long Next(unsigned long from) const {
    if (from + mStep > mLength) return mLength;
    unsigned char const* at = reinterpret_cast<unsigned char const*>(mBytes) + from;
    unsigned char const* last =
        reinterpret_cast<unsigned char const*>(mBytes) + mLength - mStep;
    for (; at <= last; at++) {
      if (*at != mLower && *at != mUpper) continue;
      if (mStep == 1 || strncasecmp(reinterpret_cast<char const*>(at) + 1, mRest,
                                    mStep - 1) == 0)
        return at - reinterpret_cast<unsigned char const*>(mBytes);
    }
    return mLength;
  }

 private:
  char const* mBytes;
  unsigned long mLength;
  char const* mRest;
  unsigned long mStep;
  unsigned char mLower, mUpper;
};

// Calls `field(start, count)` for each field of `text` between occurrences
// of `delimiter`, which is not empty; returns the number of fields.
template <class Field>
long ForEachField(string const& text, string const& delimiter, Field field) {
  DelimiterSearch search(text, delimiter);
  unsigned long length = text.Length(), start = 0;
  long fields = 0;
  for (unsigned long at = search.Next(0); at < length; at = search.Next(start)) {
    field(start, at - start);
    fields++;
    start = at + search.Step();
  }
  CountStringScan(length);
  field(start, length - start);
  return fields + 1;
}

// The byte size of the character that starts at `at`: a code point of text
// that walks as UTF-8, a unit of wide text, a byte of any other encoding.
unsigned long CharacterSize(string const& text, unsigned long at) {
  unsigned long tag = text.Encoding();
  if (tag == kEncodingUTF16) return 2;
  if (IsWideUnicodeEncoding(tag)) return 4;
  if (tag != kEncodingUTF8 && tag != kEncodingASCII && tag != kEncodingUnknown)
    return 1;
  return UTF8SequenceLength(static_cast<unsigned char>(text.CString()[at]));
}

// Each character on its own; returns their number.
template <class Field>
long ForEachCharacter(string const& text, Field field) {
  unsigned long length = text.Length(), at = 0;
  long fields = 0;
  while (at < length) {
    unsigned long size = CharacterSize(text, at);
    if (size > length - at) size = length - at;
    field(at, size);
    fields++;
    at += size;
  }
  CountStringScan(length);
  return fields;
}

// The fields of `text`, counted first so that the array is made once at its
// final size.
template <class Walk>
RuntimeArrayObject* FieldArray(string const& text, Walk walk) {
  long count = walk([](unsigned long, unsigned long) {});
  RuntimeArrayObject* array = CreateArray(1, kStringElements, count - 1);
  stringStorage** elements = reinterpret_cast<stringStorage**>(array->data);
  long k = 0;
  char const* bytes = text.CString();
  uint32_t encoding = static_cast<uint32_t>(text.Encoding());
  walk([&](unsigned long start, unsigned long size) {
    if (size == text.Length())
      elements[k++] = string(text).ExtractStringStorage();
    else if (size)
      elements[k++] = NewStringStorage(bytes + start, size, encoding);
    else
      k++;
  });
  return array;
}

// The values of a Double array, none for nil.
long DoubleCount(RuntimeObject* others) {
  if (!others) return 0;
  return reinterpret_cast<RuntimeArrayObject*>(others)->Ubounds()[0] + 1;
}

double const* Doubles(RuntimeObject* others) {
  return reinterpret_cast<double const*>(
      reinterpret_cast<RuntimeArrayObject*>(others)->data);
}

}  // namespace

// Both sides are brought to one encoding first, so that the search can
// compare bytes.
RuntimeObject* StringSplit(stringStorage* source, stringStorage* delimiter) {
  string text(source), separator(delimiter);
  if (text.IsEmpty()) return &CreateArray(1, kStringElements, -1)->header;
  if (separator.IsEmpty())
    return &FieldArray(text, [&](auto field) {
              return ForEachCharacter(text, field);
            })->header;
  ConvertToSameEncoding(&text, &separator);
  return &FieldArray(text, [&](auto field) {
            return ForEachField(text, separator, field);
          })->header;
}

namespace {

// The common case of Join: at least two pieces that are not empty, all of
// one encoding, so that the bytes are copied as they are into a storage of
// the final size; null when the pieces need what AssembleString does.
stringStorage* JoinOfOneEncoding(stringStorage* const* elements, long last,
                                 stringStorage* delimiter) {
  uint32_t separator = delimiter ? delimiter->mLength : 0;
  uint64_t length = 0;
  long pieces = 0;
  uint32_t encoding = 0;
  for (long k = 0; k <= last; k++) {
    stringStorage* element = elements[k];
    if (!element || !element->mLength) continue;
    if (pieces++ == 0) encoding = element->mEncoding;
    if (element->mEncoding != encoding) return nullptr;
    length += element->mLength;
  }
  if (separator && last > 0) {
    if (pieces == 0) encoding = delimiter->mEncoding;
    if (delimiter->mEncoding != encoding) return nullptr;
    pieces += last;
    length += uint64_t(separator) * last;
  }
  if (pieces < 2 || length > kLongestStringLength) return nullptr;
  stringStorage* joined =
      TryNewStringStorage(nullptr, static_cast<uint32_t>(length), encoding);
  if (!joined) return nullptr;
  char* cursor = joined->CString();
  for (long k = 0; k <= last; k++) {
    if (k > 0 && separator) {
      memcpy(cursor, delimiter->CString(), separator);
      cursor += separator;
    }
    if (elements[k] && elements[k]->mLength) {
      memcpy(cursor, elements[k]->CString(), elements[k]->mLength);
      cursor += elements[k]->mLength;
    }
  }
  CountStringCopy(length);
  return joined;
}

}  // namespace

stringStorage* StringJoin(RuntimeObject* fields, stringStorage* delimiter) {
  if (!fields) {
    RaiseNilObjectException();
    return nullptr;
  }
  RuntimeArrayObject* array = reinterpret_cast<RuntimeArrayObject*>(fields);
  stringStorage** elements = reinterpret_cast<stringStorage**>(array->data);
  long last = array->Ubounds()[0];
  if (stringStorage* joined = JoinOfOneEncoding(elements, last, delimiter))
    return joined;
  string separator(delimiter);
  string joined = AssembleString([&](auto piece) {
    for (long k = 0; k <= last; k++) {
      if (k > 0) piece(separator, 0, separator.Length());
      string element(elements[k]);
      piece(element, 0, element.Length());
    }
  });
  return joined.ExtractStringStorage();
}

double RuntimeMax(double a, double b, RuntimeObject* others) {
  double best = a > b ? a : b;
  for (long k = 0, count = DoubleCount(others); k < count; k++)
    if (Doubles(others)[k] > best) best = Doubles(others)[k];
  return best;
}

double RuntimeMin(double a, double b, RuntimeObject* others) {
  double best = a < b ? a : b;
  for (long k = 0, count = DoubleCount(others); k < count; k++)
    if (Doubles(others)[k] < best) best = Doubles(others)[k];
  return best;
}
