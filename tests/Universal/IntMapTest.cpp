// IntMap: fixed bins, replacement in place, removal.
#include <gtest/gtest.h>

#include <vector>

#include "Universal/IntMap.h"

namespace {

std::vector<int> KeysInOrder(IntMap<int> const& map) {
  std::vector<int> keys;
  for (IntMapEntry<int>* e = map.First(); e; e = e->mNextInOrder)
    keys.push_back(e->mKey);
  return keys;
}

}  // namespace

TEST(IntMap, CollidingKeysShareABinAndStayDistinct) {
  IntMap<int> map;
  // (key * 13) & 0x3FF: 0 and 1024 land in bin 0, as does -1024.
  map.AddEntry(0, 10);
  map.AddEntry(1024, 11);
  map.AddEntry(-1024, 12);
  int value = 0;
  EXPECT_TRUE(map.GetEntry(1024, value));
  EXPECT_EQ(value, 11);
  EXPECT_TRUE(map.GetEntry(-1024, value));
  EXPECT_EQ(value, 12);
  EXPECT_FALSE(map.HasEntry(2048));
}

TEST(IntMap, ReplaceKeepsOrderAndRemoveUnlinks) {
  IntMap<int> map;
  for (int i = 0; i < 5; i++) map.AddEntry(i * 1024, i);
  map.AddEntry(0, 100);
  EXPECT_EQ(KeysInOrder(map), (std::vector<int>{0, 1024, 2048, 3072, 4096}));
  map.RemoveEntry(2048);
  map.RemoveEntry(4096);
  map.RemoveEntry(7);  // absent: nothing happens
  EXPECT_EQ(KeysInOrder(map), (std::vector<int>{0, 1024, 3072}));
  map.AddEntry(5, 5);
  EXPECT_EQ(KeysInOrder(map), (std::vector<int>{0, 1024, 3072, 5}));
  int value = 0;
  EXPECT_TRUE(map.GetEntry(0, value));
  EXPECT_EQ(value, 100);
  EXPECT_FALSE(map.HasEntry(2048));
}
