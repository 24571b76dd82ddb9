// Type tests, casts and interface lookups.
#include <gtest/gtest.h>

#include "Common/ObjectModel/RuntimeExceptionFoundation.h"
#include "ObjectModelTestSupport.h"

namespace {

// The classes of the raises that reached the unhandled hook.
std::vector<RuntimeClass*> sRaised;
void RecordRaise(RuntimeObject* exception) {
  sRaised.push_back(RuntimeClassOf(exception));
}

// Two interfaces, the second inheriting the first; a class implementing
// the second, and a subclass of that class.
struct Hierarchy {
  Hierarchy() {
    first = TestInterface();
    second = TestInterface(first);
    other = TestInterface();
    base = RuntimeNewClass(nullptr, 0, 1, 0, 0, 0);
    base->instanceSize = sizeof(RuntimeObject);
    base->InterfaceEntries()[0] = {second, 0, &vtable};
    derived = TestClass(base, 1);
    unrelated = TestClass();
    object = RuntimeNewObject(derived);
    nilObject = TestClass(nullptr, 0, "NilObjectException");
    illegalCast = TestClass(nullptr, 0, "IllegalCastException");
    SetNilObjectExceptionClass(nilObject);
    SetIllegalCastExceptionClass(illegalCast);
    SetUnhandledExceptionHook(RecordRaise);
  }
  RuntimeClass *first, *second, *other, *base, *derived, *unrelated;
  RuntimeClass *nilObject, *illegalCast;
  RuntimeObject* object;
  int vtable = 0;
};

// The casts below raise; each is made with a frame chain that ends, so a
// raise reaches the hook.
Hierarchy* sHierarchy;
RuntimeObject* sCastResult;
void* sVtableResult;
RuntimeObject* sLookupObject;
RuntimeClass* sLookupInterface;
void CastToUnrelated() {
  sCastResult = RuntimeCheckCast(sHierarchy->object, sHierarchy->unrelated);
}
void Lookup() { sVtableResult = RuntimeLookupInterfaceVtable(sLookupObject, sLookupInterface); }

}  // namespace

TEST(RuntimeCheckCastTest, SuccessLocksNilPassesFailureRaises) {
  Hierarchy h;
  sHierarchy = &h;
  EXPECT_EQ(nullptr, RuntimeCheckCast(nullptr, h.base));
  EXPECT_EQ(h.object, RuntimeCheckCast(h.object, nullptr));
  EXPECT_EQ(1, h.object->refCount);
  EXPECT_EQ(h.object, RuntimeCheckCast(h.object, h.base));
  EXPECT_EQ(h.object, RuntimeCheckCast(h.object, h.first));
  EXPECT_EQ(3, h.object->refCount);
  EXPECT_TRUE(sRaised.empty());
  sCastResult = h.object;
  CallAtFrameChainEnd(CastToUnrelated);
  EXPECT_EQ(nullptr, sCastResult);
  EXPECT_EQ(std::vector<RuntimeClass*>{h.illegalCast}, sRaised);
  EXPECT_EQ(3, h.object->refCount);
}

TEST(RuntimeLookupInterfaceVtableTest, OnlyTheVeryInterfaceRecordAnswers) {
  Hierarchy h;
  sHierarchy = &h;
  EXPECT_EQ(&h.vtable, RuntimeLookupInterfaceVtable(h.object, h.second));
  EXPECT_TRUE(sRaised.empty());
  sLookupObject = h.object;
  for (RuntimeClass* wanted : {h.other, h.first, h.base}) {
    sVtableResult = &h;
    sLookupInterface = wanted;
    CallAtFrameChainEnd(Lookup);
    EXPECT_EQ(nullptr, sVtableResult);
  }
  sLookupObject = nullptr;
  sLookupInterface = h.second;
  CallAtFrameChainEnd(Lookup);
  EXPECT_EQ((std::vector<RuntimeClass*>{h.illegalCast, h.illegalCast,
                                        h.illegalCast, h.nilObject}),
            sRaised);
}
