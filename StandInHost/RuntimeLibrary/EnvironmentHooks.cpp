// Calls that compiled code makes into a development environment: the wait
// cursor that methods compiled under "disableAutoWaitCursor" switch off and
// on, and the per-statement hook of code compiled under "#pragma Debug".
// The stand-in host has neither a cursor nor a debugger, so each call does
// nothing; serving them keeps such scripts linkable.
#include "StandInHost/RuntimeLibrary/LibraryEntries.h"

namespace quorl {
namespace standin {
namespace library {
namespace {

void DisableAutoWaitCursor() {}
void EnableAutoWaitCursor() {}
void DebuggerHook() {}

}  // namespace

LibraryEntries EnvironmentHookEntries() {
  return {Entry<&DisableAutoWaitCursor>("DisableAutoWaitCursor"),
          Entry<&EnableAutoWaitCursor>("EnableAutoWaitCursor"),
          Entry<&DebuggerHook>("DebuggerHook")};
}

}  // namespace library
}  // namespace standin
}  // namespace quorl
