// The runtime's own raises: a fresh object of an exception class, raised
// and released. They return to their caller afterwards, which hands a
// harmless value back to the script.
#include "Common/ObjectModel/RuntimeExceptionFoundation.h"

namespace {

// True while the nil-object exception itself is being made. A nil raise
// inside that (no memory, or the class's own initializer failing) cannot be
// answered with another one without recursing.
thread_local bool sMakingNilObjectException;

// Nothing can be raised: the host hears of a nil exception, if it listens.
void ReportUnraisable() {
  if (GetUnhandledExceptionHook()) RuntimeUnhandledException(nullptr);
}

void RaiseObject(RuntimeObject* exception) {
  RuntimeRaiseException(exception);
  RuntimeUnlockObject(exception);
}

}  // namespace

// A nil class makes no object, and the nil-object exception goes instead.
void RaiseExceptionClass(RuntimeClass* cls) {
  RaiseObject(RuntimeNewObject(cls));
}

void RaiseNilObjectException() {
  RuntimeClass* cls = GetNilObjectExceptionClass();
  if (!cls || sMakingNilObjectException) {
    ReportUnraisable();
    return;
  }
  sMakingNilObjectException = true;
  RuntimeObject* exception = RuntimeNewObject(cls);
  sMakingNilObjectException = false;
  RaiseObject(exception);
}

void RaiseIllegalCastException() {
  RaiseExceptionClass(GetIllegalCastExceptionClass());
}

void RaiseOutOfBoundsException() {
  RaiseExceptionClass(GetOutOfBoundsExceptionClass());
}

void RaiseOutOfMemoryException() {
  RaiseExceptionClass(GetOutOfMemoryExceptionClass());
}

void RaiseTypeMismatchException() {
  RaiseExceptionClass(GetTypeMismatchExceptionClass());
}
