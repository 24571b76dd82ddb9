// The host runtime's process-wide state. A real host has one runtime per
// process, and the plug-in caches the addresses it resolves for good, so
// the stand-in host is process-wide too.
#ifndef STANDINHOST_HOSTSTATE_H
#define STANDINHOST_HOSTSTATE_H

#include "Plugin/EmbeddingBoundary.h"
#include "quorl/QuorlHost.h"

namespace quorl {
namespace standin {

struct HostState {
  HostOptions options;
  int pluginVersion = 0;
  unsigned long stackBase = 0;
  // What the engine offered at load; null for an engine that offers none.
  QuorlEngineOperations const* engine = nullptr;
};

HostState& Host();

// The script instance whose Run() or Precompile() is innermost on this
// thread, or null: a failing yield hook stops it.
VELDObject CurrentScriptInstance();
void SetCurrentScriptInstance(VELDObject instance);

// "QuorlTakeEngineOperations".
void QuorlTakeEngineOperations(QuorlEngineOperations const* operations);

}  // namespace standin
}  // namespace quorl

#endif
