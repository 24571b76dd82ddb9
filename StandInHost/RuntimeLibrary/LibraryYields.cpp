#include "StandInHost/RuntimeLibrary/LibraryYields.h"

namespace quorl {
namespace standin {
namespace library {

std::atomic<unsigned> gYieldTicks{0};
thread_local unsigned tServedYieldTick = 0;

namespace {
std::atomic<LibraryYield> sLibraryYield{nullptr};
}  // namespace

void SetLibraryYield(LibraryYield yield) { sLibraryYield.store(yield); }

bool YieldFromLibraryCall() {
  tServedYieldTick = gYieldTicks.load(std::memory_order_relaxed);
  LibraryYield yield = sLibraryYield.load();
  return yield && yield();
}

}  // namespace library
}  // namespace standin
}  // namespace quorl
