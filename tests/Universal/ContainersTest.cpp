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

TEST(SimpleVector, GrowthSteps) {
  SimpleVector<int> v;
  EXPECT_EQ(v.capacity(), 0u);
  for (int i = 0; i < 16; i++) v.push_back(i);
  EXPECT_EQ(v.capacity(), 16u);
  v.push_back(16);
  EXPECT_EQ(v.capacity(), 32u);
  for (int i = 0; i <= 16; i++) EXPECT_EQ(v[i], i);
  SimpleVector<int> small, big;
  small.SetGrowthStep(4);
  small.push_back(0);
  EXPECT_EQ(small.capacity(), 16u) << "a small step still grows by 16";
  big.SetGrowthStep(40);
  big.push_back(0);
  EXPECT_EQ(big.capacity(), 40u);
}

TEST(SimpleVector, IndexingAtSizeRaisesTheSizeAndResizeCuts) {
  SimpleVector<int> v;
  v.resize(8);
  EXPECT_EQ(v.size(), 0u);
  EXPECT_EQ(v.capacity(), 8u);
  v[0] = 5;
  v[1] = 6;
  v[0] = 7;
  EXPECT_EQ(v.size(), 2u);
  v.resize(1);
  EXPECT_EQ(v.size(), 1u);
  EXPECT_EQ(v.capacity(), 1u);
  SimpleVector<int*> sized(5);
  EXPECT_EQ(sized.size(), 5u);
  EXPECT_EQ(sized[4], nullptr);
}

TEST(SimpleVector, InsertPopAndAssertsOnEmpty) {
  SimpleVector<int> v;
  v.push_back(1);
  v.push_back(3);
  v.insert(2, 1);
  v.insert(0, 0);
  for (int i = 0; i < 4; i++) EXPECT_EQ(v[i], i);
  EXPECT_EQ(v.peek_back(), 3);
  EXPECT_EQ(v.pop_back(), 3);
  EXPECT_EQ(v.size(), 3u);
  SimpleVector<int> copy(v);
  copy[0] = 9;
  EXPECT_EQ(v[0], 0) << "copies are deep";
  v.deleteAll();
  EXPECT_EQ(v.capacity(), 0u);
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
  v.deleteIdx(0);
  EXPECT_EQ(v[0], 1);
  while (v.size() > 10) v.deleteIdx(v.size() - 1);
  EXPECT_EQ(v.capacity(), 16u);  // (10 & ~15) + 16
  EXPECT_EQ(v[9], 10);
  SimpleVector<int> stepped;
  stepped.SetGrowthStep(20);
  for (int i = 0; i < 60; i++) stepped.push_back(i);
  while (stepped.size() > 15) stepped.deleteIdx(0);
  EXPECT_EQ(stepped.capacity() % 20, 0u);
  EXPECT_LE(stepped.capacity(), 40u);
  EXPECT_EQ(stepped[0], 45);
}

TEST(StringMap, Resizes192Then193AndKeepsOrderAcrossDelete) {
  StringMap<int> map;
  for (int i = 0; i < 192; i++) map.AddEntry(Key(i), i);
  EXPECT_EQ(map.BinCount(), 256u);
  for (int i = 192; i < 300; i++) map.AddEntry(Key(i), i);
  EXPECT_EQ(map.BinCount(), 512u);
  for (int i = 0; i < 300; i++) {
    int value = -1;
    ASSERT_TRUE(map.GetEntry(Key(i), value));
    EXPECT_EQ(value, i);
  }
  for (int i : {0, 150, 299}) map.DeleteEntry(Key(i));
  map.AddEntry(Key(1000), 1000);
  Names keys = KeysInOrder(map);
  ASSERT_EQ(keys.size(), 298u);
  EXPECT_EQ(keys.front(), "key1");
  EXPECT_EQ(keys[149], "key151");
  EXPECT_EQ(keys.back(), "key1000");
  map.DeleteAll();
  EXPECT_EQ(map.BinCount(), 512u);
  EXPECT_FALSE(map.HasEntry(Key(3)));
}

TEST(StringMap, CaseRulesAndReplacementInPlace) {
  StringMap<int> folding;
  for (char const* key : {"a", "Name", "c", "NAME"}) folding.AddEntry(key, 7);
  folding.AddEntry("A", 10);
  EXPECT_EQ(KeysInOrder(folding), (Names{"a", "Name", "c"}));
  int value = 0;
  EXPECT_TRUE(folding.GetEntry("a", value));
  EXPECT_EQ(value, 10);
  StringMapCase<int> exact;
  exact.AddEntry("Name", 1);
  exact.AddEntry("NAME", 2);
  EXPECT_EQ(exact.Count(), 2u);
  EXPECT_FALSE(exact.HasEntry("name"));
  EXPECT_FALSE(folding.DeleteEntry("x"));
  EXPECT_FALSE(folding.GetEntry("x", value));
  EXPECT_EQ(value, 10);
}

TEST(StringMap, HashFoldsOnlyAsciiLettersAndKeysAreUTF8) {
  StringMap<int> map;
  StringMapCase<int> exact;
  EXPECT_EQ(map.hashString("abc"), map.hashString("ABC"));
  EXPECT_NE(exact.hashString("abc"), exact.hashString("ABC"));
  EXPECT_EQ(map.hashString("AB"), 65u * 31 + 66);
  EXPECT_EQ(map.hashString(string("\xFF")), 0xFFFFFFFFu) << "signed bytes";
  string latin("caf\xE9");
  latin.SetEncoding(513);
  map.AddEntry(latin, 7);
  string utf8("caf\xC3\xA9");
  utf8.SetEncoding(kEncodingUTF8);
  EXPECT_TRUE(map.HasEntry(utf8));
  EXPECT_EQ(KeysInOrder(map)[0], "caf\xC3\xA9");
}

TEST(StringMapIterator, DeleteContinuesWithoutSkipping) {
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
  EXPECT_EQ(KeysInOrder(map), (Names{"key1", "key3", "key5"}));
}

TEST(StringMapIterator, DeleteEntryMovesStartedAndFreshIterators) {
  StringMap<int> map;
  for (int i = 0; i < 3; i++) map.AddEntry(Key(i), i);
  StringMapIterator<int>* it = map.NewIterator();
  ASSERT_TRUE(it->Next());
  map.DeleteEntry(Key(0));
  EXPECT_EQ(it->Key().Length(), 0u);  // moved on, not started
  int value;
  ASSERT_TRUE(it->Next(value));
  EXPECT_EQ(value, 1);
  StringMapIterator<int>* fresh = map.NewIterator();
  map.DeleteEntry(Key(1));
  ASSERT_TRUE(fresh->Next(value));
  EXPECT_EQ(value, 2);
  EXPECT_FALSE(fresh->Next());
  EXPECT_FALSE(fresh->Value(value));
  delete fresh;
  delete it;
}

int gIteratorsDestroyed = 0;
class CountingIterator : public StringMapIterator<int> {
 public:
  explicit CountingIterator(StringMap<int>* map) : StringMapIterator<int>(map) {}
  ~CountingIterator() override { gIteratorsDestroyed++; }
};

TEST(StringMapIterator, LiveIteratorsDieWithTheMapAndBlockDeleteAll) {
  {
    StringMap<int> map;
    map.AddEntry("a", 1);
    new CountingIterator(&map);
    new CountingIterator(&map);
  }
  EXPECT_EQ(gIteratorsDestroyed, 2);
  StringMap<int> map;
  map.AddEntry("a", 1);
  map.NewIterator();
  EXPECT_EXIT(map.DeleteAll(), testing::ExitedWithCode(1), "");
}

bool CollectUntilStop(string, int value, long refCon) {
  reinterpret_cast<std::vector<int>*>(refCon)->push_back(value);
  return value != 3;
}

TEST(StringMap, IterateStopsWhenAskedToAndSetsFoldCase) {
  StringMap<int> map;
  for (int i = 0; i < 6; i++) map.AddEntry(Key(i), i);
  std::vector<int> seen;
  map.Iterate(CollectUntilStop, reinterpret_cast<long>(&seen));
  EXPECT_EQ(seen, (std::vector<int>{0, 1, 2, 3}));
  StringSet set;
  for (char const* name : {"One", "two", "ONE", "three"}) set.Add(name);
  set.Remove("TWO");
  EXPECT_TRUE(set.Contains("one"));
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
  EXPECT_TRUE(map.GetEntry(-1024, value));
  EXPECT_EQ(value, 12);
  EXPECT_FALSE(map.HasEntry(2048));
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
  int mValue = 0;
};

TEST(SmartRef, CountingNilFormsAndSelfAssignment) {
  Ref<Node> nil, zero(0);
  EXPECT_FALSE(nil);
  EXPECT_TRUE(zero == 0);
  EXPECT_EXIT({ Ref<Node> bad(1); }, testing::ExitedWithCode(1), "");
  gLiveNodes = 0;
  {
    Ref<Node> a;
    a.BindNewObject(new Node);
    Ref<Node> b = a;
    b = b;
    EXPECT_EQ(a.Rep()->mRefCount, 2);
    a.Unbind();
    EXPECT_EQ(gLiveNodes, 1);
  }
  EXPECT_EQ(gLiveNodes, 0);
  Ref<Node> head;
  head.BindNewObject(new Node);
  head->mNext.BindNewObject(new Node);
  head->mNext->mValue = 9;
  head = head->mNext;  // the old head held the only other reference
  EXPECT_EQ(gLiveNodes, 1);
  EXPECT_EQ(head->mValue, 9);
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
  EXPECT_EQ(gLiveNodes, 10000);
  head.Unbind();
  EXPECT_EQ(gLiveNodes, 0);
  EXPECT_EQ(gMaxDepth, 1);
}

}  // namespace
