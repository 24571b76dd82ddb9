// The variant runtime's own view of a variant word: what kind of value it
// holds, its data, and reading that value as a number or as text. The entry
// points of RuntimeVariants.h are built on these.
#ifndef COMMON_VARIANTS_VARIANTVALUES_H
#define COMMON_VARIANTS_VARIANTVALUES_H

#include "Common/Variants/RuntimeVariants.h"
#include "Universal/ustring.h"

namespace variants {

// The exact kind of a value; each boxed kind has a class of its own.
enum VariantKind {
  kKindNil,
  kKindInt32,
  kKindUInt32,
  kKindInt64,
  kKindUInt64,
  kKindSingle,
  kKindDouble,
  kKindCurrency,
  kKindString,
  kKindObject,
  kKindBoolean,
  kKindColor,
  kKindCount
};

// A variant word seen through its kind. For nil the data has type 1 and no
// value; for an object, type 9 and the pointer in the first word.
struct VariantView {
  VariantKind kind;
  VariantData data;
};

VariantView ViewVariant(RuntimeObject* variant);

// A fresh box of a boxed kind with count 1 and its type code set, the value
// words zero; nil when the object cannot be made (the runtime has raised).
RuntimeVariant* NewVariantBox(VariantKind kind);

// The setters of the value; a null record is left alone. Each writes the
// type code and the words its value takes.
void SetIntegerVariant(uint32_t value, VariantData* data);
void SetLongVariant(uint64_t value, VariantData* data);
void SetSingleVariant(float value, VariantData* data);
void SetDoubleVariant(double value, VariantData* data);
void SetCurrencyVariant(int64_t value, VariantData* data);
// Keeps a reference to the text; the box's finaliser drops it.
void SetStringVariant(stringStorage* value, VariantData* data);
void SetObjectVariant(RuntimeObject* value, VariantData* data);
void SetBooleanVariant(bool value, VariantData* data);
void SetColorVariant(uint32_t value, VariantData* data);
void SetNilVariant(VariantData* data);

// The 64-bit and Double values of a record.
uint64_t LongOf(VariantData const& data);
double DoubleOf(VariantData const& data);
float SingleOf(VariantData const& data);
stringStorage* StringOf(VariantData const& data);

// How a value reads as a number: a whole number (signed or not), a real, or
// Currency's scaled whole number.
enum NumberForm {
  kSignedNumber,
  kUnsignedNumber,
  kRealNumber,
  kCurrencyNumber
};
struct VariantNumber {
  NumberForm form;
  int64_t whole;  // the value for the whole forms, the bits for unsigned
  double real;    // the value for the real form
};

// Nil reads as 0, a boolean as 1 or 0, a colour as its word, a string as the
// number at its start (as Val reads it). False for objects.
bool ReadNumber(VariantView const& view, VariantNumber* out);

// The number in each target type, converted as a plain assignment would.
int64_t NumberToInt64(VariantNumber const& n);
uint64_t NumberToUInt64(VariantNumber const& n);
int32_t NumberToInt32(VariantNumber const& n);
uint32_t NumberToUInt32(VariantNumber const& n);
double NumberToDouble(VariantNumber const& n);
int64_t NumberToCurrency(VariantNumber const& n);

// The getters: false when the type does not allow the read, with the output
// zero.
bool GetVariantBoolean(VariantView const& view, bool* out);
bool GetVariantColor(VariantView const& view, uint32_t* out);
bool GetVariantObject(VariantView const& view, RuntimeObject** out);
// The text of each kind but objects; nil is the empty string.
bool GetVariantString(VariantView const& view, string* out);

// Text to number, as the script's Val reads it.
double DuplicateVal(stringStorage* text);
// Numbers as text: whole numbers in full, reals with at most 15 significant
// digits (Single with 7), Currency with at most four decimals.
string WholeNumberText(int64_t value, bool isUnsigned);
string RealNumberText(double value, int significantDigits);
string CurrencyText(int64_t value);
// A colour as its literal is written: "&c" and six hexadecimal digits.
string ColorText(uint32_t value);

}  // namespace variants

#endif
