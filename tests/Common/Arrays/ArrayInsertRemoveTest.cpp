// Insert's growth steps.
#include "ArrayTestSupport.h"

using namespace arraytest;

namespace {

class ArrayInsertRemoveTest : public ArrayTest {};

TEST_F(ArrayInsertRemoveTest, InsertGrowsBySteps) {
  RuntimeArrayObject* a = CreateArray(1, kSInt32, -1L);
  std::vector<int32_t> lengths;
  for (int k = 0; k < 50; k++) {
    Call<void>(a->methods->insert, a, (long)k, k);
    if (lengths.empty() || lengths.back() != a->shape.bufferLength)
      lengths.push_back(a->shape.bufferLength);
  }
  EXPECT_EQ((std::vector<int32_t>{16 * 4, 48 * 4, 112 * 4}), lengths);
  EXPECT_EQ(128, a->shape.growth);
  EXPECT_EQ(49, Ubound(a));
  EXPECT_EQ(49, Elements<int>(a)[49]) << "an insert at ubound + 1 appends";
  Call<void>(a->methods->redim, a, 2L);
  EXPECT_EQ(16, a->shape.growth);
  Call<void>(a->methods->insert, a, 1L, 99);
  EXPECT_EQ((std::vector<int>{0, 99, 1, 2}), Contents<int>(a));
  Call<void>(a->methods->insert, a, 0L, 98);
  EXPECT_EQ((std::vector<int>{98, 0, 99, 1, 2}), Contents<int>(a));
  RuntimeUnlockArray(&a->header);
}

// Past the largest fixed step the buffer grows with the array: a long run
// of appends moves each element a bounded number of times on average.
TEST_F(ArrayInsertRemoveTest, LongAppendsGrowGeometrically) {
  RuntimeArrayObject* a = CreateArray(1, kSInt32, -1L);
  long const count = 3000000;
  int steps = 0;
  long long moved = 0;
  for (long k = 0; k < count; k++) {
    int32_t before = a->shape.bufferLength;
    Call<void>(a->methods->insert, a, k, (int)k);
    if (a->shape.bufferLength != before) {
      steps++;
      moved += before;
    }
  }
  EXPECT_LE(steps, 24) << "about log2 of the count";
  EXPECT_LE(moved, 3LL * count * 4) << "bytes copied by the growth steps";
  EXPECT_EQ(count - 1, Elements<int>(a)[count - 1]);
  RuntimeUnlockArray(&a->header);
}

}  // namespace
