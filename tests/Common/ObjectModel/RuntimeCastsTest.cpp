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

TEST(RuntimeObjectIsaTest, ClassesAndInterfacesThroughTheirParents) {
  Hierarchy h;
  EXPECT_EQ(0, RuntimeObjectIsa(nullptr, nullptr));
  EXPECT_EQ(0, RuntimeObjectIsa(nullptr, h.base));
  EXPECT_EQ(1, RuntimeObjectIsa(h.object, nullptr));
  EXPECT_EQ(1, RuntimeObjectIsa(h.object, h.derived));
  EXPECT_EQ(1, RuntimeObjectIsa(h.object, h.base));
  EXPECT_EQ(0, RuntimeObjectIsa(h.object, h.unrelated));
  // The subclass inherited its parent's entry; the entry's interface
  // inherits the first.
  EXPECT_EQ(1, RuntimeObjectIsa(h.object, h.second));
  EXPECT_EQ(1, RuntimeObjectIsa(h.object, h.first));
  EXPECT_EQ(0, RuntimeObjectIsa(h.object, h.other));
  RuntimeObject* parentObject = RuntimeNewObject(h.base);
  EXPECT_EQ(0, RuntimeObjectIsa(parentObject, h.derived));
  EXPECT_EQ(h.base, RuntimeClassOf(parentObject));
  EXPECT_EQ(nullptr, RuntimeClassOf(nullptr));
}

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

TEST(RuntimeCheckCastTest, AnAutomationObjectIsTakenOnTrust) {
  Hierarchy h;
  sHierarchy = &h;
  RuntimeClass* automation = TestClass(nullptr, 0, "OLEObject");
  RuntimeClass* sameName = TestClass(nullptr, 0, "oleobject");
  RuntimeClass* application = TestClass(sameName, 0, "Application");
  RuntimeObject* general = RuntimeNewObject(automation);
  EXPECT_EQ(general, RuntimeCheckCast(general, application));
  EXPECT_EQ(2, general->refCount);
  // Only a class derived from the automation base is trusted.
  h.object = general;
  CallAtFrameChainEnd(CastToUnrelated);
  EXPECT_EQ(std::vector<RuntimeClass*>{h.illegalCast}, sRaised);
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
