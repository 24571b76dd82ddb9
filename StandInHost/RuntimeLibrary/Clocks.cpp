// The clocks of the script library.
//
// Ticks (60ths of a second) and Microseconds count from the host's start:
// the moment the library joined the host's name table, or the first call,
// whichever came first. They run on the monotonic clock, so changes of the
// wall clock do not move them.
#include <time.h>

#include "StandInHost/RuntimeLibrary/LibraryEntries.h"

namespace quorl {
namespace standin {
namespace library {
namespace {

double MonotonicMicroseconds() {
  timespec now;
  clock_gettime(CLOCK_MONOTONIC, &now);
  return now.tv_sec * 1e6 + now.tv_nsec / 1e3;
}

double StartMicroseconds() {
  static double sStart = MonotonicMicroseconds();
  return sStart;
}

double RuntimeMicroseconds() {
  return MonotonicMicroseconds() - StartMicroseconds();
}

long RuntimeTicks() {
  return static_cast<long>(RuntimeMicroseconds() * 60 / 1e6);
}

}  // namespace

// The clock starts when the library joins the host.
LibraryEntries ClockEntries() {
  StartMicroseconds();
  return {
      Entry<&RuntimeMicroseconds>("RuntimeMicroseconds"),
      Entry<&RuntimeTicks>("RuntimeTicks"),
  };
}

}  // namespace library
}  // namespace standin
}  // namespace quorl
