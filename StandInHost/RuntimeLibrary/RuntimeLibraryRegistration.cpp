// The runtime library joins the host's name table.
#include "StandInHost/RuntimeLibrary/RuntimeLibrary.h"

#include "Common/RuntimeColorFoundation.h"
#include "Common/RuntimeStringFoundation.h"
#include "StandInHost/RuntimeLibrary/LibraryEntries.h"
#include "quorl/QuorlHost.h"

namespace quorl {
namespace standin {
namespace library {

LibraryEntries RuntimeFoundationEntries() {
  return {
      Entry("RuntimeLockString", &RuntimeLockString),
      Entry("RuntimeUnlockString", &RuntimeUnlockString),
      Entry("RuntimeLockUnlockStrings", &RuntimeLockUnlockStrings),
      Entry("RuntimeAddString", &RuntimeAddString),
      Entry("RuntimeStringCompare", &RuntimeStringCompare),
      Entry("RuntimeGetStructureString", &RuntimeGetStructureString),
      Entry("RuntimeSetStructureString", &RuntimeSetStructureString),
      Entry("RuntimeGetStructureContents", &RuntimeGetStructureContents),
      Entry("RuntimeSetStructureWString", &RuntimeSetStructureWString),
      Entry("StringToPString", &StringToPString),
      Entry("StringToCString", &StringToCString),
      Entry("StringFromPString", &StringFromPString),
      Entry("StringFromCString", &StringFromCString),
      Entry("StringToOSType", &StringToOSType),
      Entry("StringFromOSType", &StringFromOSType),
      Entry("StringFromWString", &StringFromWString),
      Entry("StringToWString", &StringToWString),
      Entry("LockWString", &LockWString),
      Entry("UnlockWString", &UnlockWString),
      Entry("SwapWStringLocks", &SwapWStringLocks),
      Entry("LockCFString", &LockCFString),
      Entry("UnlockCFString", &UnlockCFString),
      Entry("SwapCFStringLocks", &SwapCFStringLocks),
      Entry("StringToCFString", &StringToCFString),
      Entry("StringFromCFString", &StringFromCFString),
      Entry("RuntimeRGB", &RuntimeRGB),
      Entry("RuntimeHSV", &RuntimeHSV),
      Entry("RuntimeCMY", &RuntimeCMY),
      Entry("readColorRed", &readColorRed),
      Entry("readColorGreen", &readColorGreen),
      Entry("readColorBlue", &readColorBlue),
      Entry("readColorHue", &readColorHue),
      Entry("readColorSaturation", &readColorSaturation),
      Entry("readColorValue", &readColorValue),
      Entry("readColorCyan", &readColorCyan),
      Entry("readColorMagenta", &readColorMagenta),
      Entry("readColorYellow", &readColorYellow),
  };
}

}  // namespace library

void RegisterRuntimeLibrary() {
  using namespace library;
  for (LibraryEntries (*theme)() :
       {&CharacterStringEntries, &ByteStringEntries, &CaseAndTrimEntries,
        &FieldAndReplaceEntries, &NumberTextEntries, &FormatEntries,
        &MathEntries, &TimeAndRandomEntries, &RuntimeFoundationEntries})
    for (LibraryEntry const& entry : theme())
      RegisterHostFunction(entry.name, entry.address);
}

}  // namespace standin
}  // namespace quorl
