// The VariantTo... entry points: a variant's value in the type the script
// asks for, or TypeMismatchException when it has no such reading.
#include "Common/ObjectModel/RuntimeExceptionFoundation.h"
#include "Common/Variants/VariantValues.h"

using namespace variants;

namespace {

// The value as a number; an object raises and reads as 0.
VariantNumber NumberOrMismatch(RuntimeObject* variant) {
  VariantNumber n;
  if (!ReadNumber(ViewVariant(variant), &n)) RaiseTypeMismatchException();
  return n;
}

}  // namespace

int32_t VariantToInt32(RuntimeObject* variant) {
  return NumberToInt32(NumberOrMismatch(variant));
}

uint32_t VariantToUInt32(RuntimeObject* variant) {
  return NumberToUInt32(NumberOrMismatch(variant));
}

int64_t VariantToInt64(RuntimeObject* variant) {
  return NumberToInt64(NumberOrMismatch(variant));
}

uint64_t VariantToUInt64(RuntimeObject* variant) {
  return NumberToUInt64(NumberOrMismatch(variant));
}

// A Single keeps its own bits rather than passing through a Double.
float VariantToSingle(RuntimeObject* variant) {
  VariantView view = ViewVariant(variant);
  if (view.kind == kKindSingle) return SingleOf(view.data);
  return static_cast<float>(NumberToDouble(NumberOrMismatch(variant)));
}

double VariantToDouble(RuntimeObject* variant) {
  return NumberToDouble(NumberOrMismatch(variant));
}

int64_t VariantToCurrency(RuntimeObject* variant) {
  return NumberToCurrency(NumberOrMismatch(variant));
}

int32_t VariantToBoolean(RuntimeObject* variant) {
  bool value;
  if (!GetVariantBoolean(ViewVariant(variant), &value))
    RaiseTypeMismatchException();
  return value;
}

uint32_t VariantToColor(RuntimeObject* variant) {
  uint32_t value;
  if (!GetVariantColor(ViewVariant(variant), &value))
    RaiseTypeMismatchException();
  return value;
}

stringStorage* VariantToString(RuntimeObject* variant) {
  string text;
  if (!GetVariantString(ViewVariant(variant), &text))
    RaiseTypeMismatchException();
  return text.ExtractStringStorage();
}

RuntimeObject* VariantToObject(RuntimeObject* variant) {
  RuntimeObject* object;
  if (!GetVariantObject(ViewVariant(variant), &object))
    RaiseTypeMismatchException();
  RuntimeLockObject(object);
  return object;
}

RuntimeObject* VariantToDate(RuntimeObject* variant) {
  return VariantToObject(variant);
}
