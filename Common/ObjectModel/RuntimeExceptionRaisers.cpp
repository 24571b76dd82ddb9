// The runtime's own raises: a fresh object of an exception class, raised
// and released. They return to their caller afterwards, which hands a
// harmless value back to the script.
#include "Common/ObjectModel/RuntimeExceptionFoundation.h"

namespace {

// True while the nil-object exception itself is being made. A nil raise
// inside that (no memory, or the class's own initializer failing) cannot be
// answered with another one without recursing.
thread_local bool sMakingNilObjectException;

// Set where this copy of the runtime has no exception classes of its own
// (the host's copy, which serves the library), so that its raises reach the
// script through the engine that has them.
RuntimeNamedRaiser sNamedRaiser;

// Nothing can be raised: the host hears of a nil exception, if it listens.
void ReportUnraisable() {
  if (GetUnhandledExceptionHook()) RuntimeUnhandledException(nullptr);
}

void RaiseObject(RuntimeObject* exception) {
  RuntimeRaiseException(exception);
  RuntimeUnlockObject(exception);
}

// The class stored for the kind, or the named raiser when none is.
void RaiseKind(RuntimeClass* cls, char const* className, char const* message) {
  if (!cls && sNamedRaiser) {
    sNamedRaiser(className, message);
    return;
  }
  RaiseExceptionClass(cls);
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
  RaiseKind(GetIllegalCastExceptionClass(), "IllegalCastException", "");
}

void RaiseOutOfBoundsException() {
  RaiseKind(GetOutOfBoundsExceptionClass(), "OutOfBoundsException", "");
}

void RaiseOutOfMemoryException() {
  RaiseKind(GetOutOfMemoryExceptionClass(), "OutOfMemoryException", "");
}

void RaiseTypeMismatchException() {
  RaiseKind(GetTypeMismatchExceptionClass(), "TypeMismatchException", "");
}

void SetNamedExceptionRaiser(RuntimeNamedRaiser raiser) {
  sNamedRaiser = raiser;
}
