// Numeric conversions: moves where the processor can do them, runtime
// functions where it cannot.
#include "Compiler/BackEnds/IA-32/CGIA32.h"

#include "Compiler/InternalFailure.h"
#include "Compiler/Intrinsics.h"
#include "Universal/Assertion.h"

namespace {

enum ConversionKind { kConvertMove32, kConvertMove64, kConvertFloat,
                      kConvertRuntime };

struct ConversionRow {
  SimpleDataType from;
  SimpleDataType to;
  ConversionKind kind;
  int intrinsic;
};

#define QUORL_MOVE32(f, t) {f, t, kConvertMove32, 0},
#define QUORL_MOVE64(f, t) {f, t, kConvertMove64, 0},
#define QUORL_RUNTIME(f, t, name) {f, t, kConvertRuntime, kIntrinsic##name},

// Rows by source type; narrow integers and Single targets are normalised
// before the lookup.
ConversionRow const kConversions[] = {
    QUORL_MOVE32(kSInt32Type, kSInt32Type)
    QUORL_MOVE32(kSInt32Type, kUInt32Type)
    QUORL_MOVE64(kSInt32Type, kSInt64Type)
    QUORL_MOVE64(kSInt32Type, kUInt64Type)
    QUORL_RUNTIME(kSInt32Type, kReal64Type, RuntimeCvtSInt32ToReal64)
    QUORL_RUNTIME(kSInt32Type, kCurrencyType, RuntimeCvtSInt32ToCurrency)
    QUORL_MOVE32(kUInt32Type, kSInt32Type)
    QUORL_MOVE32(kUInt32Type, kUInt32Type)
    QUORL_MOVE64(kUInt32Type, kSInt64Type)
    QUORL_MOVE64(kUInt32Type, kUInt64Type)
    QUORL_RUNTIME(kUInt32Type, kReal64Type, RuntimeCvtUInt32ToReal64)
    QUORL_RUNTIME(kUInt32Type, kCurrencyType, RuntimeCvtUInt32ToCurrency)
    QUORL_MOVE64(kSInt64Type, kSInt32Type)
    QUORL_MOVE64(kSInt64Type, kUInt32Type)
    QUORL_MOVE64(kSInt64Type, kSInt64Type)
    QUORL_MOVE64(kSInt64Type, kUInt64Type)
    QUORL_RUNTIME(kSInt64Type, kReal64Type, RuntimeCvtSInt64ToReal64)
    QUORL_RUNTIME(kSInt64Type, kCurrencyType, RuntimeCvtSInt64ToCurrency)
    QUORL_MOVE64(kUInt64Type, kSInt32Type)
    QUORL_MOVE64(kUInt64Type, kUInt32Type)
    QUORL_MOVE64(kUInt64Type, kSInt64Type)
    QUORL_MOVE64(kUInt64Type, kUInt64Type)
    QUORL_RUNTIME(kUInt64Type, kReal64Type, RuntimeCvtUInt64ToReal64)
    QUORL_RUNTIME(kUInt64Type, kCurrencyType, RuntimeCvtUInt64ToCurrency)
    QUORL_RUNTIME(kReal32Type, kSInt32Type, RuntimeCvtReal32ToSInt32)
    QUORL_RUNTIME(kReal32Type, kUInt32Type, RuntimeCvtReal32ToUInt32)
    QUORL_RUNTIME(kReal32Type, kSInt64Type, RuntimeCvtReal32ToSInt64)
    QUORL_RUNTIME(kReal32Type, kUInt64Type, RuntimeCvtReal32ToUInt64)
    {kReal32Type, kReal64Type, kConvertFloat, 0},
    QUORL_RUNTIME(kReal32Type, kCurrencyType, RuntimeCvtReal32ToCurrency)
    QUORL_RUNTIME(kReal64Type, kSInt32Type, RuntimeCvtReal64ToSInt32)
    QUORL_RUNTIME(kReal64Type, kUInt32Type, RuntimeCvtReal64ToUInt32)
    QUORL_RUNTIME(kReal64Type, kSInt64Type, RuntimeCvtReal64ToSInt64)
    QUORL_RUNTIME(kReal64Type, kUInt64Type, RuntimeCvtReal64ToUInt64)
    {kReal64Type, kReal64Type, kConvertFloat, 0},
    QUORL_RUNTIME(kReal64Type, kCurrencyType, RuntimeCvtReal64ToCurrency)
    QUORL_RUNTIME(kCurrencyType, kSInt32Type, RuntimeCvtCurrencyToSInt32)
    QUORL_RUNTIME(kCurrencyType, kUInt32Type, RuntimeCvtCurrencyToUInt32)
    QUORL_RUNTIME(kCurrencyType, kSInt64Type, RuntimeCvtCurrencyToSInt64)
    QUORL_RUNTIME(kCurrencyType, kUInt64Type, RuntimeCvtCurrencyToUInt64)
    QUORL_RUNTIME(kCurrencyType, kReal64Type, RuntimeCvtCurrencyToReal64)
};

#undef QUORL_MOVE32
#undef QUORL_MOVE64
#undef QUORL_RUNTIME

SimpleDataType NormaliseConversionType(IRDataType const& type, bool target) {
  SimpleDataType main = type.GetMainType();
  if (main == kSInt8Type || main == kSInt16Type) return kSInt32Type;
  if (main == kUInt8Type || main == kUInt16Type) return kUInt32Type;
  if (target && main == kReal32Type) return kReal64Type;
  return main;
}

}  // namespace

// Every 32-bit signed value, and every narrower unsigned one, is exactly
// a Double: cvtsi2sd gives what the runtime's conversion gives.
bool CGIA32::ConvertInLine(TacLine const& line) {
  if (!mOptions.mOptimizeCode || !mOptions.mUseSSE2FloatingPointMath) return false;
  if (line.result->mType.GetMainType() != kReal64Type) return false;
  IRDataType const& from = line.opA->mType;
  bool exact = from.IsInteger() && (from.Signed() ? from.StorageSize() <= 4
                                                  : from.StorageSize() < 4);
  if (!exact) return false;
  int value = LoadTacAddr(line.opA, kSelectAnyGPR);
  int converted = AllocateRegister(kSelectAnyXMM, kNoRegister);
  ia32_cvtsi2sd(3, converted, value);
  StoreTacAddr(converted, line.result);
  return true;
}

void CGIA32::tac_Cvt(TacLine const& line) {
  QASSERT_TEXT(line.opA->mType.IsNumeric(), "line.opA->mType.IsNumeric()");
  QASSERT_TEXT(line.result->mType.IsNumeric(), "line.result->mType.IsNumeric()");
  QASSERT(!line.result->IsConstant());
  if (ConvertInLine(line)) return;
  SimpleDataType from = NormaliseConversionType(line.opA->mType, false);
  SimpleDataType to = NormaliseConversionType(line.result->mType, true);
  QASSERT_TEXT(from < 256, "from < 256");
  QASSERT_TEXT(to < 256, "to < 256");
  ConversionRow const* row = nullptr;
  for (unsigned i = 0; i < sizeof kConversions / sizeof kConversions[0]; i++)
    if (kConversions[i].from == from && kConversions[i].to == to)
      row = &kConversions[i];
  if (!row) QFAIL("unsupported numeric conversion");
  switch (row->kind) {
    case kConvertMove32:
      StoreTacAddr(LoadTacAddr(line.opA, kSelectAnyGPR), line.result);
      break;
    case kConvertMove64: {
      int hi, lo;
      LoadInt64TacAddr(line.opA, &hi, &lo, kSelectAnyGPR);
      StoreInt64TacAddr(hi, lo, line.result);
      break;
    }
    case kConvertFloat:
      PushFloatTacAddr(line.opA);
      PopFloatTacAddr(line.result);
      break;
    case kConvertRuntime:
      CallRuntime(row->intrinsic, line.opA, nilTacAddr, line.result);
      break;
  }
}
