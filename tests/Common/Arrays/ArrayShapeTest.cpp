// The layout, the choice of tables, and the references elements hold.
#include <stddef.h>

#include "ArrayTestSupport.h"

using namespace arraytest;

namespace {

class ArrayShapeTest : public ArrayTest {};

TEST_F(ArrayShapeTest, TheLayoutGeneratedCodeReads) {
  EXPECT_EQ(24u, offsetof(RuntimeArrayObject, methods));
  EXPECT_EQ(28u, offsetof(RuntimeArrayObject, data));
  EXPECT_EQ(32u, offsetof(RuntimeArrayObject, shape));
  EXPECT_EQ(32u, offsetof(RuntimeStructureArray, elementSize));
  EXPECT_EQ(36u, offsetof(RuntimeStructureArray, shape));
  EXPECT_EQ(32u, offsetof(RuntimeArrayCastWrapper, array));
  EXPECT_EQ(44u, offsetof(RuntimeArrayMethods, ubound));
  EXPECT_EQ(56u, offsetof(RuntimeArrayMethods, destructor));
  RuntimeArrayObject* a = CreateArray(3, kDouble, 2L, 3L, 1L);
  EXPECT_EQ(3 * 4 * 2 * 8, a->shape.bufferLength);
  int32_t const* words = reinterpret_cast<int32_t const*>(a);
  EXPECT_EQ(3, words[8]);
  EXPECT_EQ((std::vector<int32_t>{2, 3, 1}),
            std::vector<int32_t>(words + 11, words + 14));
  for (int k = 0; k < 24; k++) EXPECT_EQ(0.0, Elements<double>(a)[k]);
  RuntimeUnlockArray(&a->header);
}

TEST_F(ArrayShapeTest, EachShapeHasItsTable) {
  struct { long dims; bool hasInsert; } rows[] = {{1, true}, {2, false}, {3, false}};
  for (long code = kSInt32; code <= kSInt64; code++) {
    for (auto row : rows) {
      RuntimeArrayMethods const* table = ChooseAccessorTable(row.dims, code);
      EXPECT_EQ(row.hasInsert, table->insert != nullptr) << code;
      EXPECT_EQ(row.hasInsert, table->indexOf != nullptr) << code;
      bool sorts = row.hasInsert && code != kObject;
      EXPECT_EQ(sorts, table->sort != nullptr) << code << " " << row.dims;
      EXPECT_NE(nullptr, table->shuffle);
      EXPECT_EQ(code == kString || code == kObject, table->unlockElement != nullptr);
    }
  }
  long sizes[] = {4, 4, 8, 4, 4, 1, 1, 2, 2, 4, 8, 8};
  for (long code = 0; code < 12; code++) EXPECT_EQ(sizes[code], ElementSize(code));
  EXPECT_EXIT(ElementSize(12), testing::ExitedWithCode(1), "");
}

TEST_F(ArrayShapeTest, RedimReleasesTheElementsItDrops) {
  stringStorage* s = Text("kept");
  RuntimeArrayObject* line = CreateArray(1, kString, 3L);
  RuntimeArrayObject* cube = CreateArray(3, kString, 1L, 1L, 1L);
  Call<void>(line->methods->set, line, s, 3L);
  Call<void>(cube->methods->set, cube, s, 1L, 0L, 1L);
  Call<void>(cube->methods->set, cube, s, 0L, 1L, 0L);
  EXPECT_EQ(4, s->mRefCount);
  Call<void>(line->methods->redim, line, 2L);
  Call<void>(cube->methods->redim, cube, 0L, 1L, 1L);
  EXPECT_EQ(2, s->mRefCount) << "(1, 0, 1) and line(3) went";
  EXPECT_EQ(s, Elements<stringStorage*>(cube)[1 + 2 * 0]);
  RuntimeUnlockArray(&cube->header);
  RuntimeUnlockArray(&line->header);
  EXPECT_EQ(1, s->mRefCount);
  RuntimeUnlockString(s);
}

TEST_F(ArrayShapeTest, CountedElementsHoldReferences) {
  stringStorage* s = Text("one");
  stringStorage* t = Text("two");
  RuntimeArrayObject* a = CreateArray(2, kString, 1L, 0L);
  Call<void>(a->methods->set, a, s, 0L, 0L);
  Call<void>(a->methods->set, a, s, 1L, 0L);
  Call<void>(a->methods->set, a, s, 1L, 0L);
  EXPECT_EQ(3, s->mRefCount) << "storing over itself keeps one reference";
  stringStorage* got = Call<stringStorage*>(a->methods->getFast, a, 0L, 0L);
  EXPECT_EQ(4, s->mRefCount) << "the caller owns what Get hands out";
  RuntimeUnlockString(got);
  Call<void>(a->methods->setFast, a, t, 1L, 0L);
  EXPECT_EQ(2, s->mRefCount);
  EXPECT_EQ(2, t->mRefCount);
  RuntimeUnlockArray(&a->header);
  EXPECT_EQ(1, s->mRefCount) << "the dying array releases its elements";
  EXPECT_EQ(1, t->mRefCount);
  RuntimeUnlockString(s);
  RuntimeUnlockString(t);
}

}  // namespace
