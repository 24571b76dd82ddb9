// Numeric conversions: moves where the processor can do them, runtime
// functions where it cannot.
#include "Compiler/BackEnds/IA-32/CGIA32.h"
#include "Compiler/BackEnds/NumericConversions.h"

#include "Compiler/InternalFailure.h"
#include "Compiler/Intrinsics.h"
#include "Universal/Assertion.h"

// Every 32-bit signed value, and every narrower unsigned one, is exactly
// a Double: cvtsi2sd gives what the runtime's conversion gives.
bool CGIA32::ConvertInLine(TacLine const& line) {
  if (!mOptions.mOptimizeCode || !mOptions.mUseSSE2FloatingPointMath) return false;
  if (line.result->mType.GetMainType() != kReal64Type) return false;
  IRDataType const& from = line.opA->mType;
  bool exact = from.IsInteger() && (from.Signed() ? from.StorageSize() <= 4
                                                  : from.StorageSize() < 4);
  if (!exact) return false;
  int value = LoadForReading(line.opA, kSelectAnyGPR);
  int converted = AllocateRegister(kSelectAnyXMM, kNoRegister);
  ia32_cvtsi2sd(kModRegister, converted, value);
  StoreTacAddr(converted, line.result);
  return true;
}

void CGIA32::tac_Cvt(TacLine const& line) {
  QASSERT_TEXT(line.opA->mType.IsNumeric(), "line.opA->mType.IsNumeric()");
  QASSERT_TEXT(line.result->mType.IsNumeric(), "line.result->mType.IsNumeric()");
  QASSERT(!line.result->IsConstant());
  if (ConvertInLine(line)) return;
  ConversionRow const* row =
      &FindNumericConversion(line.opA->mType, line.result->mType);
  switch (row->kind) {
    case kConvertMove32:
      StoreTacAddr(LoadForReading(line.opA, kSelectAnyGPR), line.result);
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
