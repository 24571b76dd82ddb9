// The one text type of the compiler, the linker and the runtime.
//
// A `string` is a single pointer to a `stringStorage`: a reference-counted,
// copy-on-write byte string with an encoding tag. The storage record is a
// format, not just a class: it is at once the compiler's buffer, the script's
// string value that generated code manipulates, and the string handle the
// host passes over the plug-in boundary. Its layout must not change.
#ifndef UNIVERSAL_USTRING_H
#define UNIVERSAL_USTRING_H

#include <stddef.h>
#include <stdint.h>

// Encoding tags: the Macintosh text encoding numbers as published.
enum : uint32_t {
  kEncodingASCII = 0x600,
  kEncodingUTF8 = 0x08000100,
  kEncodingUTF16 = 0x100,
  kEncodingUTF32 = 0x0C000100,
  kEncodingUnknown = 0xFFFF,
};

// One heap block, made with malloc and freed with free, of length + 26 bytes:
//
//   offset 0   reference count, starts at 1
//   offset 4   Pascal buffer pointer: the length byte inside this block
//   offset 8   capacity = length + 5
//   offset 12  length in bytes, without the terminators
//   offset 16  encoding tag; 0xFFFF when unknown
//   offset 20  the buffer, or 21 when 20 would make the Pascal pointer odd
//
// The buffer is one length byte (the length, or 255 from 255 up), the text,
// then four zero bytes, which terminate 8-, 16- and 32-bit text alike. The
// C-string view is the Pascal pointer + 1.
struct stringStorage {
  int32_t mRefCount;
  unsigned char* mPString;
  uint32_t mCapacity;
  uint32_t mLength;
  uint32_t mEncoding;

  char* CString() { return reinterpret_cast<char*>(mPString + 1); }
};
static_assert(sizeof(stringStorage) == 20 || sizeof(void*) != 4,
              "stringStorage is a fixed 32-bit format");

// Makes a fresh storage of `length` bytes with one reference. The text is
// copied from `bytes` when given, left for the caller to fill otherwise.
// Throws std::bad_alloc when the heap refuses the block, as a C++ container
// would: the library's guards turn that into the script's exception.
stringStorage* NewStringStorage(char const* bytes, uint32_t length,
                                uint32_t encoding);
// The longest text a storage can hold: its block, overhead included, must
// have a 32-bit size.
extern const uint32_t kLongestStringLength;
// The same, or nil when `length` passes kLongestStringLength or the heap
// refuses the block: for text whose size a script decides.
stringStorage* TryNewStringStorage(char const* bytes, uint32_t length,
                                   uint32_t encoding);

// The bracket around reference counts and multi-step string operations. They
// do nothing: script and compiler run on one thread at a time. A build that
// needs real threads fills them in here. They are inline, being on the path
// of every count.
inline void InitializeStringCriticalSection() {}
inline void deleteStringCriticalSection() {}
inline void EnterStringCriticalSection() {}
inline void LeaveStringCriticalSection() {}

// Frees a storage whose last reference is gone.
void FreeStringStorage(stringStorage* storage);

// Reference counting of a bare storage; null is the empty string and is
// ignored. The last release frees the block. Inline: every copy of a
// `string` passes here.
inline void LockStringStorage(stringStorage* storage) {
  if (!storage) return;
  EnterStringCriticalSection();
  storage->mRefCount++;
  LeaveStringCriticalSection();
}

inline void UnlockStringStorage(stringStorage* storage) {
  if (!storage) return;
  EnterStringCriticalSection();
  bool last = --storage->mRefCount == 0;
  LeaveStringCriticalSection();
  if (last) FreeStringStorage(storage);
}

class string {
 public:
  string() : mStorage(nullptr) {}
  string(string const& other) : mStorage(other.mStorage) {
    LockStringStorage(mStorage);
  }
  // Shares the storage: adds a reference.
  explicit string(stringStorage* storage) : mStorage(storage) {
    LockStringStorage(mStorage);
  }
  // Copies a C string; nil for null or "". Tagged ASCII when not empty.
  string(char const* text);
  // Copies a Pascal string (length in its first byte). Tagged ASCII.
  explicit string(unsigned char const* pascalText);
  // One byte. Tagged ASCII.
  explicit string(char c);
  ~string() { UnlockStringStorage(mStorage); }
  string& operator=(string const& other) {
    LockStringStorage(other.mStorage);
    UnlockStringStorage(mStorage);
    mStorage = other.mStorage;
    return *this;
  }

  // Reallocates to `length` bytes and copies them from `bytes`; a null source
  // leaves the text for the caller to fill. The tag stays 0xFFFF. Length 0
  // gives nil.
  void ConstructFromBuffer(char const* bytes, unsigned int length);
  void ConstructFromWString(wchar_t const* text, unsigned int count);
  void ConstructFromUTF16String(unsigned short const* units, long count);
  // Drops the old reference; for n = 0 leaves nil, otherwise a fresh block of
  // n bytes, tag 0xFFFF, text undefined.
  void AllocateBuffer(unsigned int n);

  // Takes over a reference without adding one.
  void AdoptReference(stringStorage* storage) {
    stringStorage* old = mStorage;
    mStorage = storage;
    UnlockStringStorage(old);
  }
  // Adds a reference and returns the storage, to hand the value out to
  // generated code or to the host. Null for the empty string.
  stringStorage* ExtractStringStorage() const {
    LockStringStorage(mStorage);
    return mStorage;
  }
  // The storage without a new reference; null for the empty string.
  stringStorage* GetStringStorage() const { return mStorage; }

  unsigned long Length() const { return mStorage ? mStorage->mLength : 0; }
  // Units: bytes / 2 for UTF-16, bytes / 4 otherwise.
  unsigned long WLength() const;
  bool IsEmpty() const { return Length() == 0; }

  // Text or the shared empty C string, never null.
  char const* CString() const {
    return mStorage ? mStorage->CString() : sEmptyText;
  }
  // Pascal view, or the shared empty Pascal string.
  unsigned char const* PString() const;
  // Text view of UTF-16 text; asserts the tag.
  wchar_t const* WString() const;

  // Explicit views, for call sites that spell the conversion out.
  explicit operator char const*() const { return CString(); }
  explicit operator unsigned char const*() const { return PString(); }
  explicit operator wchar_t const*() const { return WString(); }

  // Byte at the index, unchecked; the nil string yields a shared blank byte.
  char operator[](int index) const;
  // A writable byte; makes a private copy first when shared (which loses the
  // tag). Index checked by assertion.
  char& MutableChar(int index);

  // Nil reports ASCII; setting on nil does nothing.
  unsigned long Encoding() const {
    return mStorage ? mStorage->mEncoding : kEncodingASCII;
  }
  void SetEncoding(unsigned long encoding);
  // ASCII text is UTF-8 byte for byte: either tag compares and hashes as
  // the same bytes without a conversion.
  bool HasUTF8Bytes() const {
    unsigned long tag = Encoding();
    return tag == kEncodingASCII || tag == kEncodingUTF8;
  }

  string GetUTF8String() const;
  string GetUTF16String() const;
  bool ContainsOnlyASCII() const;

  // Three-way comparisons: -1, 0, 1. Compare ignores case.
  int Compare(string const& other) const;
  int CompareWithCase(string const& other) const;

  string& operator+=(string const& other);
  // The tag of the left side stays, or ASCII if the left side was nil.
  string& operator+=(char const* text);

 private:
  // What the nil string shows as text: four zero bytes.
  static char const sEmptyText[4];
  stringStorage* mStorage;
};

string left(string const& s, int count);
string right(string const& s, int count);
string mid(string const& s, int start);
string mid(string const& s, int start, int count);
string ltrim(string const& s);
string rtrim(string const& s);
string trim(string const& s);

string operator+(string const& a, string const& b);
// The same on bare storages, for the runtime: a new reference, or a shared
// side with one more reference when the other is empty; nil, with nothing
// written, when both sides have text and their sum cannot be stored.
stringStorage* ConcatenateStorages(stringStorage* a, stringStorage* b);
string operator+(string const& a, char c);
// `a`, the ASCII byte `separator` and `b` in one allocation: what
// a + separator + b gives, without the two sums' intermediate copies.
string JoinAround(string const& a, char separator, string const& b);

// All defined by Compare: equality of `string` ignores case. This is the
// language's own rule for identifiers and script strings.
bool operator==(string const& a, string const& b);
bool operator!=(string const& a, string const& b);
bool operator<(string const& a, string const& b);
bool operator<=(string const& a, string const& b);
bool operator>(string const& a, string const& b);
bool operator>=(string const& a, string const& b);
bool operator==(string const& a, char const* b);
bool operator!=(string const& a, char const* b);

// One code point as a string in the given encoding. For UTF-16 the length is
// 3 bytes, one more than the unit, by design.
string UnicodeChar(unsigned long code, unsigned long encoding);

// True where wchar_t holds a whole code point (4 bytes): wide text is then
// UTF-32, otherwise UTF-16.
bool PlatformSupportsUTF32();

#endif
