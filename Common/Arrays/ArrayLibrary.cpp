// Split, Join, Max and Min: the library functions that work on arrays.
#include "Common/Arrays/ArrayLibrary.h"

#include <strings.h>

#include "Common/Arrays/RuntimeArrays.h"
#include "Common/ObjectModel/RuntimeExceptionFoundation.h"
#include "Universal/Encodings.h"
#include "Universal/SimpleVector.h"

namespace {

long const kStringElements = 3;

// An omitted delimiter arrives as the empty string; both mean a space.
string DelimiterOrSpace(stringStorage* delimiter) {
  string text(delimiter);
  return text.IsEmpty() ? string(" ") : text;
}

// Byte runs of one encoding compared as string::Compare compares runs of
// equal length, case ignored.
bool DelimiterAt(string const& text, unsigned long at, string const& delimiter) {
  return strncasecmp(text.CString() + at, delimiter.CString(),
                     delimiter.Length()) == 0;
}

void CollectFields(string const& text, string const& delimiter,
                   SimpleVector<string>* fields) {
  unsigned long length = text.Length(), step = delimiter.Length();
  unsigned long start = 0;
  for (unsigned long at = 0; at + step <= length;) {
    if (!DelimiterAt(text, at, delimiter)) {
      at++;
      continue;
    }
    fields->push_back(mid(text, start, at - start));
    at += step;
    start = at;
  }
  fields->push_back(mid(text, start, length - start));
}

RuntimeArrayObject* NewStringArray(SimpleVector<string> const& fields) {
  long count = static_cast<long>(fields.size());
  RuntimeArrayObject* array = CreateArray(1, kStringElements, count - 1);
  stringStorage** elements = reinterpret_cast<stringStorage**>(array->data);
  for (long k = 0; k < count; k++) elements[k] = fields[k].ExtractStringStorage();
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
  string text(source), separator = DelimiterOrSpace(delimiter);
  SimpleVector<string> fields;
  if (!text.IsEmpty()) {
    ConvertToSameEncoding(&text, &separator);
    CollectFields(text, separator, &fields);
  }
  return &NewStringArray(fields)->header;
}

stringStorage* StringJoin(RuntimeObject* fields, stringStorage* delimiter) {
  if (!fields) {
    RaiseNilObjectException();
    return nullptr;
  }
  RuntimeArrayObject* array = reinterpret_cast<RuntimeArrayObject*>(fields);
  stringStorage** elements = reinterpret_cast<stringStorage**>(array->data);
  string separator = DelimiterOrSpace(delimiter), result;
  for (long k = 0; k <= array->Ubounds()[0]; k++) {
    if (k > 0) result += separator;
    result += string(elements[k]);
  }
  return result.ExtractStringStorage();
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
