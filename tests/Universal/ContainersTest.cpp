// SimpleVector, StringMap, StringSet, IntMap and Ref handles.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "Compiler/SmartRef.h"
#include "Universal/IntMap.h"
#include "Universal/SimpleVector.h"
#include "Universal/stringmap.h"
#include "Universal/ustring.h"

namespace {

typedef std::vector<std::string> Names;

string Key(int i) { return string(("key" + std::to_string(i)).c_str()); }

template <class T>
Names KeysInOrder(StringMap<T>& map) {
  Names keys;
  StringMapIterator<T>* it = map.NewIterator();
  while (it->Next()) keys.push_back(it->Key().CString());
  delete it;
  return keys;
}

// Whatever the step, growing keeps every element where it was, and inserts
// and removals across a growth keep the order.
TEST(SimpleVector, ElementsSurviveGrowthWithAnyStep) {
  for (unsigned long step : {0ul, 1ul, 4ul, 40ul}) {
    SimpleVector<int> v;
    if (step) v.SetGrowthStep(step);
    for (int i = 0; i < 100; i++) v.push_back(i);
    v.insert(-1, 0);
    v.insert(1000, 101);
    ASSERT_EQ(v.size(), 102u) << step;
    EXPECT_GE(v.capacity(), v.size()) << step;
    EXPECT_EQ(v[0], -1) << step;
    for (int i = 0; i < 100; i++) ASSERT_EQ(v[i + 1], i) << step;
    EXPECT_EQ(v[101], 1000) << step;
  }
}

TEST(SimpleVector, IndexingAtSizeRaisesTheSizeAndEmptyPopAsserts) {
  SimpleVector<int> v;
  v.resize(8);
  EXPECT_EQ(v.size(), 0u);
  v[0] = 5;
  v[1] = 6;
  v[0] = 7;
  EXPECT_EQ(v.size(), 2u);
  v.insert(4, 0);
  EXPECT_EQ(v[1], 7);
  v.deleteAll();
  EXPECT_EXIT(v.pop_back(), testing::ExitedWithCode(1), "");
}

TEST(SimpleVector, PushingAnOwnItemAcrossGrowth) {
  SimpleVector<string> v;
  for (int i = 0; i < 16; i++) v.push_back(string("item"));
  v.push_back(v[0]);  // the buffer is reallocated under the argument
  EXPECT_STREQ(v[16].CString(), "item");
}

TEST(StringMap, Resizes192Then193AndKeepsOrderAcrossDelete) {
  StringMap<int> map;
  for (int i = 0; i < 192; i++) map.AddEntry(Key(i), i);
  EXPECT_EQ(map.BinCount(), 256u);
  for (int i = 192; i < 300; i++) map.AddEntry(Key(i), i);
  EXPECT_EQ(map.BinCount(), 512u);
  int value = -1;
  EXPECT_TRUE(map.GetEntry(Key(7), value));
  EXPECT_EQ(value, 7);
  for (int i : {0, 150, 299}) map.DeleteEntry(Key(i));
  map.AddEntry(Key(1000), 1000);
  Names keys = KeysInOrder(map);
  ASSERT_EQ(keys.size(), 298u);
  EXPECT_EQ(keys[149], "key151");
  EXPECT_EQ(keys.back(), "key1000");
}

// Swapping trades whole maps, order and bins included; each keeps
// working, growing and finding keys afterwards.
TEST(StringMap, SwapTradesContentsAndBothKeepWorking) {
  StringMapCase<int> big, small;
  for (int i = 0; i < 500; i++) big.AddEntry(Key(i), i);
  small.AddEntry(string("only"), 1);
  big.Swap(small);
  EXPECT_EQ(big.Count(), 1u);
  EXPECT_EQ(KeysInOrder(small).size(), 500u);
  int value = -1;
  EXPECT_TRUE(small.GetEntry(Key(499), value));
  EXPECT_EQ(value, 499);
  EXPECT_FALSE(big.HasEntry(Key(3)));
  for (int i = 0; i < 300; i++) big.AddEntry(Key(i), -i);  // grows anew
  EXPECT_TRUE(big.GetEntry(Key(299), value));
  EXPECT_EQ(value, -299);
  EXPECT_TRUE(big.GetEntry(string("only"), value));
}

TEST(StringMap, CaseRulesHashAndUTF8Keys) {
  StringMap<int> folding;
  for (char const* key : {"a", "Name", "c", "NAME"}) folding.AddEntry(key, 7);
  folding.AddEntry("A", 10);
  EXPECT_EQ(KeysInOrder(folding), (Names{"a", "Name", "c"}));
  StringMapCase<int> exact;
  exact.AddEntry("Name", 1);
  EXPECT_FALSE(exact.HasEntry("name"));
  EXPECT_EQ(folding.hashString("AB"), 65u * 31 + 66);
  EXPECT_EQ(folding.hashString(string("\xFF")), 0xFFFFFFFFu) << "signed bytes";
  string latin("caf\xE9");
  latin.SetEncoding(513);
  StringMap<int> map;
  map.AddEntry(latin, 7);
  string utf8("caf\xC3\xA9");
  utf8.SetEncoding(kEncodingUTF8);
  EXPECT_TRUE(map.HasEntry(utf8));
  // ASCII text is UTF-8 byte for byte: either tag finds the other, in both
  // kinds of map, and no conversion is made for the lookup.
  string word("Integer");
  word.SetEncoding(kEncodingUTF8);
  exact.AddEntry(word, 2);
  int value = 0;
  EXPECT_TRUE(exact.GetEntry("Integer", value));
  EXPECT_EQ(value, 2);
  folding.AddEntry(word, 3);
  EXPECT_TRUE(folding.GetEntry("INTEGER", value));
  EXPECT_EQ(value, 3);
  // Among many keys, a folding lookup still meets its key in another case,
  // and a key with bytes above ASCII in the same case.
  for (int i = 0; i < 2000; i++) folding.AddEntry(Key(i), i);
  EXPECT_TRUE(folding.GetEntry("KEY1999", value));
  EXPECT_EQ(value, 1999);
  folding.AddEntry(utf8, 8);
  EXPECT_TRUE(folding.GetEntry(utf8, value));
  EXPECT_EQ(value, 8);
}

TEST(StringMapIterator, DeletesWhileIteratingSkipNothing) {
  StringMap<int> map;
  for (int i = 0; i < 6; i++) map.AddEntry(Key(i), i);
  StringMapIterator<int>* it = map.NewIterator();
  std::vector<int> seen;
  int value;
  while (it->Next(value)) {
    seen.push_back(value);
    if (value % 2 == 0) it->Delete();
  }
  delete it;
  EXPECT_EQ(seen, (std::vector<int>{0, 1, 2, 3, 4, 5}));
  it = map.NewIterator();
  ASSERT_TRUE(it->Next());
  map.DeleteEntry(Key(1));
  EXPECT_EQ(it->Key().Length(), 0u);  // moved on, not started
  ASSERT_TRUE(it->Next(value));
  EXPECT_EQ(value, 3);
  delete it;
}

TEST(StringMapIterator, LiveIteratorBlocksDeleteAll) {
  StringMap<int> map;
  map.AddEntry("a", 1);
  map.NewIterator();
  EXPECT_EXIT(map.DeleteAll(), testing::ExitedWithCode(1), "");
}

TEST(StringSet, FoldsCase) {
  StringSet set;
  for (char const* name : {"One", "two", "ONE", "three"}) set.Add(name);
  set.Remove("TWO");
  StringSetIterator* it = set.NewIterator();
  Names names;
  string name;
  while (it->Next(name)) names.push_back(name.CString());
  delete it;
  EXPECT_EQ(names, (Names{"One", "three"}));
}

TEST(IntMap, CollisionsReplacementOrderAndRemoval) {
  IntMap<int> map;
  // (key * 13) & 0x3FF: multiples of 1024, negative too, share bin 0.
  for (int i = 0; i < 5; i++) map.AddEntry(i * 1024, i);
  map.AddEntry(-1024, 12);
  map.AddEntry(0, 100);
  for (int key : {2048, 4096, 7}) map.RemoveEntry(key);  // 7 is absent
  map.AddEntry(5, 5);
  std::vector<int> keys;
  for (IntMapEntry<int>* e = map.First(); e; e = e->mNextInOrder)
    keys.push_back(e->mKey);
  EXPECT_EQ(keys, (std::vector<int>{0, 1024, 3072, -1024, 5}));
  int value = 0;
  EXPECT_TRUE(map.GetEntry(0, value));
  EXPECT_EQ(value, 100);
}

// Entries live in chunks: values that own memory are destroyed once, on
// removal or with the map (the sanitized build checks), and a removed
// entry's place serves the next key.
TEST(IntMap, ValuesSurviveChunksRemovalAndReuse) {
  IntMap<string> map;
  for (int i = 0; i < 300; i++) map.AddEntry(i, string("value") + string(char('a' + i % 26)));
  for (int i = 0; i < 300; i += 3) map.RemoveEntry(i);
  for (int i = 1000; i < 1100; i++) map.AddEntry(i, string("again"));
  EXPECT_EQ(map.Count(), 300u);
  string found;
  EXPECT_TRUE(map.GetEntry(4, found));
  EXPECT_STREQ(found.CString(), "valuee");
  EXPECT_FALSE(map.GetEntry(3, found));
  EXPECT_TRUE(map.GetEntry(1099, found));
  EXPECT_STREQ(found.CString(), "again");
}

int gLiveNodes = 0, gDepth = 0, gMaxDepth = 0;
class Node {
 public:
  Node() { gLiveNodes++; }
  virtual ~Node() {
    gMaxDepth = std::max(gMaxDepth, ++gDepth);
    mNext.Unbind();
    gDepth--;
    gLiveNodes--;
  }
  Ref<Node> mNext;
};

TEST(SmartRef, OnlyZeroConvertsAndReassigningTheHeadFreesIt) {
  EXPECT_EXIT({ Ref<Node> bad(1); }, testing::ExitedWithCode(1), "");
  gLiveNodes = 0;
  Ref<Node> head;
  head.BindNewObject(new Node);
  head->mNext.BindNewObject(new Node);
  head = head->mNext;  // the old head held the only other reference
  EXPECT_EQ(gLiveNodes, 1);
}

TEST(SmartRef, LongChainIsReleasedWithoutRecursion) {
  gLiveNodes = gDepth = gMaxDepth = 0;
  Ref<Node> head;
  head.BindNewObject(new Node);
  Ref<Node> tail = head;
  for (int i = 1; i < 10000; i++) {
    tail->mNext.BindNewObject(new Node);
    tail = tail->mNext;
  }
  tail.Unbind();
  head.Unbind();
  EXPECT_EQ(gLiveNodes, 0);
  EXPECT_EQ(gMaxDepth, 1);
}

}  // namespace
