// Reading a variant's value as a number, a boolean, a colour, an object or
// text: the conversions behind the VariantTo... entry points.
#include "Common/RuntimeNumerics.h"
#include "Common/Variants/VariantValues.h"

namespace variants {
namespace {

// A boolean read as a colour is white or black.
uint32_t const kColorOfTrue = 0xFFFFFF;

VariantNumber Whole(NumberForm form, int64_t value) {
  VariantNumber n = {form, value, 0};
  return n;
}

VariantNumber Real(double value) {
  VariantNumber n = {kRealNumber, 0, value};
  return n;
}

}  // namespace

bool ReadNumber(VariantView const& view, VariantNumber* out) {
  VariantData const& data = view.data;
  switch (view.kind) {
    case kKindNil: *out = Whole(kSignedNumber, 0); return true;
    case kKindInt32:
      *out = Whole(kSignedNumber, static_cast<int32_t>(data.words[0]));
      return true;
    case kKindUInt32:
    case kKindColor: *out = Whole(kUnsignedNumber, data.words[0]); return true;
    case kKindInt64:
      *out = Whole(kSignedNumber, static_cast<int64_t>(LongOf(data)));
      return true;
    case kKindUInt64:
      *out = Whole(kUnsignedNumber, static_cast<int64_t>(LongOf(data)));
      return true;
    case kKindBoolean:
      *out = Whole(kSignedNumber, data.words[0] ? 1 : 0);
      return true;
    case kKindCurrency:
      *out = Whole(kCurrencyNumber, static_cast<int64_t>(LongOf(data)));
      return true;
    case kKindSingle: *out = Real(SingleOf(data)); return true;
    case kKindDouble: *out = Real(DoubleOf(data)); return true;
    case kKindString: *out = Real(DuplicateVal(StringOf(data))); return true;
    default: *out = Whole(kSignedNumber, 0); return false;
  }
}

int64_t NumberToInt64(VariantNumber const& n) {
  switch (n.form) {
    case kRealNumber: return RuntimeCvtReal64ToSInt64(n.real);
    case kCurrencyNumber: return RuntimeCvtCurrencyToSInt64(n.whole);
    default: return n.whole;
  }
}

uint64_t NumberToUInt64(VariantNumber const& n) {
  switch (n.form) {
    case kRealNumber: return RuntimeCvtReal64ToUInt64(n.real);
    case kCurrencyNumber: return RuntimeCvtCurrencyToUInt64(n.whole);
    default: return static_cast<uint64_t>(n.whole);
  }
}

int32_t NumberToInt32(VariantNumber const& n) {
  switch (n.form) {
    case kRealNumber: return RuntimeCvtReal64ToSInt32(n.real);
    case kCurrencyNumber: return RuntimeCvtCurrencyToSInt32(n.whole);
    default: return static_cast<int32_t>(n.whole);
  }
}

uint32_t NumberToUInt32(VariantNumber const& n) {
  switch (n.form) {
    case kRealNumber: return RuntimeCvtReal64ToUInt32(n.real);
    case kCurrencyNumber: return RuntimeCvtCurrencyToUInt32(n.whole);
    default: return static_cast<uint32_t>(n.whole);
  }
}

double NumberToDouble(VariantNumber const& n) {
  switch (n.form) {
    case kRealNumber: return n.real;
    case kCurrencyNumber: return RuntimeCvtCurrencyToReal64(n.whole);
    case kUnsignedNumber:
      return RuntimeCvtUInt64ToReal64(static_cast<uint64_t>(n.whole));
    default: return RuntimeCvtSInt64ToReal64(n.whole);
  }
}

int64_t NumberToCurrency(VariantNumber const& n) {
  switch (n.form) {
    case kRealNumber: return RuntimeCvtReal64ToCurrency(n.real);
    case kCurrencyNumber: return n.whole;
    case kUnsignedNumber:
      return RuntimeCvtUInt64ToCurrency(static_cast<uint64_t>(n.whole));
    default: return RuntimeCvtSInt64ToCurrency(n.whole);
  }
}

// A NaN counts as true: it is not zero.
bool GetVariantBoolean(VariantView const& view, bool* out) {
  *out = false;
  VariantNumber n;
  if (view.kind == kKindString) {
    string text(StringOf(view.data));
    *out = text == string("true") || text == string("1");
    return true;
  }
  if (!ReadNumber(view, &n)) return false;
  *out = n.form == kRealNumber ? n.real != 0 : n.whole != 0;
  return true;
}

bool GetVariantColor(VariantView const& view, uint32_t* out) {
  *out = 0;
  if (view.kind == kKindBoolean) {
    *out = view.data.words[0] ? kColorOfTrue : 0;
    return true;
  }
  VariantNumber n;
  if (!ReadNumber(view, &n)) return false;
  *out = NumberToUInt32(n);
  return true;
}

bool GetVariantObject(VariantView const& view, RuntimeObject** out) {
  *out = nullptr;
  if (view.kind == kKindNil) return true;
  if (view.kind != kKindObject) return false;
  *out = reinterpret_cast<RuntimeObject*>(
      static_cast<uintptr_t>(view.data.words[0]));
  return true;
}

bool GetVariantString(VariantView const& view, string* out) {
  *out = string();
  VariantData const& data = view.data;
  switch (view.kind) {
    case kKindNil: return true;
    case kKindString: *out = string(StringOf(data)); return true;
    case kKindBoolean: *out = data.words[0] ? "True" : "False"; return true;
    case kKindSingle: *out = RealNumberText(SingleOf(data), 7); return true;
    case kKindDouble: *out = RealNumberText(DoubleOf(data), 15); return true;
    case kKindCurrency:
      *out = CurrencyText(static_cast<int64_t>(LongOf(data)));
      return true;
    case kKindColor: *out = ColorText(data.words[0]); return true;
    case kKindObject: return false;
    default: {
      VariantNumber n;
      ReadNumber(view, &n);
      *out = WholeNumberText(n.whole, n.form == kUnsignedNumber);
      return true;
    }
  }
}

}  // namespace variants
