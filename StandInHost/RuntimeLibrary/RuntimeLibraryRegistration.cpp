// The runtime library joins the host's name table.
#include "StandInHost/RuntimeLibrary/RuntimeLibrary.h"

#include "Common/ObjectModel/RuntimeExceptionFoundation.h"
#include "Common/RuntimeColorFoundation.h"
#include "Common/RuntimeNumerics.h"
#include "StandInHost/RuntimeLibrary/LibraryEntries.h"
#include "quorl/QuorlHost.h"

namespace quorl {
namespace standin {
namespace library {

// Pow is an intrinsic as well and is served with them.
LibraryEntries RuntimeFoundationEntries() {
  return {
      QUORL_SERVE(RuntimeAbs),   QUORL_SERVE(RuntimeACos),
      QUORL_SERVE(RuntimeASin),  QUORL_SERVE(RuntimeATan),
      QUORL_SERVE(RuntimeATan2), QUORL_SERVE(RuntimeCos),
      QUORL_SERVE(RuntimeSin),   QUORL_SERVE(RuntimeTan),
      QUORL_SERVE(RuntimeExp),   QUORL_SERVE(RuntimeLog),
      QUORL_SERVE(RuntimeSqrt),  QUORL_SERVE(RuntimeCeil),
      QUORL_SERVE(RuntimeFloor), QUORL_SERVE(RuntimeRound),
      QUORL_SERVE(RuntimeSign),  QUORL_SERVE(BitwiseAnd),
      QUORL_SERVE(BitwiseOr),    QUORL_SERVE(BitwiseXor),
      QUORL_SERVE(rnd),          QUORL_SERVE(RuntimeRGB),
      QUORL_SERVE(RuntimeHSV),   QUORL_SERVE(RuntimeCMY),
      QUORL_SERVE(readColorRed), QUORL_SERVE(readColorGreen),
      QUORL_SERVE(readColorBlue),
  };
}

}  // namespace library

void RegisterRuntimeLibrary() {
  using namespace library;
  // The library runs in the host's copy of the runtime, which has no
  // exception classes: its raises go to the plug-in's by name.
  SetNamedExceptionRaiser(&quorl::detail::RaiseInScript);
  for (LibraryEntries (*theme)() :
       {&CharacterStringEntries, &ByteStringEntries, &TextEncodingEntries,
        &CaseAndTrimEntries,
        &FieldAndReplaceEntries, &NumberTextEntries, &FormatEntries,
        &ClockEntries, &EnvironmentHookEntries, &RuntimeFoundationEntries,
        &RuntimeIntrinsicEntries})
    for (LibraryEntry const& entry : theme())
      RegisterHostFunction(entry.name, entry.address);
}

}  // namespace standin
}  // namespace quorl
