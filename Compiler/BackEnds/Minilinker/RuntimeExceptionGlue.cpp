// The runtime's exceptions as the running script meets them: their
// classes, what happens to one nobody catches, and the stack check.
#include "Common/ObjectModel/RuntimeExceptionFoundation.h"
#include "Compiler/BackEnds/Minilinker/QuorlScriptIntrinsics.h"
#include "Universal/ustring.h"

namespace {

// Raised for every overflow; it lives as long as the process. Its count
// starts at 1, held by the runtime, so a handler's lock and release never
// bring it to 0.
RuntimeObject sStackOverflowException = {nullptr, nullptr, nullptr, 1,
                                         nullptr, nullptr};

void InitializeException(RuntimeObject*) {}
void UninitializeException(RuntimeObject*) {}

RuntimeClass* ListedClassNamed(char const* name) {
  string wanted(name);
  for (RuntimeClass* cls = GetClassListHead(); cls; cls = cls->next)
    if (cls->name && string(cls->name) == wanted) return cls;
  return nullptr;
}

// The class of that name in the running program's list, made when missing:
// a plain object class with no fields of its own. The record joins the list
// and goes with it at the end of the run.
RuntimeClass* FindNamedClass(char const* name) {
  if (RuntimeClass* cls = ListedClassNamed(name)) return cls;
  RuntimeClass* cls = RuntimeNewClass(nullptr, 0, 0, 0, 0, 0);
  if (!cls) return nullptr;
  cls->name = string(name).ExtractStringStorage();
  cls->instanceSize = sizeof(RuntimeObject);
  cls->initializer = InitializeException;
  cls->finalizer = UninitializeException;
  return cls;
}

// The report for an exception of the runtime's own that nobody caught,
// which keeps its class for the host.
RuntimeErrorCode UnhandledErrorCode(RuntimeObject* exception) {
  if (exception == &sStackOverflowException) return kRuntimeErrorStackOverflow;
  RuntimeClass* cls = exception ? exception->mClass : nullptr;
  if (!cls || !cls->name) return kRuntimeErrorUnhandledException;
  string name(cls->name);
  if (name == string("OutOfBoundsException")) return kRuntimeErrorOutOfBounds;
  if (name == string("NilObjectException")) return kRuntimeErrorNilObject;
  if (name == string("IllegalCastException")) return kRuntimeErrorIllegalCast;
  if (name == string("OutOfMemoryException")) return kRuntimeErrorOutOfMemory;
  return kRuntimeErrorUnhandledException;
}

RuntimeClass* LookupExceptionClass(char const* name) {
  RuntimeClass* cls = FindNamedClass(name);
  QuorlScriptCorrespondent* correspondent = GetRuntimeCorrespondent();
  if (!cls && correspondent)
    correspondent->ScriptError(kRuntimeErrorNoExceptionClass, 0);
  return cls;
}

}  // namespace

RuntimeClass* RuntimeExceptionLookup() {
  return LookupExceptionClass("RuntimeException");
}

RuntimeClass* NilObjectExceptionLookup() {
  return LookupExceptionClass("NilObjectException");
}

RuntimeClass* IllegalCastExceptionLookup() {
  return LookupExceptionClass("IllegalCastException");
}

RuntimeClass* OutOfBoundsExceptionLookup() {
  return LookupExceptionClass("OutOfBoundsException");
}

// The classes are stored only when they exist; every run gets the hook.
void RuntimeInit() {
  RuntimeClass* nilObject = FindNamedClass("NilObjectException");
  if (nilObject) SetNilObjectExceptionClass(nilObject);
  RuntimeClass* illegalCast = FindNamedClass("IllegalCastException");
  if (illegalCast) SetIllegalCastExceptionClass(illegalCast);
  RuntimeClass* outOfBounds = FindNamedClass("OutOfBoundsException");
  if (outOfBounds) SetOutOfBoundsExceptionClass(outOfBounds);
  RuntimeClass* outOfMemory = FindNamedClass("OutOfMemoryException");
  if (outOfMemory) SetOutOfMemoryExceptionClass(outOfMemory);
  SetUnhandledExceptionHook(UnhandledException);
}

// The object itself is not passed on: the host sees a fresh exception of
// the reported kind.
void UnhandledException(RuntimeObject* exception) {
  QuorlScriptCorrespondent* correspondent = GetRuntimeCorrespondent();
  if (correspondent)
    correspondent->ScriptError(UnhandledErrorCode(exception), 0);
}

// The overflow goes through the exception machinery, so a script handler
// can catch it; uncaught, it reaches UnhandledException. Like every raise
// from the runtime, this returns to the running code afterwards.
__attribute__((noinline)) void RuntimeCheckStack() {
  unsigned long limit = GetRuntimeStackLimit();
  char probe = 0;
  unsigned long stackPointer = reinterpret_cast<unsigned long>(&probe);
  if (!limit || stackPointer >= limit) return;
  if (sStackOverflowException.refCount < 1)
    sStackOverflowException.refCount = 1;
  RuntimeRaiseException(&sStackOverflowException);
}
