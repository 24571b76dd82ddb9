// Clocks and the random number generator.
//
// Ticks (60ths of a second) and Microseconds count from the host's start:
// the moment the library joined the host's name table, or the first call,
// whichever came first. They run on the monotonic clock, so changes of the
// wall clock do not move them. Rnd is a Lehmer generator with multiplier
// 16807 in Schrage form, seeded from the time of day on first use; it gives
// twenty random bits in [0, 1).
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

// The generator's state; 0 until the first Rnd seeds it. Process-wide, as
// scripts run one at a time.
long sSeed = 0;

// One step of the generator. The quotient constant is 12773, not the
// textbook 127773, and the products wrap in 32 bits: the sequence is
// defined by exactly this rule.
long NextRandom() {
  long high = sSeed / 12773;
  long low = sSeed - high * 12773;
  long next = static_cast<long>(static_cast<unsigned long>(low) * 16807u -
                                static_cast<unsigned long>(high) * 2836u);
  if (next < 1) next += 0x7FFFFFFF;
  sSeed = next;
  return sSeed & 0x7FFFFFFF;
}

void SeedFromClock() {
  time_t now = time(nullptr);
  unsigned long bits = static_cast<unsigned long>(now);
  sSeed = (bits == 0 || bits == 0x80000000ul) ? 1 : (bits & 0x7FFFFFFF);
  for (int i = 0; i < 7; i++) NextRandom();
}

double rnd() {
  if (sSeed == 0) SeedFromClock();
  return (NextRandom() & 0xFFFFF) / 1048576.0;
}

}  // namespace

// The clock starts when the library joins the host.
LibraryEntries TimeAndRandomEntries() {
  StartMicroseconds();
  return {
      Entry("RuntimeMicroseconds", &RuntimeMicroseconds),
      Entry("RuntimeTicks", &RuntimeTicks),
      Entry("rnd", &rnd),
  };
}

}  // namespace library
}  // namespace standin
}  // namespace quorl
