// Birth and death of script objects, and the list of the living.
//
// Destruction never recurses: a finalizer that releases the last reference
// to another object only queues it, and the outermost destruction frees the
// queue. A long chain of objects therefore needs no deep stack.
#include "Common/ObjectModel/RuntimeObjectLifecycle.h"

#include <string.h>

#include <new>

#include "Common/ObjectModel/RuntimeExceptionFoundation.h"
#include "Common/ObjectModel/RuntimeWeakReferences.h"
#include "Common/RuntimeStringFoundation.h"
#include "Universal/Assertion.h"
#include "Universal/SimpleVector.h"

namespace {

// Every live object, newest first. Changed by allocation, registration of
// arrays and destruction; the objects own themselves. Scripts that share
// no objects run on threads of their own, each with its own list.
thread_local RuntimeObject* sActiveObjectList;
// Objects made less objects freed: a hint for the host side.
thread_local int32_t sCurrentObjectCount;
// Set by the host side at any time; told of each object before it goes.
RuntimeObjectHook sObjectDestructionMonitor;
// Objects whose count reached 0 while another destruction was running;
// emptied by the outermost one. Lives as long as the process.
struct PendingDestruction {
  SimpleVector<RuntimeObject*> objects;
  ~PendingDestruction() {}
};
thread_local PendingDestruction sPending;
// True while the outermost DestroyInstance frees objects.
thread_local bool sDestructionRunning;

void LinkActiveObject(RuntimeObject* object) {
  object->previous = nullptr;
  object->next = sActiveObjectList;
  if (sActiveObjectList) sActiveObjectList->previous = object;
  sActiveObjectList = object;
}

void UnlinkActiveObject(RuntimeObject* object) {
  if (object->previous)
    object->previous->next = object->next;
  else if (sActiveObjectList == object)
    sActiveObjectList = object->next;
  if (object->next) object->next->previous = object->previous;
}

// Parents' fields first, so that a class's initializer may rely on them.
void InitNewObject(RuntimeClass* cls, RuntimeObject* object) {
  if (cls->base) InitNewObject(cls->base, object);
  if (cls->initializer) cls->initializer(object);
}

// An object whose handlers were changed carries its own copy of the event
// table, whose name words hold string references.
void ReleasePrivateEventTable(RuntimeObject* object) {
  RuntimeClass* cls = object->mClass;
  if (!object->events || !cls || object->events == cls->events.table) return;
  stringStorage** entries = static_cast<stringStorage**>(object->events);
  for (int32_t i = 0; i < cls->events.count; i++)
    RuntimeUnlockString(entries[2 * i + 1]);
  delete[] static_cast<unsigned char*>(object->events);
  object->events = nullptr;
}

// Runs the destructors from the object's own class up. Answers false when
// one of them kept a reference: the object lives on, and the parents'
// destructors are not called.
bool RunDestructors(RuntimeObject* object) {
  for (RuntimeClass* cls = object->mClass; cls; cls = cls->base) {
    if (!cls->destructor) continue;
    cls->destructor(object);
    if (object->refCount > 1) return false;
  }
  return true;
}

}  // namespace

RuntimeObject* RuntimeNewObject(RuntimeClass* cls) {
  if (!cls) {
    RaiseNilObjectException();
    return nullptr;
  }
  QASSERT_TEXT(!cls->isAnInterface, "!parent->isAnInterface");
  QASSERT(cls->instanceSize >= static_cast<int32_t>(sizeof(RuntimeObject)));
  unsigned char* block = new (std::nothrow) unsigned char[cls->instanceSize];
  if (!block) {
    RaiseNilObjectException();
    return nullptr;
  }
  sCurrentObjectCount++;
  memset(block, 0, cls->instanceSize);
  RuntimeObject* object = reinterpret_cast<RuntimeObject*>(block);
  LinkActiveObject(object);
  object->mClass = cls;
  object->vtable = cls->methods.table;
  object->events = cls->events.table;
  object->refCount = 1;
  InitNewObject(cls, object);
  return object;
}

void RegisterNewArrayInstance(RuntimeObject* array) {
  QASSERT_TEXT(array, "it");
  sCurrentObjectCount++;
  LinkActiveObject(array);
}

// The count is held at 1 while the destructors run, so that their own
// locks and unlocks of `self` cannot start a second destruction.
void DestroyInstance(RuntimeObject* object) {
  object->refCount++;
  bool resurrected = !RunDestructors(object);
  object->refCount--;
  if (resurrected) return;
  if (sDestructionRunning) {
    sPending.objects.push_back(object);
    return;
  }
  sDestructionRunning = true;
  Destroy1Instance(object);
  while (sPending.objects.size() > 0)
    Destroy1Instance(sPending.objects.pop_back());
  sDestructionRunning = false;
}

void Destroy1Instance(RuntimeObject* object) {
  for (RuntimeClass* cls = object->mClass; cls; cls = cls->base)
    if (cls->finalizer) cls->finalizer(object);
  if (sObjectDestructionMonitor) sObjectDestructionMonitor(object);
  ForgetWeakReferencesOf(object);
  ReleasePrivateEventTable(object);
  UnlinkActiveObject(object);
  delete[] reinterpret_cast<unsigned char*>(object);
  sCurrentObjectCount--;
}

RuntimeObject* GetActiveObjectListHead() { return sActiveObjectList; }

int32_t CountAllocatedObjects() { return sCurrentObjectCount; }

void SetObjectDestructionMonitor(RuntimeObjectHook monitor) {
  sObjectDestructionMonitor = monitor;
}
