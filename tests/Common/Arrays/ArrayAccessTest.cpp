// Get and Set in their three shapes, the calling conventions of the wide
// element types, and the references that counted elements hold.
#include "ArrayTestSupport.h"

using namespace arraytest;

namespace {

class ArrayAccessTest : public ArrayTest {};

TEST_F(ArrayAccessTest, CheckedFormsRaiseAndAnswerZero) {
  RuntimeArrayObject* line = CreateArray(1, kSInt32, 2L);
  Call<void>(line->methods->set, line, 42, 2L);
  EXPECT_EQ(42, Call<int>(line->methods->get, line, 2L));
  EXPECT_EQ(Kinds{}, Raised());
  EXPECT_EQ(0, Call<int>(line->methods->get, line, 3L));
  EXPECT_EQ(0, Call<int>(line->methods->get, line, -1L));
  Call<void>(line->methods->set, line, 9, 3L);
  EXPECT_EQ(Kinds({"bounds", "bounds", "bounds"}), Raised());
  RuntimeArrayObject* plane = CreateArray(2, kSInt32, 2L, 1L);
  Call<void>(plane->methods->set, plane, 7, 1L, 1L);
  EXPECT_EQ(7, Elements<int>(plane)[4]) << "(u0 + 1) * j + i";
  EXPECT_EQ(0, Call<int>(plane->methods->get, plane, 1L, 2L));
  EXPECT_EQ(0, Call<int>(plane->methods->get, plane, 3L, 0L));
  EXPECT_EQ(Kinds({"bounds", "bounds"}), Raised());
  RuntimeArrayObject* cube = CreateArray(3, kSInt32, 1L, 2L, 3L);
  Call<void>(cube->methods->set, cube, 5, 1L, 2L, 3L);
  EXPECT_EQ(5, Elements<int>(cube)[23]);
  EXPECT_EQ(5, Call<int>(cube->methods->getFast, cube, 1L, 2L, 3L));
  EXPECT_EQ(0, Call<int>(cube->methods->get, cube, 1L, 3L, 0L));
  EXPECT_EQ(Kinds{"bounds"}, Raised());
  for (RuntimeArrayObject* a : {line, plane, cube}) RuntimeUnlockArray(&a->header);
}

TEST_F(ArrayAccessTest, WideAndNarrowValuesTravelByValue) {
  RuntimeArrayObject* d = CreateArray(1, kDouble, 1L);
  Call<void>(d->methods->set, d, 2.5, 1L);
  EXPECT_EQ(2.5, Call<double>(d->methods->get, d, 1L));
  RuntimeArrayObject* f = CreateArray(3, kSingle, 0L, 0L, 1L);
  Call<void>(f->methods->setFast, f, 1.25f, 0L, 0L, 1L);
  EXPECT_EQ(1.25f, Call<float>(f->methods->get, f, 0L, 0L, 1L));
  RuntimeArrayObject* q = CreateArray(2, kSInt64, 0L, 1L);
  long long big = -0x123456789ALL;
  Call<void>(q->methods->set, q, big, 0L, 1L);
  EXPECT_EQ(big, Call<long long>(q->methods->getFast, q, 0L, 1L));
  RuntimeArrayObject* b = CreateArray(1, kSInt8, 0L);
  Call<void>(b->methods->set, b, (signed char)-3, 0L);
  EXPECT_EQ(-3, Call<signed char>(b->methods->get, b, 0L));
  for (RuntimeArrayObject* a : {d, f, q, b}) RuntimeUnlockArray(&a->header);
}

TEST_F(ArrayAccessTest, CountedElementsHoldReferences) {
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
