// What a variant holds, its hash and its equality: the entry points that
// let a script key a table by variants.
#include "Common/Variants/VariantValues.h"

using namespace variants;

namespace {

int const kHashRotation = 16;
int const kWordBits = 32;
int const kCaseOffset = 'a' - 'A';

uint32_t Rotate(uint32_t word, int bits) {
  return (word << bits) | (word >> (kWordBits - bits));
}

// Case does not matter: lower-case ASCII letters count as upper case.
uint32_t hashString(stringStorage* text) {
  uint32_t h = 0;
  if (!text) return h;
  unsigned char const* bytes =
      reinterpret_cast<unsigned char const*>(text->CString());
  for (uint32_t i = 0; i < text->mLength; i++) {
    uint32_t c = bytes[i];
    if (c >= 'a' && c <= 'z') c -= kCaseOffset;
    h = c ^ (h * 4);
  }
  return h;
}

}  // namespace

int32_t VarType(RuntimeObject* variant) {
  return ViewVariant(variant).data.type;
}

int32_t RuntimeIsNumeric(RuntimeObject* variant) {
  switch (ViewVariant(variant).data.type) {
    case kVariantTypeInteger:
    case kVariantTypeLong:
    case kVariantTypeSingle:
    case kVariantTypeDouble:
    case kVariantTypeCurrency: return 1;
    default: return 0;
  }
}

int32_t IsNull(RuntimeObject* variant) { return variant == nullptr; }

int32_t VariantHash(RuntimeObject* variant) {
  VariantView view = ViewVariant(variant);
  if (view.kind == kKindNil) return 0;
  if (view.kind == kKindString)
    return static_cast<int32_t>(hashString(StringOf(view.data)));
  uint32_t const* w = view.data.words;
  return static_cast<int32_t>(Rotate(w[0], kHashRotation) ^ w[1] ^ w[2]);
}

// Doubles compare by their bits, so 0.0 and -0.0 differ and a NaN equals
// itself.
int32_t VariantEqual(RuntimeObject* a, RuntimeObject* b) {
  if (a == b) return 1;
  if (!a || !b) return 0;
  VariantView left = ViewVariant(a), right = ViewVariant(b);
  if (left.data.type != right.data.type) return 0;
  if (left.kind == kKindString)
    return string(StringOf(left.data)) == string(StringOf(right.data));
  for (int i = 0; i < 3; i++)
    if (left.data.words[i] != right.data.words[i]) return 0;
  return 1;
}
