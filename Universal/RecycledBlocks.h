// Small blocks that are made and freed by the million while a script
// compiles (semantic values, lines of three-address code) go back to a
// list of their size instead of to the heap, and the next request of that
// size takes one from the list: a push and a pop instead of the heap's
// bookkeeping. A class takes part by deriving from `RecycledObject`.
//
// The lists are per thread. A block freed on another thread than the one
// that made it joins that thread's list, which is sound: every block is an
// ordinary heap block. `ReleaseRecycledBlocks` gives the waiting blocks of
// this thread back to the heap (the compiler calls it when a compilation
// ends), and so does the thread's end. The sanitized build goes straight
// to the heap, so that a use after free is still seen.
#ifndef UNIVERSAL_RECYCLEDBLOCKS_H
#define UNIVERSAL_RECYCLEDBLOCKS_H

#include <stddef.h>

void* TakeRecycledBlock(size_t size);
// The same, with every byte zero: an empty index of pointers.
void* TakeZeroedRecycledBlock(size_t size);
void GiveBackRecycledBlock(void* block, size_t size);
void ReleaseRecycledBlocks();
// Blocks waiting in this thread's lists, for tests.
unsigned long WaitingRecycledBlocks();

class RecycledObject {
 public:
  static void* operator new(size_t size) { return TakeRecycledBlock(size); }
  static void operator delete(void* block, size_t size) {
    GiveBackRecycledBlock(block, size);
  }
};

#endif
