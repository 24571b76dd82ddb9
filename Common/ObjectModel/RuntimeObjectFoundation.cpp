// Reference counts of script objects. These are the hottest calls of a
// running script: each is a null test, a count test and an addition.
#include "Common/ObjectModel/RuntimeObjectFoundation.h"

#include "Common/ObjectModel/RuntimeObjectLifecycle.h"

// A count of 0 means the object is being destroyed: a lock must not bring
// it back, or its memory would be freed under the new holder.
namespace {

inline void Lock(RuntimeObject* object) {
  if (object && object->refCount != 0) object->refCount++;
}

inline void Unlock(RuntimeObject* object) {
  if (object && object->refCount > 0 && --object->refCount == 0)
    DestroyInstance(object);
}

}  // namespace

void RuntimeLockObject(RuntimeObject* object) { Lock(object); }

void RuntimeUnlockObject(RuntimeObject* object) { Unlock(object); }

// An assignment: the new value is locked first, so that storing an object
// over itself can never free it on the way.
void RuntimeLockUnlockObjects(RuntimeObject* newObject,
                              RuntimeObject* oldObject) {
  if (newObject == oldObject) return;
  Lock(newObject);
  Unlock(oldObject);
}
