// The string class: storage records, construction, access and encoding tags.
// Slicing, concatenation and comparison live in their own files.
#include "Universal/ustring.h"

#include <new>
#include <stdint.h>
#include <stdlib.h>
#include <string.h>

#include "Universal/Assertion.h"
#include "Universal/Encodings.h"
#include "Universal/StringWorkCounters.h"

namespace {

// Header (20 bytes) + alignment slack (1) + length byte (1) + terminator (4).
const uint32_t kStorageOverhead = 26;
const uint32_t kHeaderSize = 20;

unsigned char const kEmptyPString[5] = {0, 0, 0, 0, 0};
wchar_t const kEmptyWString[1] = {0};
char gNilScratchByte;

}  // namespace

// ---------------------------------------------------------------------------
// Bare storages

// A fresh block with every field written: the buffer sits at offset 20, or 21
// when that keeps the Pascal pointer even, and the text is followed by a
// 32-bit zero.
const uint32_t kLongestStringLength = UINT32_MAX - kStorageOverhead;

stringStorage* NewStringStorage(char const* bytes, uint32_t length,
                                uint32_t encoding) {
  stringStorage* storage = TryNewStringStorage(bytes, length, encoding);
  if (!storage) throw std::bad_alloc();
  return storage;
}

stringStorage* TryNewStringStorage(char const* bytes, uint32_t length,
                                   uint32_t encoding) {
  if (length > kLongestStringLength) return nullptr;
  size_t size = size_t(length) + kStorageOverhead;
  if (size < length) return nullptr;  // a size_t narrower than 32 bits
  unsigned char* block = static_cast<unsigned char*>(malloc(size));
  if (!block) return nullptr;
  CountStringAllocation(length);
  stringStorage* storage = reinterpret_cast<stringStorage*>(block);
  unsigned char* pascal = block + kHeaderSize;
  if (reinterpret_cast<uintptr_t>(pascal) & 1) pascal++;
  storage->mRefCount = 1;
  storage->mPString = pascal;
  storage->mCapacity = length + 5;
  storage->mLength = length;
  storage->mEncoding = encoding;
  pascal[0] = static_cast<unsigned char>(length < 255 ? length : 255);
  if (bytes) {
    memcpy(pascal + 1, bytes, length);
    CountStringCopy(length);
  }
  memset(pascal + 1 + length, 0, 4);
  return storage;
}

void FreeStringStorage(stringStorage* storage) { free(storage); }

bool PlatformSupportsUTF32() { return sizeof(wchar_t) == 4; }

char const string::sEmptyText[4] = {0, 0, 0, 0};

// ---------------------------------------------------------------------------
// Construction

string::string(char const* text) : mStorage(nullptr) {
  unsigned long length = text ? strlen(text) : 0;
  if (length) mStorage = NewStringStorage(text, length, kEncodingASCII);
}

string::string(unsigned char const* pascalText) : mStorage(nullptr) {
  if (pascalText && pascalText[0])
    mStorage = NewStringStorage(reinterpret_cast<char const*>(pascalText + 1),
                                pascalText[0], kEncodingASCII);
}

string::string(char c) : mStorage(NewStringStorage(&c, 1, kEncodingASCII)) {}

// The source may lie inside the current storage, so the new block is made
// before the old reference goes.
void string::ConstructFromBuffer(char const* bytes, unsigned int length) {
  stringStorage* fresh =
      length ? NewStringStorage(bytes, length, kEncodingUnknown) : nullptr;
  AdoptReference(fresh);
}

// UTF-32 where wchar_t is 4 bytes; otherwise each unit narrowed to UTF-16.
void string::ConstructFromWString(wchar_t const* text, unsigned int count) {
  if (!count) {
    AdoptReference(nullptr);
    return;
  }
  if (PlatformSupportsUTF32()) {
    AdoptReference(NewStringStorage(reinterpret_cast<char const*>(text),
                                    count * 4, kEncodingUTF32));
    return;
  }
  stringStorage* fresh = NewStringStorage(nullptr, count * 2, kEncodingUTF16);
  uint16_t* units = reinterpret_cast<uint16_t*>(fresh->CString());
  for (unsigned int i = 0; i < count; i++)
    units[i] = static_cast<uint16_t>(text[i]);
  AdoptReference(fresh);
}

void string::ConstructFromUTF16String(unsigned short const* units,
                                      long count) {
  stringStorage* fresh = nullptr;
  if (count >= 1)
    fresh = NewStringStorage(reinterpret_cast<char const*>(units),
                             static_cast<uint32_t>(count) * 2, kEncodingUTF16);
  AdoptReference(fresh);
}

void string::AllocateBuffer(unsigned int n) {
  AdoptReference(n ? NewStringStorage(nullptr, n, kEncodingUnknown) : nullptr);
}

// ---------------------------------------------------------------------------
// Access

unsigned long string::WLength() const {
  return Encoding() == kEncodingUTF16 ? Length() / 2 : Length() / 4;
}

unsigned char const* string::PString() const {
  return mStorage ? mStorage->mPString : kEmptyPString;
}

// A wide view is only meaningful for text tagged UTF-16; the nil string gives
// an empty view.
wchar_t const* string::WString() const {
  if (!mStorage) return kEmptyWString;
  QASSERT(mStorage->mEncoding == kEncodingUTF16);
  return reinterpret_cast<wchar_t const*>(mStorage->CString());
}

char string::operator[](int index) const {
  return mStorage ? mStorage->CString()[index] : 0;
}

// Copy on write: a shared storage is first copied, and the copy is untagged
// because the caller is about to change bytes it no longer vouches for.
char& string::MutableChar(int index) {
  if (!mStorage) {
    QASSERT_TEXT(!index, "not pos");
    gNilScratchByte = 0;
    return gNilScratchByte;
  }
  QASSERT_TEXT(!(index < 0 || index >= (long)Length()),
               "not (pos < 0 || pos >= Length())");
  if (mStorage->mRefCount != 1)
    AdoptReference(
        NewStringStorage(mStorage->CString(), mStorage->mLength,
                         kEncodingUnknown));
  return mStorage->CString()[index];
}

void string::SetEncoding(unsigned long encoding) {
  if (mStorage) mStorage->mEncoding = static_cast<uint32_t>(encoding);
}

// ---------------------------------------------------------------------------
// Encoding views

string string::GetUTF8String() const {
  if (!mStorage || mStorage->mEncoding == kEncodingUTF8) return *this;
  return ConvertEncoding(*this, kEncodingUTF8);
}

// Untagged text is taken to be in the system encoding.
string string::GetUTF16String() const {
  if (!mStorage || mStorage->mEncoding == kEncodingUTF16) return *this;
  if (mStorage->mEncoding != kEncodingUnknown)
    return ConvertEncoding(*this, kEncodingUTF16);
  string tagged;
  tagged.AdoptReference(NewStringStorage(mStorage->CString(),
                                         mStorage->mLength,
                                         GetSystemEncoding()));
  return ConvertEncoding(tagged, kEncodingUTF16);
}

bool string::ContainsOnlyASCII() const {
  if (!mStorage) return true;
  if (IsWideUnicodeEncoding(mStorage->mEncoding)) return false;
  unsigned char const* bytes =
      reinterpret_cast<unsigned char const*>(mStorage->CString());
  for (uint32_t i = 0; i < mStorage->mLength; i++)
    if (bytes[i] & 0x80) return false;
  return true;
}

// ---------------------------------------------------------------------------
// One code point

string UnicodeChar(unsigned long code, unsigned long encoding) {
  string result;
  if (encoding == kEncodingUTF16) {
    // One unit and a NUL: three bytes, which callers expect.
    unsigned char unit[3] = {static_cast<unsigned char>(code & 0xFF),
                             static_cast<unsigned char>((code >> 8) & 0xFF),
                             0};
    result.AdoptReference(NewStringStorage(reinterpret_cast<char*>(unit), 3,
                                           kEncodingUTF16));
    return result;
  }
  unsigned char bytes[5];
  int count = UTF8Encode(code, bytes);
  if (count)
    result.AdoptReference(NewStringStorage(reinterpret_cast<char*>(bytes),
                                           count, kEncodingUTF8));
  if (encoding == kEncodingUTF8) return result;
  return ConvertEncoding(result, encoding);
}
