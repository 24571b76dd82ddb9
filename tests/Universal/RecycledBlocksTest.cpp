// Recycled blocks: a freed block waits in its size's list and serves the
// next request of that size; the lists are given back on request, and
// large blocks never wait.
#include <gtest/gtest.h>

#include <thread>
#include <vector>

#include "Universal/RecycledBlocks.h"

namespace {

struct Small : RecycledObject {
  char bytes[40];
};

struct Large : RecycledObject {
  char bytes[4096];
};

TEST(RecycledBlocks, AFreedBlockServesTheNextOfItsSizeUntilReleased) {
#ifdef QUORL_SANITIZE
  GTEST_SKIP() << "the sanitized build goes straight to the heap";
#endif
  ReleaseRecycledBlocks();
  Small* first = new Small;
  delete first;
  EXPECT_EQ(WaitingRecycledBlocks(), 1u);
  Small* second = new Small;
  EXPECT_EQ(second, first) << "the waiting block is taken again";
  EXPECT_EQ(WaitingRecycledBlocks(), 0u);
  delete second;
  delete new Large;
  EXPECT_EQ(WaitingRecycledBlocks(), 1u) << "large blocks go to the heap";
  ReleaseRecycledBlocks();
  EXPECT_EQ(WaitingRecycledBlocks(), 0u);
}

// A list holds at most 16,384 blocks: a million freed at once do not stay.
TEST(RecycledBlocks, AListKeepsABoundedNumber) {
#ifdef QUORL_SANITIZE
  GTEST_SKIP() << "the sanitized build goes straight to the heap";
#endif
  ReleaseRecycledBlocks();
  std::vector<Small*> made;
  for (int i = 0; i < 100000; i++) made.push_back(new Small);
  for (Small* block : made) delete block;
  EXPECT_EQ(WaitingRecycledBlocks(), 16384u);
  ReleaseRecycledBlocks();
}

// Blocks made on one thread and freed on another join the freeing
// thread's lists, which its end gives back.
TEST(RecycledBlocks, BlocksMayCrossThreads) {
  std::vector<Small*> made;
  for (int i = 0; i < 100; i++) made.push_back(new Small);
  unsigned long waitingThere = 0;
  std::thread other([&] {
    for (Small* block : made) delete block;
    waitingThere = WaitingRecycledBlocks();
  });
  other.join();
#ifndef QUORL_SANITIZE
  EXPECT_EQ(waitingThere, 100u);
#endif
  ReleaseRecycledBlocks();
}

}  // namespace
