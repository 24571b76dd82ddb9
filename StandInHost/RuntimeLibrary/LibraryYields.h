// Yields taken from library calls. A script whose time goes into the
// library where it checks for no yield (on the way back from a deep
// recursion) would keep a time limit or a stop waiting; the host that
// ticks moves gYieldTicks on, and the next library call on each thread of
// a running script takes the yield before its work.
#ifndef STANDINHOST_RUNTIMELIBRARY_LIBRARYYIELDS_H
#define STANDINHOST_RUNTIMELIBRARY_LIBRARYYIELDS_H

#include <atomic>

namespace quorl {
namespace standin {
namespace library {

extern std::atomic<unsigned> gYieldTicks;
extern thread_local unsigned tServedYieldTick;

inline bool YieldIsDue() {
  return gYieldTicks.load(std::memory_order_relaxed) != tServedYieldTick;
}

// Takes the yield for the running script; answers true when a stop is on
// its way back into the script.
typedef bool (*LibraryYield)();
void SetLibraryYield(LibraryYield yield);

// The due yield from a library call. True when a stop is on its way: the
// library function is then not called.
bool YieldFromLibraryCall();

}  // namespace library
}  // namespace standin
}  // namespace quorl

#endif
