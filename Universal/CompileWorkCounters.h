// Counts of the work the compiler's containers and its linker do: keys
// compared by map lookups, entries stepped over in lists that a lookup walks,
// and imports copied when blocks are appended.
//
// Like the string counts, they are always kept (one addition per lookup or
// append, never per step) so that tests can prove a compile's cost proportional to the
// program by comparing the counts at two sizes, without a clock. Each thread
// keeps its own.
#ifndef UNIVERSAL_COMPILEWORKCOUNTERS_H
#define UNIVERSAL_COMPILEWORKCOUNTERS_H

#include <stdint.h>

#include "Universal/WorkCounterStorage.h"

struct CompileWorkCounts {
  uint64_t keyComparisons;  // keys compared while finding a map entry
  uint64_t listSteps;       // entries passed by walks that search a list
  uint64_t importsCopied;   // imports copied by block appends and growth
};

// Written by the containers, the compiler and the linker on this thread,
// read and cleared by tests; lives as long as the thread.
extern thread_local CompileWorkCounts gCompileWork QUORL_WORK_COUNTER_TLS;

inline CompileWorkCounts CurrentCompileWork() { return gCompileWork; }
inline void ResetCompileWork() { gCompileWork = CompileWorkCounts(); }

inline void CountKeyComparisons(uint64_t n) { gCompileWork.keyComparisons += n; }
inline void CountListSteps(uint64_t n) { gCompileWork.listSteps += n; }
inline void CountImportsCopied(uint64_t n) { gCompileWork.importsCopied += n; }

#endif
