// The counts of string work; see the header.
#include "Universal/StringWorkCounters.h"

namespace {

// Written by the string functions of this copy of the runtime, read and
// cleared by tests; lives as long as the process.
StringWorkCounts gStringWork;

}  // namespace

StringWorkCounts CurrentStringWork() { return gStringWork; }

void ResetStringWork() { gStringWork = StringWorkCounts(); }

void CountStringAllocation(uint64_t bytes) {
  gStringWork.allocations++;
  gStringWork.allocatedBytes += bytes;
}

void CountStringCopy(uint64_t bytes) { gStringWork.copiedBytes += bytes; }

void CountStringScan(uint64_t bytes) { gStringWork.scannedBytes += bytes; }
