// SimpleVector growth, indexing past the end and shrinking.
#include <gtest/gtest.h>

#include "Universal/SimpleVector.h"
#include "Universal/ustring.h"

TEST(SimpleVector, DoublingGrowthStartsAt16) {
  SimpleVector<int> v;
  EXPECT_EQ(v.capacity(), 0u);
  v.push_back(1);
  EXPECT_EQ(v.capacity(), 16u);
  for (int i = 1; i < 16; i++) v.push_back(i);
  EXPECT_EQ(v.capacity(), 16u);
  v.push_back(16);
  EXPECT_EQ(v.capacity(), 32u);
  for (int i = 0; i <= 16; i++) EXPECT_EQ(v[i], i == 0 ? 1 : i);
}

TEST(SimpleVector, SmallGrowthStepStillGrowsBy16) {
  SimpleVector<int> v;
  v.SetGrowthStep(4);
  v.push_back(0);
  EXPECT_EQ(v.capacity(), 16u);
  for (int i = 1; i <= 16; i++) v.push_back(i);
  EXPECT_EQ(v.capacity(), 32u);
  SimpleVector<int> big;
  big.SetGrowthStep(40);
  big.push_back(0);
  EXPECT_EQ(big.capacity(), 40u);
}

TEST(SimpleVector, IndexingAtSizeRaisesTheSize) {
  SimpleVector<int> v;
  v.resize(8);
  EXPECT_EQ(v.size(), 0u);
  EXPECT_EQ(v.capacity(), 8u);
  v[0] = 5;
  EXPECT_EQ(v.size(), 1u);
  v[1] = 6;
  EXPECT_EQ(v.size(), 2u);
  v[0] = 7;
  EXPECT_EQ(v.size(), 2u);
  EXPECT_EQ(v[1], 6);
}

TEST(SimpleVector, SizedConstructorValueInitialises) {
  SimpleVector<int*> v(5);
  EXPECT_EQ(v.size(), 5u);
  EXPECT_EQ(v.capacity(), 5u);
  for (unsigned long i = 0; i < 5; i++) EXPECT_EQ(v[i], nullptr);
}

TEST(SimpleVector, ResizeSetsCapacityAndCutsSize) {
  SimpleVector<int> v;
  for (int i = 0; i < 10; i++) v.push_back(i);
  v.resize(4);
  EXPECT_EQ(v.size(), 4u);
  EXPECT_EQ(v.capacity(), 4u);
  EXPECT_EQ(v[3], 3);
}

TEST(SimpleVector, InsertPopPeek) {
  SimpleVector<int> v;
  v.push_back(1);
  v.push_back(3);
  v.insert(2, 1);
  v.insert(0, 0);
  ASSERT_EQ(v.size(), 4u);
  for (int i = 0; i < 4; i++) EXPECT_EQ(v[i], i);
  EXPECT_EQ(v.peek_back(), 3);
  EXPECT_EQ(v.pop_back(), 3);
  EXPECT_EQ(v.size(), 3u);
  EXPECT_EQ(v.capacity(), 16u);
}

TEST(SimpleVector, PopOnEmptyAsserts) {
  SimpleVector<int> v;
  EXPECT_EXIT(v.pop_back(), testing::ExitedWithCode(1), "");
  EXPECT_EXIT(v.peek_back(), testing::ExitedWithCode(1), "");
}

TEST(SimpleVector, PushingAnOwnItemAcrossGrowth) {
  SimpleVector<string> v;
  for (int i = 0; i < 16; i++) v.push_back(string("item"));
  v.push_back(v[0]);  // the buffer is reallocated under the argument
  EXPECT_STREQ(v[16].CString(), "item");
  v.insert(v[1], 0);
  EXPECT_STREQ(v[0].CString(), "item");
}

TEST(SimpleVector, DeleteIdxShiftsAndShrinks) {
  SimpleVector<int> v;
  for (int i = 0; i < 40; i++) v.push_back(i);
  EXPECT_EQ(v.capacity(), 64u);
  v.deleteIdx(0);
  EXPECT_EQ(v[0], 1);
  EXPECT_EQ(v.size(), 39u);
  while (v.size() > 10) v.deleteIdx(v.size() - 1);
  // 2 * 10 < 54 free: shrinks to (10 & ~15) + 16.
  EXPECT_EQ(v.capacity(), 16u);
  EXPECT_EQ(v[9], 10);

  SimpleVector<int> stepped;
  stepped.SetGrowthStep(20);
  for (int i = 0; i < 60; i++) stepped.push_back(i);
  while (stepped.size() > 15) stepped.deleteIdx(0);
  // Free capacity exceeds 2 * 20: shrinks to 20 * (size / 20 + 1).
  EXPECT_EQ(stepped.capacity() % 20, 0u);
  EXPECT_LE(stepped.capacity(), 40u);
  EXPECT_EQ(stepped[0], 45);
}

TEST(SimpleVector, CopiesAreDeep) {
  SimpleVector<int> v;
  v.SetGrowthStep(7);
  v.push_back(1);
  SimpleVector<int> copy(v);
  copy[0] = 2;
  EXPECT_EQ(v[0], 1);
  EXPECT_EQ(copy.capacity(), v.capacity());
  EXPECT_EQ(copy.GrowthStep(), 7u);
  SimpleVector<int> assigned;
  assigned = v;
  EXPECT_EQ(assigned.size(), 1u);
  v.deleteAll();
  EXPECT_EQ(v.size(), 0u);
  EXPECT_EQ(v.capacity(), 0u);
  EXPECT_EQ(assigned[0], 1);
}
