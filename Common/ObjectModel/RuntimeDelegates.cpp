#include "Common/ObjectModel/RuntimeDelegates.h"

#include <new>

#include "Common/ObjectModel/RuntimeExceptionFoundation.h"
#include "Common/RuntimeStringFoundation.h"
#include "Universal/Assertion.h"
#include "Universal/ustring.h"

namespace {

RuntimeDelegate* AsDelegate(RuntimeObject* object) {
  return reinterpret_cast<RuntimeDelegate*>(object);
}

// Releases what a dying delegate holds.
void DisposeDelegate(RuntimeObject* object) {
  QASSERT_TEXT(object, "it");
  RuntimeDelegate* delegate = AsDelegate(object);
  RuntimeUnlockObject(delegate->target);
  RuntimeUnlockString(delegate->signature);
}

RuntimeClass MakeDelegateClass() {
  RuntimeClass record = {};
  record.name = string("Delegate").ExtractStringStorage();
  record.instanceSize = kDelegateObjectSize;
  record.finalizer = &DisposeDelegate;
  return record;
}

// The class of every delegate; made before any script runs, and unchanged
// until the process ends.
RuntimeClass sDelegateClass = MakeDelegateClass();

bool IsDelegate(RuntimeObject* object) {
  return object && object->mClass == &sDelegateClass;
}

}  // namespace

// The delegate joins the list of live objects, and is counted, like any
// block of the object model that the runtime makes with its class set.
RuntimeObject* RuntimeCreateDelegate(void* invoker, void* function,
                                     RuntimeObject* target,
                                     stringStorage* signature) {
  if (!invoker || !function) {
    RaiseNilObjectException();
    return nullptr;
  }
  unsigned char* block =
      new (std::nothrow) unsigned char[kDelegateObjectSize]();
  if (!block) {
    RaiseNilObjectException();
    return nullptr;
  }
  RuntimeDelegate* delegate = reinterpret_cast<RuntimeDelegate*>(block);
  delegate->header.mClass = &sDelegateClass;
  delegate->header.refCount = 1;
  delegate->invoker = invoker;
  delegate->function = function;
  RuntimeLockObject(target);
  delegate->target = target;
  RuntimeLockString(signature);
  delegate->signature = signature;
  RegisterNewArrayInstance(&delegate->header);
  return &delegate->header;
}

int32_t RuntimeDelegateIsA(RuntimeObject* object, stringStorage* signature) {
  if (!IsDelegate(object)) return 0;
  return string(AsDelegate(object)->signature) == string(signature) ? 1 : 0;
}

RuntimeObject* RuntimeCheckDelegateCast(RuntimeObject* object,
                                        stringStorage* signature) {
  if (!object) return nullptr;
  if (RuntimeDelegateIsA(object, signature)) {
    RuntimeLockObject(object);
    return object;
  }
  RaiseIllegalCastException();
  return nullptr;
}

// The invoker and the signature follow from the function and do not count.
int32_t RuntimeCompareDelegates(RuntimeObject* a, RuntimeObject* b) {
  if (!a || !b) return a == b ? 1 : 0;
  RuntimeDelegate* x = AsDelegate(a);
  RuntimeDelegate* y = AsDelegate(b);
  return x->function == y->function && x->target == y->target ? 1 : 0;
}
