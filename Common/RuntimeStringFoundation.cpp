// String entry points of the runtime: counts, the sum, structure fields and
// the conversions that external declarations need.
#include "Common/RuntimeStringFoundation.h"

#include <stdarg.h>
#include <stdint.h>
#include <string.h>

#include <vector>

#include "Common/ObjectModel/RuntimeExceptionFoundation.h"
#include "Universal/Assertion.h"
#include "Universal/Encodings.h"
#include "Universal/IntMap.h"
#include "Universal/StringAssembly.h"
#include "Universal/StringWorkCounters.h"

namespace {

// The counts of the wide arrays that StringToWString hands out, keyed by the
// array's address. Built with the other statics at load, before any script
// runs; it lives until the process ends. Wide strings are the only counted
// values that have no header of their own.
IntMap<long> sWStringRefMap;

const unsigned long kEncodingMacRoman = 0;
// A length byte counts no further.
const long kLongestPascalText = 255;

// A value leaves the runtime with the reference the caller will own.
stringStorage* HandOut(string const& value) {
  return value.ExtractStringStorage();
}

stringStorage* UntaggedBytes(char const* bytes, long count) {
  if (count <= 0) return nullptr;
  return NewStringStorage(bytes, static_cast<uint32_t>(count),
                          kEncodingUnknown);
}

char* FieldAddress(void* base, long offset) {
  QASSERT(offset >= 0);
  QASSERT(base);
  return static_cast<char*>(base) + offset;
}

// Copies `count` bytes into a field of `size` bytes and clears the rest.
void FillField(char* field, long size, char const* bytes, long count) {
  if (count > size) count = size;
  if (count < 0) count = 0;
  memcpy(field, bytes, count);
  memset(field + count, 0, size - count);
}

int WStringKey(wchar_t* text) {
  return static_cast<int>(reinterpret_cast<intptr_t>(text));
}

}  // namespace

extern "C" {

void RuntimeLockString(stringStorage* text) { LockStringStorage(text); }

void RuntimeUnlockString(stringStorage* text) { UnlockStringStorage(text); }

void RuntimeLockUnlockStrings(stringStorage* newValue,
                              stringStorage* oldValue) {
  if (newValue == oldValue) return;
  LockStringStorage(newValue);
  UnlockStringStorage(oldValue);
}

// A sum that cannot be stored is nil only when both sides have text.
stringStorage* RuntimeAddString(stringStorage* a, stringStorage* b) {
  stringStorage* sum = ConcatenateStorages(a, b);
  if (!sum && a && a->mLength && b && b->mLength) RaiseOutOfMemoryException();
  return sum;
}

// The encoding of each partial sum is followed from the left; while every
// step only joins bytes that stand as they are in the step's encoding (as
// ASCII does in UTF-8), the whole is those bytes under the last encoding.
// Otherwise the pieces are added pair by pair, as the separate sums would
// add them, so that the encodings meet exactly as they would.
stringStorage* RuntimeAddStrings(long count, ...) {
  va_list args, again;
  va_start(args, count);
  va_copy(again, args);
  uint64_t length = 0;
  long filled = 0;
  uint32_t encoding = 0;
  bool bytesStand = true;
  stringStorage* only = nullptr;
  for (long k = 0; k < count; k++) {
    stringStorage* piece = va_arg(args, stringStorage*);
    if (!piece || !piece->mLength) continue;
    if (filled++ == 0) {
      encoding = piece->mEncoding;
      only = piece;
    } else if (piece->mEncoding != encoding) {
      uint32_t summed = static_cast<uint32_t>(SumEncoding(encoding, piece->mEncoding));
      bytesStand = bytesStand && BytesStandAs(encoding, summed) &&
                    BytesStandAs(piece->mEncoding, summed);
      encoding = summed;
    }
    length += piece->mLength;
  }
  va_end(args);
  stringStorage* sum = nullptr;
  if (filled < 2) {
    LockStringStorage(only);
    sum = only;
  } else if (bytesStand) {
    if (length <= kLongestStringLength)
      sum = TryNewStringStorage(nullptr, static_cast<uint32_t>(length), encoding);
    char* cursor = sum ? sum->CString() : nullptr;
    for (long k = 0; k < count && sum; k++) {
      stringStorage* piece = va_arg(again, stringStorage*);
      if (!piece || !piece->mLength) continue;
      memcpy(cursor, piece->CString(), piece->mLength);
      cursor += piece->mLength;
    }
    if (sum) CountStringCopy(length);
  } else {
    for (long k = 0; k < count; k++) {
      stringStorage* piece = va_arg(again, stringStorage*);
      stringStorage* next = ConcatenateStorages(sum, piece);
      bool failed = !next && sum && sum->mLength && piece && piece->mLength;
      UnlockStringStorage(sum);
      sum = next;
      if (failed) break;
    }
  }
  va_end(again);
  if (!sum && filled > 1) RaiseOutOfMemoryException();
  return sum;
}

long RuntimeStringCompare(stringStorage* a, stringStorage* b) {
  return string(a).Compare(string(b));
}

// A fixed field is padded with NULs, which are not part of the text.
stringStorage* RuntimeGetStructureString(void* base, long offset, long size) {
  if (size <= 0) return nullptr;
  char const* field = FieldAddress(base, offset);
  long count = size;
  while (count > 0 && field[count - 1] == 0) count--;
  return UntaggedBytes(field, count);
}

void RuntimeSetStructureString(void* base, long offset, long size,
                               stringStorage* value) {
  if (size == 0) return;
  char* field = FieldAddress(base, offset);
  string text(value);
  FillField(field, size, text.CString(), static_cast<long>(text.Length()));
}

stringStorage* RuntimeGetStructureContents(void* buffer, long size) {
  if (size <= 0) return nullptr;
  QASSERT(buffer);
  return UntaggedBytes(static_cast<char const*>(buffer), size);
}

// A text that does not leave room for the closing 16-bit NUL loses its last
// unit. The copy never runs past the field, even when the text is longer
// than that one unit can make up for.
void RuntimeSetStructureWString(void* base, long offset, long size,
                                stringStorage* value) {
  if (size == 0) return;
  char* field = FieldAddress(base, offset);
  string wide = string(value).GetUTF16String();
  long count = static_cast<long>(wide.Length());
  if (size - 2 < count) count -= 2;
  FillField(field, size, wide.CString(), count);
}

stringStorage* RuntimeGetStructurePString(void* base, long offset, long size) {
  if (size <= 1) return nullptr;
  unsigned char const* field =
      reinterpret_cast<unsigned char const*>(FieldAddress(base, offset));
  unsigned char held[kLongestPascalText + 1];
  long count = field[0] < size - 1 ? field[0] : size - 1;
  held[0] = static_cast<unsigned char>(count);
  memcpy(held + 1, field + 1, count);
  return HandOut(string(static_cast<unsigned char const*>(held)));
}

void RuntimeSetStructurePString(void* base, long offset, long size,
                                stringStorage* value) {
  if (size <= 0) return;
  char* field = FieldAddress(base, offset);
  string text(value);
  long count = static_cast<long>(text.Length());
  long room = size - 1 < kLongestPascalText ? size - 1 : kLongestPascalText;
  if (count > room) count = room;
  field[0] = static_cast<char>(count);
  FillField(field + 1, size - 1, text.CString(), count);
}

// Structures are packed, so the field may start at an odd address: its
// units are copied out before they are read as 16-bit values.
stringStorage* RuntimeGetStructureWString(void* base, long offset, long size) {
  char const* field = FieldAddress(base, offset);
  std::vector<unsigned short> units(size > 1 ? size / 2 : 0);
  if (!units.empty()) memcpy(units.data(), field, units.size() * 2);
  long count = 0;
  while (count < long(units.size()) && units[count] != 0) count++;
  string wide;
  wide.ConstructFromUTF16String(units.data(), count);
  if (wide.IsEmpty()) return nullptr;
  return HandOut(ConvertEncoding(wide, kEncodingUTF8));
}

unsigned char* StringToPString(stringStorage* text) {
  if (text) return text->mPString;
  return const_cast<unsigned char*>(string().PString());
}

char* StringToCString(stringStorage* text) {
  if (text) return text->CString();
  return const_cast<char*>(string().CString());
}

stringStorage* StringFromPString(unsigned char* pascalText) {
  return HandOut(string(static_cast<unsigned char const*>(pascalText)));
}

stringStorage* StringFromCString(char* text) {
  return HandOut(string(static_cast<char const*>(text)));
}

// Codes shorter than four bytes are padded with zeros, longer ones are cut.
unsigned long StringToOSType(stringStorage* text) {
  string roman = ConvertEncoding(string(text), kEncodingMacRoman);
  if (roman.IsEmpty()) roman = string("????");
  unsigned long code = 0;
  for (int i = 0; i < 4; i++) {
    unsigned char byte = static_cast<unsigned long>(i) < roman.Length()
                             ? static_cast<unsigned char>(roman[i])
                             : 0;
    code = (code << 8) | byte;
  }
  return code;
}

stringStorage* StringFromOSType(unsigned long code) {
  char bytes[4];
  for (int i = 0; i < 4; i++)
    bytes[i] = static_cast<char>((code >> (24 - 8 * i)) & 0xFF);
  return NewStringStorage(bytes, 4, kEncodingMacRoman);
}

stringStorage* StringFromWString(wchar_t* text) {
  if (!text) return nullptr;
  unsigned int count = 0;
  while (text[count]) count++;
  string result;
  result.ConstructFromWString(text, count);
  return HandOut(result);
}

// Each UTF-16 unit becomes one element, surrogates included: the callee sees
// the text as the 16-bit API would, only widened.
wchar_t* StringToWString(stringStorage* text) {
  string wide = string(text).GetUTF16String();
  unsigned long count = wide.Length() / 2;
  wchar_t* result = new wchar_t[count + 1];
  QASSERT(result);
  // The text starts at an odd address: units are copied, not loaded.
  for (unsigned long i = 0; i < count; i++) {
    uint16_t unit;
    memcpy(&unit, wide.CString() + 2 * i, sizeof unit);
    result[i] = unit;
  }
  result[count] = 0;
  sWStringRefMap.AddEntry(WStringKey(result), 1);
  return result;
}

void LockWString(wchar_t* text) {
  long count;
  if (!text || !sWStringRefMap.GetEntry(WStringKey(text), count)) return;
  sWStringRefMap.AddEntry(WStringKey(text), count + 1);
}

void UnlockWString(wchar_t* text) {
  long count;
  if (!text || !sWStringRefMap.GetEntry(WStringKey(text), count)) return;
  if (--count >= 1) {
    sWStringRefMap.AddEntry(WStringKey(text), count);
    return;
  }
  sWStringRefMap.RemoveEntry(WStringKey(text));
  delete[] text;
}

void SwapWStringLocks(wchar_t* newValue, wchar_t* oldValue) {
  LockWString(newValue);
  UnlockWString(oldValue);
}

void LockCFString(void*) {}
void UnlockCFString(void*) {}
void SwapCFStringLocks(void*, void*) {}
void* StringToCFString(stringStorage*) { return nullptr; }
stringStorage* StringFromCFString(void*) { return nullptr; }

}  // extern "C"
