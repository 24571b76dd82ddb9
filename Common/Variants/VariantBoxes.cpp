// The variant classes, boxing a value, and seeing what a variant word holds.
#include <string.h>

#include "Common/Variants/VariantValues.h"
#include "Universal/Assertion.h"

namespace variants {
namespace {

// The class name and type code of each kind. Nil and objects are never
// boxed, so they have no class.
struct KindRecord {
  char const* className;
  VariantTypeCode type;
};

KindRecord const kKinds[kKindCount] = {
    {nullptr, kVariantTypeNil},
    {"_VariantInt32", kVariantTypeInteger},
    {"_VariantUInt32", kVariantTypeInteger},
    {"_VariantInt64", kVariantTypeLong},
    {"_VariantUInt64", kVariantTypeLong},
    {"_VariantSingle", kVariantTypeSingle},
    {"_VariantDouble", kVariantTypeDouble},
    {"_VariantCurrency", kVariantTypeCurrency},
    {"_VariantString", kVariantTypeString},
    {nullptr, kVariantTypeObject},
    {"_VariantBoolean", kVariantTypeBoolean},
    {"_VariantColor", kVariantTypeColor},
};

// A string box releases its text when it goes; other values hold nothing.
void DisposeVariant(RuntimeObject* object) {
  RuntimeVariant* box = reinterpret_cast<RuntimeVariant*>(object);
  if (box->data.type == kVariantTypeString) {
    UnlockStringStorage(StringOf(box->data));
    box->data.words[0] = 0;
  }
}

struct VariantClasses {
  RuntimeClass records[kKindCount];
  VariantClasses() {
    memset(records, 0, sizeof records);
    for (int kind = 0; kind < kKindCount; kind++) {
      if (!kKinds[kind].className) continue;
      records[kind].name =
          string(kKinds[kind].className).ExtractStringStorage();
      records[kind].instanceSize = sizeof(RuntimeVariant);
      records[kind].finalizer = &DisposeVariant;
    }
  }
};

// Made before any script runs and unchanged until the process ends; the
// records are on no class list, like the array class.
VariantClasses const sClasses;

RuntimeClass* ClassOf(VariantKind kind) {
  return const_cast<RuntimeClass*>(&sClasses.records[kind]);
}

// The boxed kind whose class this is, or kKindObject for any other class.
VariantKind KindOfClass(RuntimeClass const* cls) {
  ptrdiff_t index = cls - sClasses.records;
  if (index > kKindNil && index < kKindCount && kKinds[index].className)
    return static_cast<VariantKind>(index);
  return kKindObject;
}

// The 64-bit value in the first two words, low first.
void SetWords(uint64_t value, VariantData* data) {
  data->words[0] = static_cast<uint32_t>(value);
  data->words[1] = static_cast<uint32_t>(value >> 32);
}

}  // namespace

RuntimeVariant* NewVariantBox(VariantKind kind) {
  QASSERT(kKinds[kind].className);
  RuntimeObject* object = RuntimeNewObject(ClassOf(kind));
  if (!object) return nullptr;
  RuntimeVariant* box = reinterpret_cast<RuntimeVariant*>(object);
  box->data.type = kKinds[kind].type;
  return box;
}

VariantView ViewVariant(RuntimeObject* variant) {
  VariantView view = {kKindNil, {kVariantTypeNil, {0, 0, 0}}};
  if (!variant) return view;
  view.kind = KindOfClass(variant->mClass);
  if (view.kind == kKindObject)
    SetObjectVariant(variant, &view.data);
  else
    view.data = reinterpret_cast<RuntimeVariant*>(variant)->data;
  return view;
}

void SetIntegerVariant(uint32_t value, VariantData* data) {
  if (!data) return;
  data->type = kVariantTypeInteger;
  data->words[0] = value;
}

void SetLongVariant(uint64_t value, VariantData* data) {
  if (!data) return;
  data->type = kVariantTypeLong;
  SetWords(value, data);
}

void SetSingleVariant(float value, VariantData* data) {
  if (!data) return;
  data->type = kVariantTypeSingle;
  memcpy(&data->words[0], &value, sizeof value);
}

void SetDoubleVariant(double value, VariantData* data) {
  if (!data) return;
  data->type = kVariantTypeDouble;
  memcpy(&data->words[0], &value, sizeof value);
}

void SetCurrencyVariant(int64_t value, VariantData* data) {
  if (!data) return;
  data->type = kVariantTypeCurrency;
  SetWords(static_cast<uint64_t>(value), data);
}

void SetStringVariant(stringStorage* value, VariantData* data) {
  if (!data) return;
  data->type = kVariantTypeString;
  LockStringStorage(value);
  data->words[0] = static_cast<uint32_t>(reinterpret_cast<uintptr_t>(value));
}

void SetObjectVariant(RuntimeObject* value, VariantData* data) {
  if (!data) return;
  data->type = kVariantTypeObject;
  data->words[0] = static_cast<uint32_t>(reinterpret_cast<uintptr_t>(value));
}

void SetBooleanVariant(bool value, VariantData* data) {
  if (!data) return;
  data->type = kVariantTypeBoolean;
  data->words[0] = value ? 1 : 0;
}

void SetColorVariant(uint32_t value, VariantData* data) {
  if (!data) return;
  data->type = kVariantTypeColor;
  data->words[0] = value;
}

void SetNilVariant(VariantData* data) {
  if (!data) return;
  memset(data, 0, sizeof *data);
  data->type = kVariantTypeNil;
}

uint64_t LongOf(VariantData const& data) {
  return (static_cast<uint64_t>(data.words[1]) << 32) | data.words[0];
}

double DoubleOf(VariantData const& data) {
  double value;
  memcpy(&value, &data.words[0], sizeof value);
  return value;
}

float SingleOf(VariantData const& data) {
  float value;
  memcpy(&value, &data.words[0], sizeof value);
  return value;
}

stringStorage* StringOf(VariantData const& data) {
  return reinterpret_cast<stringStorage*>(
      static_cast<uintptr_t>(data.words[0]));
}

}  // namespace variants

using namespace variants;

namespace {

// A box of `kind` filled by `set`; nil when no object could be made.
template <typename Value>
RuntimeObject* Box(VariantKind kind, void (*set)(Value, VariantData*),
                   Value value) {
  RuntimeVariant* box = NewVariantBox(kind);
  if (!box) return nullptr;
  set(value, &box->data);
  return &box->header;
}

}  // namespace

RuntimeObject* Int32ToVariant(int32_t value) {
  return Box<uint32_t>(kKindInt32, SetIntegerVariant, value);
}

RuntimeObject* UInt32ToVariant(uint32_t value) {
  return Box<uint32_t>(kKindUInt32, SetIntegerVariant, value);
}

RuntimeObject* Int64ToVariant(int64_t value) {
  return Box<uint64_t>(kKindInt64, SetLongVariant, value);
}

RuntimeObject* UInt64ToVariant(uint64_t value) {
  return Box<uint64_t>(kKindUInt64, SetLongVariant, value);
}

RuntimeObject* SingleToVariant(float value) {
  return Box<float>(kKindSingle, SetSingleVariant, value);
}

RuntimeObject* DoubleToVariant(double value) {
  return Box<double>(kKindDouble, SetDoubleVariant, value);
}

RuntimeObject* CurrencyToVariant(int64_t value) {
  return Box<int64_t>(kKindCurrency, SetCurrencyVariant, value);
}

RuntimeObject* BooleanToVariant(int32_t value) {
  return Box<bool>(kKindBoolean, SetBooleanVariant, (value & 0xFF) != 0);
}

RuntimeObject* ColorToVariant(uint32_t value) {
  return Box<uint32_t>(kKindColor, SetColorVariant, value);
}

RuntimeObject* StringToVariant(stringStorage* value) {
  return Box<stringStorage*>(kKindString, SetStringVariant, value);
}

RuntimeObject* ObjectToVariant(RuntimeObject* value) {
  RuntimeLockObject(value);
  return value;
}
