// Allocation, reference counts and destruction of script objects.
#include <gtest/gtest.h>
#include <string.h>

#include <string>
#include <vector>

#include "Common/ObjectModel/RuntimeObjectFoundation.h"
#include "ObjectModelTestSupport.h"
#include "Universal/ustring.h"

namespace {

// What the hooks below saw, in order.
std::vector<std::string> sEvents;

void Note(RuntimeObject* object, char const* what) {
  sEvents.push_back(std::string(what) + ":" +
                    std::to_string(object->refCount));
}
void InitParent(RuntimeObject* o) { Note(o, "init parent"); }
void InitChild(RuntimeObject* o) { Note(o, "init child"); }
void DestroyParent(RuntimeObject* o) { Note(o, "destroy parent"); }
void DestroyChild(RuntimeObject* o) { Note(o, "destroy child"); }
void FinalParent(RuntimeObject* o) { Note(o, "final parent"); }
void FinalChild(RuntimeObject* o) { Note(o, "final child"); }
void Monitor(RuntimeObject* o) { Note(o, "monitor"); }
void ReleaseField(RuntimeObject* o) { RuntimeUnlockObject(Field(o, 0)); }

struct Family {
  Family() {
    parent = TestClass(nullptr, 1);
    parent->initializer = InitParent;
    parent->destructor = DestroyParent;
    parent->finalizer = FinalParent;
    child = TestClass(parent, 2);
    child->initializer = InitChild;
    child->destructor = DestroyChild;
    child->finalizer = FinalChild;
  }
  RuntimeClass* parent;
  RuntimeClass* child;
};

std::vector<RuntimeObject*> ActiveObjects() {
  std::vector<RuntimeObject*> objects;
  for (RuntimeObject* o = GetActiveObjectListHead(); o; o = o->next)
    objects.push_back(o);
  return objects;
}

}  // namespace

TEST(RuntimeNewObjectTest, TheHeaderAndTheInitializersParentsFirst) {
  Family family;
  family.parent->events.table = &family;  // any word will do
  RuntimeClass* grandchild = TestClass(family.child, 3);
  int32_t before = CountAllocatedObjects();
  RuntimeObject* older = RuntimeNewObject(family.parent);
  sEvents.clear();
  RuntimeObject* object = RuntimeNewObject(grandchild);
  EXPECT_EQ((std::vector<std::string>{"init parent:1", "init child:1"}),
            sEvents);
  EXPECT_EQ(grandchild, object->mClass);
  EXPECT_EQ(grandchild->methods.table, object->vtable);
  EXPECT_EQ(grandchild->events.table, object->events);
  EXPECT_EQ(1, object->refCount);
  EXPECT_EQ(nullptr, Field(object, 2));
  EXPECT_EQ(before + 2, CountAllocatedObjects());
  EXPECT_EQ((std::vector<RuntimeObject*>{object, older}), ActiveObjects());
  EXPECT_EQ(object, older->previous);
  EXPECT_EQ(nullptr, object->previous);
}

TEST(RuntimeDestroyTest, DestructorsThenFinalizersFromTheOwnClassUp) {
  Family family;
  SetObjectDestructionMonitor(Monitor);
  int32_t before = CountAllocatedObjects();
  RuntimeObject* object = RuntimeNewObject(family.child);
  sEvents.clear();
  RuntimeUnlockObject(object);
  EXPECT_EQ((std::vector<std::string>{"destroy child:1", "destroy parent:1",
                                      "final child:0", "final parent:0",
                                      "monitor:0"}),
            sEvents);
  EXPECT_EQ(before, CountAllocatedObjects());
  EXPECT_TRUE(ActiveObjects().empty());
}

TEST(RuntimeDestroyTest, AMillionChainedObjectsGoWithoutRecursion) {
  RuntimeClass* link = TestClass(nullptr, 1);
  link->finalizer = ReleaseField;
  int32_t before = CountAllocatedObjects();
  RuntimeObject* head = nullptr;
  for (int i = 0; i < 1000000; i++) {
    RuntimeObject* object = RuntimeNewObject(link);
    Field(object, 0) = head;
    head = object;
  }
  RuntimeUnlockObject(head);
  EXPECT_EQ(before, CountAllocatedObjects());
  EXPECT_EQ(nullptr, GetActiveObjectListHead());
}

