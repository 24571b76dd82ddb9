// The host runtime's process-wide state. A real host has one runtime per
// process, and the plug-in caches the addresses it resolves for good, so
// the stand-in host is process-wide too.
#ifndef STANDINHOST_HOSTSTATE_H
#define STANDINHOST_HOSTSTATE_H

#include "quorl/QuorlHost.h"

namespace quorl {
namespace standin {

struct HostState {
  HostOptions options;
  int pluginVersion = 0;
  unsigned long stackBase = 0;
};

HostState& Host();

}  // namespace standin
}  // namespace quorl

#endif
