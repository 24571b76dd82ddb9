#include "StandInHost/HostState.h"

namespace quorl {
namespace standin {

HostState& Host() {
  static HostState state;
  return state;
}

namespace {
thread_local VELDObject tCurrentScript = nullptr;
}

VELDObject CurrentScriptInstance() { return tCurrentScript; }

void SetCurrentScriptInstance(VELDObject instance) { tCurrentScript = instance; }

void QuorlTakeEngineOperations(QuorlEngineOperations const* operations) {
  Host().engine = operations;
}

}  // namespace standin
}  // namespace quorl
