// Numeric conversions: moves where the processor can do them, runtime
// functions where it cannot.
#include "Compiler/BackEnds/NumericConversions.h"
#include "Compiler/BackEnds/PowerPC/CGPPC.h"
#include "Universal/Assertion.h"

// A float is loaded as a double; a Single target is rounded first, so that
// the register the cache keeps holds what memory holds.
void CGPPC::tac_Cvt(TacLine const& line) {
  QASSERT_TEXT(line.opA->mType.IsNumeric(), "line.opA->mType.IsNumeric()");
  QASSERT_TEXT(line.result->mType.IsNumeric(), "line.result->mType.IsNumeric()");
  QASSERT(!line.result->IsConstant());
  ConversionRow const& row =
      FindNumericConversion(line.opA->mType, line.result->mType);
  switch (row.kind) {
    case kConvertMove32:
      StoreTacAddr(LoadTacAddr(line.opA, kSelectAnyGPR), line.result);
      break;
    case kConvertMove64: {
      int hi, lo;
      LoadInt64TacAddr(line.opA, &hi, &lo, kSelectAnyGPR);
      StoreInt64TacAddr(hi, lo, line.result);
      break;
    }
    case kConvertFloat: {
      int a = LoadTacAddr(line.opA, kSelectAnyFPR);
      int r = AllocateRegister(true, SchemeExclude(a, kSelectAnyFPR));
      if (line.result->mType.GetMainType() == kReal32Type)
        ppc_frsp(r, a);
      else
        ppc_fmr(r, a);
      StoreTacAddr(r, line.result);
      break;
    }
    case kConvertRuntime:
      CallRuntime(row.intrinsic, line.opA, nilTacAddr, line.result);
      break;
  }
}
