// Split, Join, Max and Min: the library functions that work on arrays.
#include "Common/Arrays/ArrayLibrary.h"

#include <strings.h>

#include "Common/Arrays/RuntimeArrays.h"
#include "Common/ObjectModel/RuntimeExceptionFoundation.h"
#include "Universal/Encodings.h"
#include "Universal/StringAssembly.h"
#include "Universal/StringWorkCounters.h"

namespace {

long const kStringElements = 3;

// Byte runs of one encoding compared as string::Compare compares runs of
// equal length, case ignored.
bool DelimiterAt(string const& text, unsigned long at, string const& delimiter) {
  return strncasecmp(text.CString() + at, delimiter.CString(),
                     delimiter.Length()) == 0;
}

// Calls `field(start, count)` for each field of `text` between occurrences
// of `delimiter`, which is not empty; returns the number of fields.
template <class Field>
long ForEachField(string const& text, string const& delimiter, Field field) {
  unsigned long length = text.Length(), step = delimiter.Length();
  unsigned long start = 0;
  long fields = 0;
  for (unsigned long at = 0; at + step <= length;) {
    if (!DelimiterAt(text, at, delimiter)) {
      at++;
      continue;
    }
    field(start, at - start);
    fields++;
    at += step;
    start = at;
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
  walk([&](unsigned long start, unsigned long size) {
    elements[k++] = mid(text, static_cast<int>(start), static_cast<int>(size))
                        .ExtractStringStorage();
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

stringStorage* StringJoin(RuntimeObject* fields, stringStorage* delimiter) {
  if (!fields) {
    RaiseNilObjectException();
    return nullptr;
  }
  RuntimeArrayObject* array = reinterpret_cast<RuntimeArrayObject*>(fields);
  stringStorage** elements = reinterpret_cast<stringStorage**>(array->data);
  long last = array->Ubounds()[0];
  string separator(delimiter);
  bool refused = false;
  string joined = AssembleString([&](auto piece) {
    for (long k = 0; k <= last; k++) {
      if (k > 0) piece(separator, 0, separator.Length());
      string element(elements[k]);
      piece(element, 0, element.Length());
    }
  }, &refused);
  if (refused) RaiseOutOfMemoryException();
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
