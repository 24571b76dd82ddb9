#include "Common/ObjectModel/RuntimeObjectFoundation.h"

void RuntimeLockObject(RuntimeObject* object) {
  if (object && object->refCount != 0) object->refCount++;
}

void RuntimeUnlockObject(RuntimeObject* object) {
  if (object && object->refCount > 0) object->refCount--;
}
