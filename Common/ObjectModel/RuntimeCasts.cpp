// Type tests and casts of script objects, by walking class records.
#include "Common/ObjectModel/RuntimeExceptionFoundation.h"
#include "Common/ObjectModel/RuntimeObjectFoundation.h"
#include "Universal/ustring.h"

namespace {

bool DescendsFrom(RuntimeClass* cls, RuntimeClass* ancestor) {
  for (; cls; cls = cls->base)
    if (cls == ancestor) return true;
  return false;
}

// The class's table already holds its parents' interfaces, so one class's
// entries are enough; each entry's interface may inherit others.
bool ImplementsInterface(RuntimeClass* cls, RuntimeClass* interface) {
  RuntimeInterfaceEntry* entries = cls->InterfaceEntries();
  for (int32_t i = 0; i < cls->interfaceCount; i++)
    if (DescendsFrom(entries[i].interface, interface)) return true;
  return false;
}

bool IsNamed(RuntimeClass* cls, char const* name) {
  return cls && string(cls->name) == name;
}

// A general automation object may be taken on trust for any class derived
// from the automation base: nothing at run time can tell otherwise.
bool IsTrustedAutomationCast(RuntimeObject* object, RuntimeClass* cls) {
  return cls->base && IsNamed(object->mClass, "OLEObject") &&
         IsNamed(cls->base, "OLEObject");
}

}  // namespace

// A nil class stands for the plain Object, which every object is.
int32_t RuntimeObjectIsa(RuntimeObject* object, RuntimeClass* cls) {
  if (!object) return 0;
  if (!cls) return 1;
  if (!object->mClass) return 0;
  if (cls->isAnInterface) return ImplementsInterface(object->mClass, cls);
  return DescendsFrom(object->mClass, cls);
}

// Answers the object with a reference for the caller, or nil after raising
// the illegal-cast exception. Nil casts to nil without complaint, and a
// nil class is the plain Object, which needs no reference.
RuntimeObject* RuntimeCheckCast(RuntimeObject* object, RuntimeClass* cls) {
  if (!object) return nullptr;
  if (!cls) return object;
  if (RuntimeObjectIsa(object, cls) || IsTrustedAutomationCast(object, cls)) {
    RuntimeLockObject(object);
    return object;
  }
  RaiseIllegalCastException();
  return nullptr;
}

RuntimeClass* RuntimeClassOf(RuntimeObject* object) {
  return object ? object->mClass : nullptr;
}

// The vtable through which the object serves `interface`: only the very
// record counts here, since the compiler asks for the interface it holds.
void* RuntimeLookupInterfaceVtable(RuntimeObject* object,
                                   RuntimeClass* interface) {
  if (!object || !interface) {
    RaiseNilObjectException();
    return nullptr;
  }
  if (interface->isAnInterface && object->mClass) {
    RuntimeInterfaceEntry* entries = object->mClass->InterfaceEntries();
    for (int32_t i = 0; i < object->mClass->interfaceCount; i++)
      if (entries[i].interface == interface) return entries[i].vtable;
  }
  RaiseIllegalCastException();
  return nullptr;
}
