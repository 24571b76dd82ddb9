// Counts of the work the string runtime does: storages made, the bytes they
// hold, the bytes copied into them and the bytes of text walked by the
// library's searches and position lookups.
//
// They are always kept (an addition in line per allocation or per call,
// never per byte) so that tests can prove a function's cost proportional to
// its input and output by comparing the counts at two sizes, without a
// clock. Each thread, in each copy of the runtime in a process, keeps its
// own counts.
#ifndef UNIVERSAL_STRINGWORKCOUNTERS_H
#define UNIVERSAL_STRINGWORKCOUNTERS_H

#include <stdint.h>

#include "Universal/WorkCounterStorage.h"

struct StringWorkCounts {
  uint64_t allocations;     // storages made
  uint64_t allocatedBytes;  // text bytes of those storages
  uint64_t copiedBytes;     // bytes copied into storages
  uint64_t scannedBytes;    // bytes walked by searches and position lookups
};

// Written by the string functions of this copy of the runtime on this
// thread, read and cleared by tests; lives as long as the thread.
extern thread_local StringWorkCounts gStringWork QUORL_WORK_COUNTER_TLS;

inline StringWorkCounts CurrentStringWork() { return gStringWork; }
inline void ResetStringWork() { gStringWork = StringWorkCounts(); }

inline void CountStringAllocation(uint64_t bytes) {
  gStringWork.allocations++;
  gStringWork.allocatedBytes += bytes;
}
inline void CountStringCopy(uint64_t bytes) {
  gStringWork.copiedBytes += bytes;
}
inline void CountStringScan(uint64_t bytes) {
  gStringWork.scannedBytes += bytes;
}

#endif
