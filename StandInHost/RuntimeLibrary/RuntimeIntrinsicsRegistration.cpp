// The engine runtime's entry points that generated code reaches by intrinsic
// number, served under their link names. Every name here is the C name of
// the function behind it, so the two cannot drift apart. Intrinsics whose
// runtime does not exist yet (variants, delegates, debugger) are absent, and
// the linker reports them if a script needs them. The object model, the
// arrays and the raisers of exceptions are absent on purpose: they work on
// state that the plug-in's own copy of the runtime holds (the lists of
// objects and classes, the exception hooks), so the plug-in serves them.
#include "Common/RuntimeColorFoundation.h"
#include "Common/RuntimeNumerics.h"
#include "Common/RuntimeStringFoundation.h"
#include "StandInHost/RuntimeLibrary/LibraryEntries.h"

namespace quorl {
namespace standin {
namespace library {

LibraryEntries RuntimeIntrinsicEntries() {
  return {
      // numerics
      QUORL_SERVE(RuntimePow),
      QUORL_SERVE(RuntimeMulSInt64),
      QUORL_SERVE(RuntimeMulUInt64),
      QUORL_SERVE(RuntimeDivSInt64),
      QUORL_SERVE(RuntimeDivUInt64),
      QUORL_SERVE(RuntimeModSInt64),
      QUORL_SERVE(RuntimeModUInt64),
      QUORL_SERVE(RuntimeShiftLeftInt64),
      QUORL_SERVE(RuntimeShiftRightInt64),
      QUORL_SERVE(RuntimeMulCurrency),
      QUORL_SERVE(RuntimeDivCurrency),
      QUORL_SERVE(RuntimeCvtSInt32ToReal64),
      QUORL_SERVE(RuntimeCvtSInt32ToCurrency),
      QUORL_SERVE(RuntimeCvtUInt32ToReal64),
      QUORL_SERVE(RuntimeCvtUInt32ToCurrency),
      QUORL_SERVE(RuntimeCvtSInt64ToReal64),
      QUORL_SERVE(RuntimeCvtSInt64ToCurrency),
      QUORL_SERVE(RuntimeCvtUInt64ToReal64),
      QUORL_SERVE(RuntimeCvtUInt64ToCurrency),
      QUORL_SERVE(RuntimeCvtReal32ToSInt32),
      QUORL_SERVE(RuntimeCvtReal32ToUInt32),
      QUORL_SERVE(RuntimeCvtReal32ToSInt64),
      QUORL_SERVE(RuntimeCvtReal32ToUInt64),
      QUORL_SERVE(RuntimeCvtReal32ToCurrency),
      QUORL_SERVE(RuntimeCvtReal64ToSInt32),
      QUORL_SERVE(RuntimeCvtReal64ToUInt32),
      QUORL_SERVE(RuntimeCvtReal64ToSInt64),
      QUORL_SERVE(RuntimeCvtReal64ToUInt64),
      QUORL_SERVE(RuntimeCvtReal64ToCurrency),
      QUORL_SERVE(RuntimeCvtCurrencyToSInt32),
      QUORL_SERVE(RuntimeCvtCurrencyToUInt32),
      QUORL_SERVE(RuntimeCvtCurrencyToSInt64),
      QUORL_SERVE(RuntimeCvtCurrencyToUInt64),
      QUORL_SERVE(RuntimeCvtCurrencyToReal64),
      // strings
      QUORL_SERVE(RuntimeStringCompare),
      QUORL_SERVE(RuntimeAddString),
      QUORL_SERVE(StringToPString),
      QUORL_SERVE(StringToCString),
      QUORL_SERVE(StringToWString),
      QUORL_SERVE(StringToCFString),
      QUORL_SERVE(StringToOSType),
      QUORL_SERVE(StringFromPString),
      QUORL_SERVE(StringFromCString),
      QUORL_SERVE(StringFromWString),
      QUORL_SERVE(StringFromCFString),
      QUORL_SERVE(StringFromOSType),
      QUORL_SERVE(RuntimeGetStructureString),
      QUORL_SERVE(RuntimeSetStructureString),
      QUORL_SERVE(RuntimeGetStructureContents),
      QUORL_SERVE(RuntimeSetStructureWString),
      // colour components
      QUORL_SERVE(readColorHue),
      QUORL_SERVE(readColorSaturation),
      QUORL_SERVE(readColorValue),
      QUORL_SERVE(readColorCyan),
      QUORL_SERVE(readColorMagenta),
      QUORL_SERVE(readColorYellow),
      // reference counts of strings, wide strings and CF strings
      QUORL_SERVE(RuntimeLockString),
      QUORL_SERVE(RuntimeUnlockString),
      QUORL_SERVE(RuntimeLockUnlockStrings),
      QUORL_SERVE(LockWString),
      QUORL_SERVE(UnlockWString),
      QUORL_SERVE(LockCFString),
      QUORL_SERVE(UnlockCFString),
      QUORL_SERVE(SwapWStringLocks),
      QUORL_SERVE(SwapCFStringLocks),
  };
}

}  // namespace library
}  // namespace standin
}  // namespace quorl
