// Sort, SortWith, IndexOf and Shuffle.
#include <algorithm>
#include <random>

#include "ArrayTestSupport.h"

using namespace arraytest;

namespace {

class ArraySortTest : public ArrayTest {};

template <class T>
RuntimeArrayObject* ArrayOf(long code, std::vector<T> const& values) {
  RuntimeArrayObject* a = CreateArray(1, code, (long)values.size() - 1);
  std::copy(values.begin(), values.end(), Elements<T>(a));
  return a;
}

template <class T>
void ExpectSorts(long code, std::vector<T> values) {
  RuntimeArrayObject* a = ArrayOf(code, values);
  a->methods->sort(a);
  std::sort(values.begin(), values.end());
  EXPECT_EQ(values, Contents<T>(a)) << values.size() << " elements, code " << code;
  RuntimeUnlockArray(&a->header);
}

TEST_F(ArraySortTest, EveryRunLengthAndDuplicates) {
  std::mt19937 random(7);
  for (size_t n : {0, 1, 2, 15, 16, 17, 18, 33, 100, 1000}) {
    std::vector<int> values(n), few(n);
    for (size_t k = 0; k < n; k++) values[k] = (int)(random() % 2000000000u) - 1000000000;
    for (size_t k = 0; k < n; k++) few[k] = random() % 3;
    ExpectSorts<int>(kSInt32, values);
    ExpectSorts<int>(kSInt32, few);
  }
  std::vector<int> descending(200);
  for (int k = 0; k < 200; k++) descending[k] = 200 - k;
  ExpectSorts<int>(kSInt32, descending);
}

TEST_F(ArraySortTest, EachFamilyUsesItsOwnOrder) {
  ExpectSorts<unsigned>(kUInt32, {0x80000000u, 1u, 0xFFFFFFFFu, 7u});
  ExpectSorts<signed char>(kSInt8, {5, -128, 127, -1, 0});
  ExpectSorts<unsigned char>(kUInt8, {200, 3, 255, 0});
  ExpectSorts<unsigned long long>(kUInt64, {1ull << 63, 2, 0, ~0ull});
  ExpectSorts<long long>(kSInt64, {1ll << 40, -(1ll << 40), 0});
  ExpectSorts<double>(kDouble, {2.5, -1e300, 0.0, 1.0, -0.5});
  ExpectSorts<float>(kSingle, {2.5f, -3.0f, 1.0f});
}

TEST_F(ArraySortTest, StringsSortWithoutRegardToCase) {
  std::vector<char const*> words = {"pear", "Apple", "banana", "apricot", "BANANA", "cherry"};
  std::vector<stringStorage*> texts;
  for (char const* w : words) texts.push_back(Text(w));
  RuntimeArrayObject* a = ArrayOf<stringStorage*>(kString, texts);
  a->methods->sort(a);
  std::vector<std::string> sorted;
  for (stringStorage* s : Contents<stringStorage*>(a)) sorted.push_back(Std(s));
  EXPECT_EQ("Apple", sorted[0]);
  EXPECT_EQ("apricot", sorted[1]);
  EXPECT_EQ("cherry", sorted[4]);
  EXPECT_EQ("pear", sorted[5]);
  EXPECT_EQ(1, texts[0]->mRefCount) << "sorting moves, it does not lock";
  RuntimeUnlockArray(&a->header);  // the array owned the references
}

TEST_F(ArraySortTest, SortWithMovesThePartnersAlong) {
  RuntimeArrayObject* keys = ArrayOf<int>(kSInt32, {3, 1, 2, 1, 0});
  RuntimeArrayObject* bytes = ArrayOf<unsigned char>(kUInt8, {'d', 'b', 'c', 'B', 'a'});
  RuntimeArrayObject* wide = ArrayOf<double>(kDouble, {3.5, 1.5, 2.5, 1.5, 0.5});
  keys->methods->sortWith(keys, bytes, wide, nullptr);
  EXPECT_EQ((std::vector<int>{0, 1, 1, 2, 3}), Contents<int>(keys));
  std::vector<unsigned char> letters = Contents<unsigned char>(bytes);
  EXPECT_EQ("a", std::string(letters.begin(), letters.begin() + 1));
  EXPECT_EQ("cd", std::string(letters.begin() + 3, letters.end()));
  EXPECT_EQ('b' ^ 'B', letters[1] ^ letters[2]) << "the equal keys keep their partners";
  EXPECT_EQ((std::vector<double>{0.5, 1.5, 1.5, 2.5, 3.5}), Contents<double>(wide));
  for (RuntimeArrayObject* a : {keys, bytes, wide}) RuntimeUnlockArray(&a->header);
}

TEST_F(ArraySortTest, IndexOfSearchesFromTheStart) {
  RuntimeArrayObject* a = ArrayOf<int>(kSInt32, {4, 5, 4, 6});
  auto indexOf = [&](int value, long start) {
    return Call<long>(a->methods->indexOf, a, value, start);
  };
  EXPECT_EQ(0, indexOf(4, -1));
  EXPECT_EQ(2, indexOf(4, 1));
  EXPECT_EQ(-1, indexOf(5, 2));
  EXPECT_EQ(Kinds{}, Raised());
  EXPECT_EQ(-1, indexOf(4, 4));
  EXPECT_EQ(-1, indexOf(4, -2));
  EXPECT_EQ(Kinds({"bounds", "bounds"}), Raised());
  stringStorage* key = Text("KEY");
  RuntimeArrayObject* s = ArrayOf<stringStorage*>(kString, {Text("x"), Text("key")});
  EXPECT_EQ(1, Call<long>(s->methods->indexOf, s, key, 0L));
  RuntimeArrayObject* empty = CreateArray(1, kDouble, -1L);
  EXPECT_EQ(-1, Call<long>(empty->methods->indexOf, empty, 1.0, 5L));
  EXPECT_EQ(Kinds{}, Raised()) << "an empty array answers before the start is checked";
  RuntimeUnlockString(key);
  for (RuntimeArrayObject* x : {a, s, empty}) RuntimeUnlockArray(&x->header);
}

}  // namespace
