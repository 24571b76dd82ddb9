// The runtime's own raises: a fresh object of an exception class, raised
// and released. They return to their caller afterwards, which hands a
// harmless value back to the script.
#include <stdio.h>

#include "Common/ObjectModel/RuntimeExceptionFoundation.h"
#include "Common/ObjectModel/RuntimeExceptionObjects.h"

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

// What each of the runtime's own exceptions says happened.
char const kNilObjectMessage[] = "An object was used that is Nil";
char const kIllegalCastMessage[] =
    "An object was cast to a class it does not belong to";
char const kOutOfBoundsMessage[] =
    "An index was outside the bounds of the array";
char const kIndexMessage[] = "Index %ld is outside the bounds 0 to %ld";
char const kEmptyIndexMessage[] = "Index %ld is outside the bounds of an empty array";
// Room for either with two 64-bit numbers.
int const kIndexMessageSize = 96;
char const kTypeMismatchMessage[] =
    "A value could not be converted to the type needed";
char const kOutOfMemoryMessage[] =
    "There was not enough memory for the operation";

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
  RaiseExceptionClassWithMessage(cls, message);
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
  SetExceptionMessageText(exception, kNilObjectMessage);
  RaiseObject(exception);
}

void RaiseIllegalCastException() {
  RaiseKind(GetIllegalCastExceptionClass(), "IllegalCastException",
            kIllegalCastMessage);
}

void RaiseOutOfBoundsException() {
  RaiseKind(GetOutOfBoundsExceptionClass(), "OutOfBoundsException",
            kOutOfBoundsMessage);
}

void RaiseIndexOutOfBounds(long index, long ubound) {
  char message[kIndexMessageSize];
  if (ubound < 0)
    snprintf(message, sizeof message, kEmptyIndexMessage, index);
  else
    snprintf(message, sizeof message, kIndexMessage, index, ubound);
  RaiseKind(GetOutOfBoundsExceptionClass(), "OutOfBoundsException", message);
}

void RaiseOutOfMemoryException() {
  RaiseKind(GetOutOfMemoryExceptionClass(), "OutOfMemoryException",
            kOutOfMemoryMessage);
}

void RaiseTypeMismatchException() {
  RaiseKind(GetTypeMismatchExceptionClass(), "TypeMismatchException",
            kTypeMismatchMessage);
}

void SetNamedExceptionRaiser(RuntimeNamedRaiser raiser) {
  sNamedRaiser = raiser;
}
