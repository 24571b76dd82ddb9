// StringMap: order, resizing, case rules and iteration under deletion.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "Universal/stringmap.h"

namespace {

string Key(int i) { return string(("key" + std::to_string(i)).c_str()); }

template <class T>
std::vector<std::string> KeysInOrder(StringMap<T>& map) {
  std::vector<std::string> keys;
  StringMapIterator<T>* it = map.NewIterator();
  while (it->Next()) keys.push_back(it->Key().CString());
  delete it;
  return keys;
}

int gIteratorsDestroyed = 0;

class CountingIterator : public StringMapIterator<int> {
 public:
  explicit CountingIterator(StringMap<int>* map)
      : StringMapIterator<int>(map) {}
  ~CountingIterator() override { gIteratorsDestroyed++; }
};

}  // namespace

TEST(StringMap, Resizes192Then193) {
  StringMap<int> map;
  for (int i = 0; i < 192; i++) map.AddEntry(Key(i), i);
  EXPECT_EQ(map.BinCount(), 256u);
  EXPECT_EQ(map.Count(), 192u);
  map.AddEntry(Key(192), 192);
  EXPECT_EQ(map.BinCount(), 512u);
  for (int i = 0; i <= 192; i++) {
    int value = -1;
    ASSERT_TRUE(map.GetEntry(Key(i), value));
    EXPECT_EQ(value, i);
  }
}

TEST(StringMap, OrderSurvivesResizeAndDelete) {
  StringMap<int> map;
  for (int i = 0; i < 300; i++) map.AddEntry(Key(i), i);
  map.DeleteEntry(Key(0));
  map.DeleteEntry(Key(150));
  map.DeleteEntry(Key(299));
  map.AddEntry(Key(1000), 1000);
  std::vector<std::string> keys = KeysInOrder(map);
  ASSERT_EQ(keys.size(), 298u);
  EXPECT_EQ(keys.front(), "key1");
  EXPECT_EQ(keys[148], "key149");
  EXPECT_EQ(keys[149], "key151");
  EXPECT_EQ(keys[296], "key298");
  EXPECT_EQ(keys.back(), "key1000");
}

TEST(StringMap, ReplacingAValueKeepsItsPlace) {
  StringMap<int> map;
  map.AddEntry("a", 1);
  map.AddEntry("b", 2);
  map.AddEntry("c", 3);
  map.AddEntry("A", 10);
  EXPECT_EQ(map.Count(), 3u);
  EXPECT_EQ(KeysInOrder(map), (std::vector<std::string>{"a", "b", "c"}));
  int value = 0;
  map.GetEntry("a", value);
  EXPECT_EQ(value, 10);
}

TEST(StringMap, CaseInsensitiveVersusCaseSensitive) {
  StringMap<int> folding;
  folding.AddEntry("Name", 1);
  folding.AddEntry("NAME", 2);
  EXPECT_EQ(folding.Count(), 1u);
  EXPECT_TRUE(folding.HasEntry("name"));

  StringMapCase<int> exact;
  exact.AddEntry("Name", 1);
  exact.AddEntry("NAME", 2);
  EXPECT_EQ(exact.Count(), 2u);
  EXPECT_FALSE(exact.HasEntry("name"));
  int value = 0;
  EXPECT_TRUE(exact.GetEntry("NAME", value));
  EXPECT_EQ(value, 2);
}

TEST(StringMap, HashFoldsOnlyAsciiLetters) {
  StringMap<int> map;
  StringMapCase<int> exact;
  EXPECT_EQ(map.hashString("abc"), map.hashString("ABC"));
  EXPECT_NE(exact.hashString("abc"), exact.hashString("ABC"));
  EXPECT_EQ(map.hashString("A"), 65u);
  EXPECT_EQ(map.hashString("AB"), 65u * 31 + 66);
  // Bytes above 127 enter as negative values.
  EXPECT_EQ(map.hashString(string("\xFF")), 0xFFFFFFFFu);
}

TEST(StringMap, KeysAreStoredAsUTF8) {
  StringMap<int> map;
  string latin("caf\xE9");
  latin.SetEncoding(513);
  map.AddEntry(latin, 7);
  string utf8("caf\xC3\xA9");
  utf8.SetEncoding(kEncodingUTF8);
  EXPECT_TRUE(map.HasEntry(utf8));
  std::vector<std::string> keys = KeysInOrder(map);
  EXPECT_EQ(keys[0], "caf\xC3\xA9");
}

TEST(StringMap, MissingKeysAndEmptyMap) {
  StringMap<int> map;
  int value = 5;
  EXPECT_FALSE(map.HasEntry("x"));
  EXPECT_FALSE(map.GetEntry("x", value));
  EXPECT_FALSE(map.DeleteEntry("x"));
  EXPECT_EQ(value, 5);
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
  EXPECT_EQ(KeysInOrder(map),
            (std::vector<std::string>{"key1", "key3", "key5"}));
}

TEST(StringMapIterator, DeleteEntryMovesStartedIterators) {
  StringMap<int> map;
  for (int i = 0; i < 3; i++) map.AddEntry(Key(i), i);
  StringMapIterator<int>* it = map.NewIterator();
  ASSERT_TRUE(it->Next());
  map.DeleteEntry(Key(0));
  EXPECT_EQ(it->Key().Length(), 0u);  // moved on, not started
  int value;
  ASSERT_TRUE(it->Next(value));
  EXPECT_EQ(value, 1);
  // An iterator not yet started is moved off a deleted head as well.
  StringMapIterator<int>* fresh = map.NewIterator();
  map.DeleteEntry(Key(1));
  ASSERT_TRUE(fresh->Next(value));
  EXPECT_EQ(value, 2);
  delete fresh;
  delete it;
}

TEST(StringMapIterator, KeyAndValueOnlyWhileOnAnEntry) {
  StringMap<int> map;
  map.AddEntry("only", 1);
  StringMapIterator<int>* it = map.NewIterator();
  int value = 0;
  EXPECT_EQ(it->Key().Length(), 0u);
  EXPECT_FALSE(it->Value(value));
  ASSERT_TRUE(it->Next());
  EXPECT_STREQ(it->Key().CString(), "only");
  EXPECT_TRUE(it->Value(value));
  EXPECT_EQ(value, 1);
  EXPECT_FALSE(it->Next());
  EXPECT_EQ(it->Key().Length(), 0u);
  delete it;
}

TEST(StringMapIterator, DestroyingTheMapDeletesLiveIterators) {
  gIteratorsDestroyed = 0;
  {
    StringMap<int> map;
    map.AddEntry("a", 1);
    new CountingIterator(&map);
    new CountingIterator(&map);
  }
  EXPECT_EQ(gIteratorsDestroyed, 2);
}

TEST(StringMapIterator, DeleteAllWithLiveIteratorAsserts) {
  StringMap<int> map;
  map.AddEntry("a", 1);
  map.NewIterator();
  EXPECT_EXIT(map.DeleteAll(), testing::ExitedWithCode(1), "");
}

TEST(StringMap, DeleteAllKeepsBins) {
  StringMap<int> map;
  for (int i = 0; i < 200; i++) map.AddEntry(Key(i), i);
  map.DeleteAll();
  EXPECT_EQ(map.Count(), 0u);
  EXPECT_EQ(map.BinCount(), 512u);
  EXPECT_FALSE(map.HasEntry(Key(3)));
  map.AddEntry("again", 1);
  EXPECT_EQ(KeysInOrder(map), (std::vector<std::string>{"again"}));
}

TEST(StringMap, CopiesAreDeepAndKeepOrder) {
  StringMapCase<int> original;
  original.AddEntry("b", 1);
  original.AddEntry("B", 2);
  original.AddEntry("a", 3);
  StringMapCase<int> copy(original);
  original.DeleteEntry("b");
  EXPECT_EQ(KeysInOrder(copy), (std::vector<std::string>{"b", "B", "a"}));
  int value = 0;
  EXPECT_TRUE(copy.GetEntry("B", value));
  EXPECT_EQ(value, 2);
  StringMap<int> folded;
  folded.AddEntry("x", 1);
  StringMap<int> assigned;
  assigned = folded;
  EXPECT_TRUE(assigned.HasEntry("X"));
}

namespace {

bool CollectUntilStop(string key, int value, long refCon) {
  std::vector<int>* seen = reinterpret_cast<std::vector<int>*>(refCon);
  seen->push_back(value);
  return value != 3;
}

}  // namespace

TEST(StringMap, IterateStopsWhenAskedTo) {
  StringMap<int> map;
  for (int i = 0; i < 6; i++) map.AddEntry(Key(i), i);
  std::vector<int> seen;
  map.Iterate(CollectUntilStop, reinterpret_cast<long>(&seen));
  EXPECT_EQ(seen, (std::vector<int>{0, 1, 2, 3}));
}

TEST(StringSet, AddContainsRemoveIterate) {
  StringSet set;
  set.Add("One");
  set.Add("two");
  set.Add("ONE");
  EXPECT_EQ(set.Count(), 2u);
  EXPECT_TRUE(set.Contains("one"));
  set.Remove("TWO");
  EXPECT_FALSE(set.Contains("two"));
  set.Add("three");
  StringSetIterator* it = set.NewIterator();
  std::vector<std::string> names;
  string name;
  while (it->Next(name)) names.push_back(name.CString());
  delete it;
  EXPECT_EQ(names, (std::vector<std::string>{"One", "three"}));
  set.Clear();
  EXPECT_EQ(set.Count(), 0u);
}
