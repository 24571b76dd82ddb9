// The lists of recycled blocks; see the header.
#include "Universal/RecycledBlocks.h"

#include <string.h>

#include <new>

#include "Universal/WorkCounterStorage.h"

namespace {

// Sizes are rounded up to the grain; larger blocks are not recycled.
size_t const kGrain = 8;
size_t const kLargestRecycled = 256;
size_t const kSizeClasses = kLargestRecycled / kGrain;
// A list keeps at most this many blocks; more go back to the heap.
unsigned short const kLongestList = 16384;

struct FreeBlock {
  FreeBlock* next;
};

struct Lists {
  FreeBlock* heads[kSizeClasses];
  unsigned short lengths[kSizeClasses];

  void Release() {
    for (size_t c = 0; c < kSizeClasses; c++) {
      while (FreeBlock* block = heads[c]) {
        heads[c] = block->next;
        ::operator delete(block);
      }
      lengths[c] = 0;
    }
  }
};

// Zeroed storage: no constructor runs, so the lists cost nothing to reach.
thread_local Lists tLists QUORL_WORK_COUNTER_TLS;

// Frees this thread's lists when the thread ends.
struct ReleaseAtThreadEnd {
  ~ReleaseAtThreadEnd() { tLists.Release(); }
};
thread_local ReleaseAtThreadEnd tRelease;

}  // namespace

void* TakeZeroedRecycledBlock(size_t size) {
  return memset(TakeRecycledBlock(size), 0, size);
}

#ifdef QUORL_SANITIZE

void* TakeRecycledBlock(size_t size) { return ::operator new(size); }
void GiveBackRecycledBlock(void* block, size_t) { ::operator delete(block); }
void ReleaseRecycledBlocks() {}
unsigned long WaitingRecycledBlocks() { return 0; }

#else

namespace {

size_t ClassOf(size_t size) { return (size + kGrain - 1) / kGrain - 1; }

}  // namespace

void* TakeRecycledBlock(size_t size) {
  if (size == 0 || size > kLargestRecycled) return ::operator new(size);
  size_t c = ClassOf(size);
  if (FreeBlock* block = tLists.heads[c]) {
    tLists.heads[c] = block->next;
    tLists.lengths[c]--;
    return block;
  }
  // Every block of a class has the class's full size, whoever asks.
  (void)&tRelease;
  return ::operator new((c + 1) * kGrain);
}

void GiveBackRecycledBlock(void* block, size_t size) {
  if (!block) return;
  if (size == 0 || size > kLargestRecycled) {
    ::operator delete(block);
    return;
  }
  size_t c = ClassOf(size);
  if (tLists.lengths[c] >= kLongestList) {
    ::operator delete(block);
    return;
  }
  FreeBlock* freed = static_cast<FreeBlock*>(block);
  freed->next = tLists.heads[c];
  tLists.heads[c] = freed;
  tLists.lengths[c]++;
}

void ReleaseRecycledBlocks() { tLists.Release(); }

unsigned long WaitingRecycledBlocks() {
  unsigned long total = 0;
  for (size_t c = 0; c < kSizeClasses; c++) total += tLists.lengths[c];
  return total;
}

#endif
