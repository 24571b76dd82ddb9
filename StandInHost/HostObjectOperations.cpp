// Object, event and exception operations of the host.
#include "StandInHost/HostObjects.h"
#include "StandInHost/HostOperations.h"
#include "StandInHost/PluginCalls.h"

namespace quorl {
namespace standin {

// The plug-in names its class by its own record; a host class may also be
// named by its reference.
void* VELDGetClassData(VELDObject object, VELDClassDefinition* cls) {
  if (!object || !cls) return nullptr;
  for (VELDClassRef c : ClassChain(object->mClass)) {
    if (c->mDefinition == cls || static_cast<void*>(c) == cls)
      return ClassData(object, c);
  }
  return nullptr;
}

void* VELDGetEventInstance(VELDObject object, VELDEvent* event) {
  return event ? EventHandler(object, event->mDeclaration) : nullptr;
}

void VELDLockObject(VELDObject object) { LockObject(object); }

void VELDUnlockObject(VELDObject object) { UnlockObject(object); }

VELDObject VELDnewInstance(char const* className) {
  return NewObject(FindClass(className));
}

void VELDRaiseException(VELDObject exception) {
  RecordRaisedException(exception);
}

}  // namespace standin
}  // namespace quorl
