// Keeps the yield hook on time. Optimized script code calls the host once
// every many loop passes; when each pass spends long in the library, the
// hook (a time limit, a watchdog) would wait for seconds. While a script
// with a hook set runs, a ticker thread asks it to yield at its next pass
// every kYieldTick.
#ifndef STANDINHOST_YIELDTICKER_H
#define STANDINHOST_YIELDTICKER_H

#include <chrono>

#include "Plugin/PluginBoundary.h"

namespace quorl {
namespace standin {

constexpr std::chrono::milliseconds kYieldTick{10};

// The ticker asks `instance` to yield for as long as this object lives;
// nothing when the host has no yield hook or the engine offers no way to
// ask.
class YieldTicks {
 public:
  explicit YieldTicks(VELDObject instance);
  ~YieldTicks();
  YieldTicks(YieldTicks const&) = delete;
  YieldTicks& operator=(YieldTicks const&) = delete;

 private:
  VELDObject mInstance = nullptr;
};

}  // namespace standin
}  // namespace quorl

#endif
