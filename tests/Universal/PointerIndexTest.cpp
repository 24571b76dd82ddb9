// The address-keyed index of the code generator and the linker.
#include <gtest/gtest.h>

#include <memory>
#include <vector>

#include "Universal/PointerIndex.h"

namespace {

std::vector<std::unique_ptr<int>> MakeObjects(int count) {
  std::vector<std::unique_ptr<int>> objects;
  for (int i = 0; i < count; i++) objects.emplace_back(new int(i));
  return objects;
}

}  // namespace

// Every object added is found with its number through many growths; an
// object never added is not.
TEST(PointerIndex, FindsEveryObjectAcrossGrowth) {
  auto objects = MakeObjects(5000);
  int stranger = -1;
  PointerIndex index;
  long value = 0;
  EXPECT_FALSE(index.Find(objects[0].get(), &value));
  for (int i = 0; i < 5000; i++) index.Add(objects[i].get(), i * 3);
  for (int i = 0; i < 5000; i++) {
    ASSERT_TRUE(index.Find(objects[i].get(), &value)) << i;
    ASSERT_EQ(value, i * 3);
  }
  EXPECT_FALSE(index.Find(&stranger, &value));
}

// Clearing forgets every object, and what is added next has numbers of
// its own.
TEST(PointerIndex, ClearForgetsEverything) {
  auto objects = MakeObjects(300);
  PointerIndex index;
  long value = 0;
  for (int round = 0; round < 3; round++) {
    index.Clear();
    for (int i = 0; i < 300; i++) ASSERT_FALSE(index.Find(objects[i].get(), &value));
    for (int i = round; i < 300; i += 2) index.Add(objects[i].get(), i + round);
    for (int i = 0; i < 300; i++) {
      bool added = i >= round && (i - round) % 2 == 0;
      ASSERT_EQ(index.Find(objects[i].get(), &value), added) << round << " " << i;
      if (added) {
        ASSERT_EQ(value, i + round);
      }
    }
  }
}
