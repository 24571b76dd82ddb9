// Weak references: script objects that name another object without
// holding it. The runtime keeps them on one list so that an object's death
// clears every reference to it.
#include "Common/ObjectModel/RuntimeWeakReferences.h"

namespace {

// The first three words of a weak reference's instance data.
struct RuntimeWeakRef {
  RuntimeObject header;
  RuntimeWeakRef* weakNext;
  RuntimeWeakRef* weakPrevious;
  RuntimeObject* target;  // not locked; nil once it has gone
};
static_assert(sizeof(RuntimeWeakRef) == 36 || sizeof(void*) != 4,
              "the runtime's words follow the object header");

// Registered weak references, newest first. Changed by registration and
// by the death of targets; the references belong to the script.
thread_local RuntimeWeakRef* sWeakRefList;

RuntimeWeakRef* AsWeakRef(RuntimeObject* ref) {
  return reinterpret_cast<RuntimeWeakRef*>(ref);
}

}  // namespace

// Registering a reference again first takes it off the list, so that it is
// never linked twice.
void RegisterWeakRef(RuntimeObject* ref, RuntimeObject* object) {
  if (!object) return;
  UnregisterWeakRef(ref);
  RuntimeWeakRef* weak = AsWeakRef(ref);
  weak->target = object;
  weak->weakPrevious = nullptr;
  weak->weakNext = sWeakRefList;
  if (sWeakRefList) sWeakRefList->weakPrevious = weak;
  sWeakRefList = weak;
}

// The target with a reference for the caller, or nil once it has gone.
RuntimeObject* ResolveWeakRef(RuntimeObject* ref) {
  RuntimeObject* target = AsWeakRef(ref)->target;
  RuntimeLockObject(target);
  return target;
}

// A reference with no target is not on the list.
void UnregisterWeakRef(RuntimeObject* ref) {
  RuntimeWeakRef* weak = AsWeakRef(ref);
  if (!weak->target) return;
  weak->target = nullptr;
  if (weak->weakPrevious) weak->weakPrevious->weakNext = weak->weakNext;
  if (weak->weakNext) weak->weakNext->weakPrevious = weak->weakPrevious;
  if (sWeakRefList == weak) sWeakRefList = weak->weakNext;
  weak->weakNext = nullptr;
  weak->weakPrevious = nullptr;
}

void ForgetWeakReferencesOf(RuntimeObject* object) {
  RuntimeWeakRef* weak = sWeakRefList;
  while (weak) {
    RuntimeWeakRef* following = weak->weakNext;
    if (weak->target == object || &weak->header == object)
      UnregisterWeakRef(&weak->header);
    weak = following;
  }
}
