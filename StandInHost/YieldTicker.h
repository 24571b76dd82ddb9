// Keeps the yield hook on time. Optimized script code calls the host once
// every many loop passes; when each pass spends long in the library, the
// hook (a time limit, a watchdog) would wait for seconds. While a script
// with a hook set runs, a ticker thread asks it to yield at its next pass
// every kYieldTick.
#ifndef STANDINHOST_YIELDTICKER_H
#define STANDINHOST_YIELDTICKER_H

#include <atomic>
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

// Moved on by the ticker each time it asks; a thread whose script calls
// the library compares it with the tick it served last, so that a script
// whose time goes into library calls made where it checks for no yield
// (on the way back from a deep recursion) yields too.
extern std::atomic<unsigned> gYieldTicks;
extern thread_local unsigned tServedYieldTick;

inline bool YieldIsDue() {
  return gYieldTicks.load(std::memory_order_relaxed) != tServedYieldTick;
}

// Gives the host its turn from a library call of the running script. True
// when a stop is on its way back into the script: the library function is
// then not called.
bool YieldFromLibraryCall();

}  // namespace standin
}  // namespace quorl

#endif
