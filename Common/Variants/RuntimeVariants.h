// Variants: values that carry their type at run time, and the entry points
// that generated code calls by name to make, read, compare and combine them.
//
// A script's Variant is one word, a `RuntimeObject*` counted like any object:
//   - nil (a null pointer) is the nil variant;
//   - an object stands for itself, so that casts, IsA and Is work on a
//     variant that holds one;
//   - every other value is boxed in an object of one of the variant classes
//     ("_VariantInt32" ... "_VariantCurrency"), whose instance data is a
//     VariantData. The class tells the exact kind (Int32 from UInt32, say),
//     the type code what the script sees through VarType.
//
// Ownership: every variant, string and object returned carries one reference
// that the caller owns; arguments are borrowed.
//
// A conversion that cannot be made (an object read as a number, a number
// read as an object) raises TypeMismatchException and returns zero, nil or
// the empty string. Integer division by zero gives 0, as on plain integers.
#ifndef COMMON_VARIANTS_RUNTIMEVARIANTS_H
#define COMMON_VARIANTS_RUNTIMEVARIANTS_H

#include <stdint.h>

#include "Common/ObjectModel/RuntimeObjectFoundation.h"

// What VarType answers. Int32 and UInt32 share the integer code, Int64 and
// UInt64 the long one.
enum VariantTypeCode : int32_t {
  kVariantTypeNil = 1,
  kVariantTypeInteger = 2,
  kVariantTypeLong = 3,
  kVariantTypeSingle = 4,
  kVariantTypeDouble = 5,
  kVariantTypeCurrency = 6,
  kVariantTypeString = 8,
  kVariantTypeObject = 9,
  kVariantTypeBoolean = 11,
  kVariantTypeColor = 16,
};

// The type code and twelve bytes of value: one word for integers, colours,
// booleans, Single, string and object pointers; two words, low first, for
// 64-bit integers, Currency and Double. Unused bytes are zero, since
// equality and hashing read all three words.
struct VariantData {
  int32_t type;
  uint32_t words[3];
};
static_assert(sizeof(VariantData) == 16, "a type code and twelve bytes");

// A boxed value: the object header, then its data.
struct RuntimeVariant {
  RuntimeObject header;
  VariantData data;
};

extern "C" {

// ---- boxing: each returns a new variant

RuntimeObject* Int32ToVariant(int32_t value);
RuntimeObject* UInt32ToVariant(uint32_t value);
RuntimeObject* Int64ToVariant(int64_t value);
RuntimeObject* UInt64ToVariant(uint64_t value);
RuntimeObject* SingleToVariant(float value);
RuntimeObject* DoubleToVariant(double value);
// Currency is a 64-bit integer scaled by 10000.
RuntimeObject* CurrencyToVariant(int64_t value);
// Booleans come as a word whose low byte decides.
RuntimeObject* BooleanToVariant(int32_t value);
RuntimeObject* ColorToVariant(uint32_t value);
// The empty string is a string variant too, not nil.
RuntimeObject* StringToVariant(stringStorage* value);
// The object itself, with one more reference; nil stays nil.
RuntimeObject* ObjectToVariant(RuntimeObject* value);

// ---- unboxing, with conversion

int32_t VariantToInt32(RuntimeObject* variant);
uint32_t VariantToUInt32(RuntimeObject* variant);
int64_t VariantToInt64(RuntimeObject* variant);
uint64_t VariantToUInt64(RuntimeObject* variant);
float VariantToSingle(RuntimeObject* variant);
double VariantToDouble(RuntimeObject* variant);
int64_t VariantToCurrency(RuntimeObject* variant);
int32_t VariantToBoolean(RuntimeObject* variant);
uint32_t VariantToColor(RuntimeObject* variant);
stringStorage* VariantToString(RuntimeObject* variant);
RuntimeObject* VariantToObject(RuntimeObject* variant);
// Dates are objects of a script class: the object held, as for
// VariantToObject.
RuntimeObject* VariantToDate(RuntimeObject* variant);

// ---- queries

// The type code; 1 for nil.
int32_t VarType(RuntimeObject* variant);
// Any of the number codes (integer, long, Single, Double, Currency).
int32_t RuntimeIsNumeric(RuntimeObject* variant);
int32_t IsNull(RuntimeObject* variant);
// 0 for nil; strings hash their text without regard to case; other values
// their three value words.
int32_t VariantHash(RuntimeObject* variant);
// Same type code and same value: an integer 1 and a double 1.0 differ.
// Strings compare without regard to case.
int32_t VariantEqual(RuntimeObject* a, RuntimeObject* b);

// ---- operators of two variants (see VariantOperators.cpp for the rules)

// -1, 0 or 1.
int32_t VariantCompare(RuntimeObject* a, RuntimeObject* b);
RuntimeObject* VariantAdd(RuntimeObject* a, RuntimeObject* b);
RuntimeObject* VariantSubtract(RuntimeObject* a, RuntimeObject* b);
RuntimeObject* VariantMultiply(RuntimeObject* a, RuntimeObject* b);
RuntimeObject* VariantDivide(RuntimeObject* a, RuntimeObject* b);
RuntimeObject* VariantIntegerDivide(RuntimeObject* a, RuntimeObject* b);
RuntimeObject* VariantModulo(RuntimeObject* a, RuntimeObject* b);
RuntimeObject* VariantPower(RuntimeObject* a, RuntimeObject* b);
RuntimeObject* VariantAnd(RuntimeObject* a, RuntimeObject* b);
RuntimeObject* VariantOr(RuntimeObject* a, RuntimeObject* b);
RuntimeObject* VariantNot(RuntimeObject* a);
RuntimeObject* VariantNegate(RuntimeObject* a);

}  // extern "C"

#endif
