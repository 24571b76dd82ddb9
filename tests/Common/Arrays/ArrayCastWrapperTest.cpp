// Cast wrappers and arrays of structures.
#include "ArrayTestSupport.h"

using namespace arraytest;

namespace {

class ArrayCastWrapperTest : public ArrayTest {
 protected:
  void SetUp() override {
    ArrayTest::SetUp();
    mAnimal = NewClass();
    mDog = NewClass(mAnimal);
    mCat = NewClass(mAnimal);
  }
  RuntimeClass* mAnimal = nullptr;
  RuntimeClass* mDog = nullptr;
  RuntimeClass* mCat = nullptr;
};

TEST_F(ArrayCastWrapperTest, OnlyAClassMakesAWrapperAndNeverTwice) {
  EXPECT_EQ(nullptr, RuntimeCreateArrayCastWrapper(nullptr, mDog));
  RuntimeArrayObject* dogs = CreateArray(1, kObject, 1L);
  RuntimeObject* same = RuntimeCreateArrayCastWrapper(&dogs->header, nullptr);
  EXPECT_EQ(&dogs->header, same);
  EXPECT_EQ(2, dogs->header.refCount);
  RuntimeObject* wrapper = RuntimeCreateArrayCastWrapper(&dogs->header, mDog);
  EXPECT_NE(wrapper, &dogs->header);
  EXPECT_EQ(3, dogs->header.refCount) << "the wrapper holds the array";
  EXPECT_EQ(wrapper, RuntimeCreateArrayCastWrapper(wrapper, mAnimal));
  EXPECT_EQ(2, wrapper->refCount);
  RuntimeUnlockArray(wrapper);
  RuntimeUnlockArray(wrapper);
  EXPECT_EQ(2, dogs->header.refCount) << "a dying wrapper lets go of the array";
  RuntimeUnlockArray(same);
  RuntimeUnlockArray(&dogs->header);
}

TEST_F(ArrayCastWrapperTest, StoresAreCheckedAndTheRestForwarded) {
  RuntimeArrayObject* dogs = CreateArray(1, kObject, 1L);
  RuntimeArrayObject* w = reinterpret_cast<RuntimeArrayObject*>(
      RuntimeCreateArrayCastWrapper(&dogs->header, mDog));
  RuntimeObject* dog = RuntimeNewObject(mDog);
  RuntimeObject* cat = RuntimeNewObject(mCat);
  Call<void>(w->methods->set, w, cat, 0L);
  Call<void>(w->methods->setFast, w, cat, 0L);
  Call<void>(w->methods->insert, w, 0L, cat);
  EXPECT_EQ(Kinds({"cast", "cast", "cast"}), Raised());
  EXPECT_EQ(1, Ubound(w));
  Call<void>(w->methods->set, w, dog, 1L);
  Call<void>(w->methods->insert, w, 0L, (RuntimeObject*)nullptr);
  EXPECT_EQ(Kinds{}, Raised());
  EXPECT_EQ(2, Ubound(w));
  EXPECT_EQ(dog, Elements<RuntimeObject*>(dogs)[2]);
  EXPECT_EQ(2, Call<long>(w->methods->indexOf, w, dog, 0L));
  RuntimeObject* got = Call<RuntimeObject*>(w->methods->get, w, 2L);
  EXPECT_EQ(dog, got);
  RuntimeUnlockObject(got);
  w->methods->remove(w, 0);
  Call<void>(w->methods->redim, w, 3L);
  EXPECT_EQ(3, RuntimeUBound(&w->header));
  EXPECT_EQ(4, w->methods->elementSize(w));
  RuntimeUnlockArray(&w->header);
  RuntimeUnlockArray(&dogs->header);
  EXPECT_EQ(1, dog->refCount);
  RuntimeUnlockObject(dog);
  RuntimeUnlockObject(cat);
}

struct Point {
  int x, y, z;
};

TEST_F(ArrayCastWrapperTest, StructureArraysCopyWholeElements) {
  RuntimeStructureArray* s = RuntimeCreateStructureArray(2, sizeof(Point), 1L, 2L);
  RuntimeArrayObject* a = reinterpret_cast<RuntimeArrayObject*>(s);
  EXPECT_EQ(6 * 12, s->shape.bufferLength);
  Point p = {1, 2, 3};
  Call<void>(s->methods->set, s, &p, 1L, 2L);
  Point* at = Call<Point*>(s->methods->get, s, 1L, 2L);
  EXPECT_EQ(reinterpret_cast<Point*>(s->data) + 5, at);
  EXPECT_EQ(3, at->z);
  EXPECT_EQ(nullptr, Call<Point*>(s->methods->get, s, 2L, 0L));
  EXPECT_EQ(Kinds{"bounds"}, Raised());
  EXPECT_EQ(2, Ubound(a, 2));
  EXPECT_EQ(12, s->methods->elementSize(a));
  Call<void>(s->methods->redim, s, 2L, 2L);
  EXPECT_EQ(2, Call<Point*>(s->methods->get, s, 1L, 2L)->y);
  RuntimeUnlockArray(&s->header);
}

}  // namespace
