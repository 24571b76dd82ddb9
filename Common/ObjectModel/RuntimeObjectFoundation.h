// The object header that generated code and the runtime share.
//
// MINIMAL FOR NOW: only what raising exceptions needs. The header's layout
// is final (generated code reads the vtable at offset 0 and instance data
// start at offset 24), and locking counts as it should; allocation, class
// records, destruction at a count of 0, casts, weak references and
// delegates come with the object model, which completes this file.
#ifndef COMMON_OBJECTMODEL_RUNTIMEOBJECTFOUNDATION_H
#define COMMON_OBJECTMODEL_RUNTIMEOBJECTFOUNDATION_H

#include <stdint.h>

struct RuntimeClass;

struct RuntimeObject {
  void* vtable;            // the class's method table
  RuntimeClass* mClass;    // never changes
  void* events;            // the class's event table, or a private copy
  int32_t refCount;        // starts at 1
  RuntimeObject* previous; // in the list of live objects
  RuntimeObject* next;
};
static_assert(sizeof(RuntimeObject) == 24 || sizeof(void*) != 4,
              "instance data start at offset 24");

extern "C" {
// One more reference, unless the object is nil or already being destroyed
// (count 0).
void RuntimeLockObject(RuntimeObject* object);
// One reference less, unless nil or at 0 already.
void RuntimeUnlockObject(RuntimeObject* object);
}

#endif
