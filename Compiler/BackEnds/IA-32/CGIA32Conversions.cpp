// Numeric conversions: moves where the processor can do them, runtime
// functions where it cannot.
#include "Compiler/BackEnds/IA-32/CGIA32.h"
#include "Compiler/BackEnds/NumericConversions.h"

#include "Compiler/InternalFailure.h"
#include "Compiler/Intrinsics.h"
#include "Universal/Assertion.h"

void CGIA32::tac_Cvt(TacLine const& line) {
  QASSERT_TEXT(line.opA->mType.IsNumeric(), "line.opA->mType.IsNumeric()");
  QASSERT_TEXT(line.result->mType.IsNumeric(), "line.result->mType.IsNumeric()");
  QASSERT(!line.result->IsConstant());
  ConversionRow const* row =
      &FindNumericConversion(line.opA->mType, line.result->mType);
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
