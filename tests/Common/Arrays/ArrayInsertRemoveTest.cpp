// Insert's growth steps and Remove's shrinking to fit.
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

TEST_F(ArrayInsertRemoveTest, OutOfRangeAndNilRaise) {
  RuntimeArrayObject* a = CreateArray(1, kSInt32, 1L);
  Call<void>(a->methods->insert, a, 3L, 5);
  Call<void>(a->methods->insert, a, -1L, 5);
  a->methods->remove(a, 2);
  EXPECT_EQ(Kinds({"bounds", "bounds", "bounds"}), Raised());
  EXPECT_EQ(1, Ubound(a));
  Call<void>(a->methods->insert, (RuntimeArrayObject*)nullptr, 0L, 5);
  EXPECT_EQ(Kinds{"nil"}, Raised());
  RuntimeUnlockArray(&a->header);
}

TEST_F(ArrayInsertRemoveTest, RemoveShrinksToFit) {
  RuntimeArrayObject* a = CreateArray(1, kSInt32, -1L);
  for (int k = 0; k < 3; k++) Call<void>(a->methods->insert, a, (long)k, k);
  a->methods->remove(a, 1);
  EXPECT_EQ((std::vector<int>{0, 2}), Contents<int>(a));
  EXPECT_EQ(8, a->shape.bufferLength);
  EXPECT_EQ(16, a->shape.growth);
  a->methods->remove(a, 1);
  a->methods->remove(a, 0);
  EXPECT_EQ(nullptr, a->data);
  EXPECT_EQ(-1, Ubound(a));
  EXPECT_EQ(0, a->shape.bufferLength);
  Call<void>(a->methods->insert, a, 0L, 4);
  EXPECT_EQ(std::vector<int>{4}, Contents<int>(a));
  RuntimeUnlockArray(&a->header);
}

}  // namespace
