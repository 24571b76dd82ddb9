// Sort: the run lengths and each element family.
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

}  // namespace
