// String operations of the host. A host string handle is a stringStorage,
// so these are thin: the storage helpers of the string class do the work.
#include <string.h>

#include "StandInHost/HostOperations.h"
#include "Universal/Encodings.h"

namespace quorl {
namespace standin {
namespace {

// Text that needs no conversion to reach the target, only a new tag.
bool OnlyRetag(VELDString text, uint32_t target) {
  uint32_t tag = text->mEncoding;
  return text->mLength == 0 || tag == kEncodingUnknown ||
         (tag == kEncodingASCII && target == kEncodingUTF8);
}

}  // namespace

// The text is left zero-filled when no bytes are given. Nothing is tagged:
// the caller says what the bytes are.
VELDString VELDBuildString(void const* bytes, int length) {
  if (length <= 0) return nullptr;
  VELDString text = NewStringStorage(static_cast<char const*>(bytes),
                                     static_cast<uint32_t>(length),
                                     kEncodingUnknown);
  if (!bytes && text) memset(text->CString(), 0, length);
  return text;
}

void VELDSetStringEncoding(VELDString text, uint32_t encoding) {
  if (text) text->mEncoding = encoding;
}

VELDString VELDConvertString(VELDString text, uint32_t encoding) {
  if (!text) return nullptr;
  if (text->mEncoding == encoding) {
    LockStringStorage(text);
    return text;
  }
  if (OnlyRetag(text, encoding))
    return NewStringStorage(text->CString(), text->mLength, encoding);
  return ConvertEncoding(string(text), encoding).ExtractStringStorage();
}

uint32_t VELDGetStringEncoding(VELDString text) {
  return text ? text->mEncoding : kEncodingASCII;
}

void VELDLockString(VELDString text) { LockStringStorage(text); }

void VELDUnlockString(VELDString text) { UnlockStringStorage(text); }

}  // namespace standin
}  // namespace quorl
