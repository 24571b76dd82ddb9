// Delegate objects: what they hold and release, and how they compare and
// test against a signature.
#include <gtest/gtest.h>

#include "Common/ObjectModel/RuntimeDelegates.h"
#include "Common/RuntimeStringFoundation.h"
#include "ObjectModelTestSupport.h"
#include "Universal/ustring.h"

namespace {

void FirstCode() {}
void SecondCode() {}
void* Code(void (*function)()) { return reinterpret_cast<void*>(function); }

TEST(RuntimeDelegatesTest, HoldTheirTargetAndSignatureUntilTheyGo) {
  RuntimeObject* target = RuntimeNewObject(TestClass());
  string signature("( Int32 ) as String");
  stringStorage* text = signature.GetStringStorage();
  int32_t textCount = text->mRefCount;
  int32_t objects = CountAllocatedObjects();
  RuntimeObject* d = RuntimeCreateDelegate(Code(FirstCode), Code(SecondCode),
                                           target, text);
  ASSERT_TRUE(d);
  EXPECT_EQ(1, d->refCount);
  EXPECT_EQ(2, target->refCount);
  EXPECT_EQ(textCount + 1, text->mRefCount);
  EXPECT_EQ(objects + 1, CountAllocatedObjects());
  EXPECT_EQ(1, RuntimeDelegateIsA(d, text));
  EXPECT_EQ(0, RuntimeDelegateIsA(d, string("()").GetStringStorage()));
  EXPECT_EQ(0, RuntimeDelegateIsA(target, text));  // an object, no delegate
  EXPECT_EQ(nullptr, RuntimeCheckDelegateCast(nullptr, text));
  EXPECT_EQ(d, RuntimeCheckDelegateCast(d, text));
  EXPECT_EQ(2, d->refCount);
  RuntimeUnlockObject(d);
  RuntimeUnlockObject(d);
  EXPECT_EQ(1, target->refCount);
  EXPECT_EQ(textCount, text->mRefCount);
  EXPECT_EQ(objects, CountAllocatedObjects());
  RuntimeUnlockObject(target);
}

// Equal: the same code on the same object, whatever stub and signature.
TEST(RuntimeDelegatesTest, CompareByFunctionAndTarget) {
  RuntimeObject* target = RuntimeNewObject(TestClass());
  RuntimeObject* a = RuntimeCreateDelegate(Code(FirstCode), Code(SecondCode),
                                           target, nullptr);
  RuntimeObject* b = RuntimeCreateDelegate(Code(SecondCode), Code(SecondCode),
                                           target, nullptr);
  RuntimeObject* unbound = RuntimeCreateDelegate(Code(FirstCode),
                                                 Code(SecondCode), nullptr,
                                                 nullptr);
  RuntimeObject* other = RuntimeCreateDelegate(Code(FirstCode),
                                               Code(FirstCode), target, nullptr);
  EXPECT_EQ(1, RuntimeCompareDelegates(a, b));
  EXPECT_EQ(0, RuntimeCompareDelegates(a, unbound));
  EXPECT_EQ(0, RuntimeCompareDelegates(a, other));
  EXPECT_EQ(0, RuntimeCompareDelegates(a, nullptr));
  EXPECT_EQ(1, RuntimeCompareDelegates(nullptr, nullptr));
  for (RuntimeObject* d : {a, b, unbound, other}) RuntimeUnlockObject(d);
  EXPECT_EQ(1, target->refCount);
  RuntimeUnlockObject(target);
}

}  // namespace
