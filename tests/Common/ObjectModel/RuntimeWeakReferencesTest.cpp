// Weak references: clearing when either side dies.
#include <gtest/gtest.h>

#include "ObjectModelTestSupport.h"

namespace {

struct Weak {
  Weak() : refClass(TestClass(nullptr, 3)), targetClass(TestClass()) {}
  RuntimeObject* NewRef() { return RuntimeNewObject(refClass); }
  RuntimeObject* NewTarget() { return RuntimeNewObject(targetClass); }
  RuntimeClass* refClass;
  RuntimeClass* targetClass;
};

RuntimeObject* Target(RuntimeObject* ref) { return Field(ref, 2); }

}  // namespace

TEST(RuntimeWeakRefTest, EachDeathClearsOnlyItsOwnReferences) {
  Weak w;
  RuntimeObject* a = w.NewTarget();
  RuntimeObject* b = w.NewTarget();
  RuntimeObject* refs[4];
  for (RuntimeObject*& ref : refs) ref = w.NewRef();
  RegisterWeakRef(refs[0], a);
  RegisterWeakRef(refs[1], b);
  RegisterWeakRef(refs[2], a);
  RegisterWeakRef(refs[3], b);
  RegisterWeakRef(refs[3], a);  // moved, not linked twice
  UnregisterWeakRef(refs[2]);
  UnregisterWeakRef(refs[2]);
  EXPECT_EQ(nullptr, Target(refs[2]));
  RuntimeUnlockObject(a);
  EXPECT_EQ(nullptr, Target(refs[0]));
  EXPECT_EQ(nullptr, Target(refs[3]));
  EXPECT_EQ(b, Target(refs[1]));
  RuntimeUnlockObject(b);
  EXPECT_EQ(nullptr, Target(refs[1]));
}

TEST(RuntimeWeakRefTest, AReferenceThatDiesFirstLeavesTheList) {
  Weak w;
  RuntimeObject* target = w.NewTarget();
  RuntimeObject* first = w.NewRef();
  RuntimeObject* dying = w.NewRef();
  RuntimeObject* last = w.NewRef();
  RegisterWeakRef(first, target);
  RegisterWeakRef(dying, target);
  RegisterWeakRef(last, target);
  RuntimeUnlockObject(dying);
  w.NewRef();  // likely in the freed block, with its words zeroed
  RuntimeUnlockObject(target);
  EXPECT_EQ(nullptr, Target(first));
  EXPECT_EQ(nullptr, Target(last));
}
