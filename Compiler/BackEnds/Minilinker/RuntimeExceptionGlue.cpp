// The runtime's exceptions as the running script meets them: their
// classes, what happens to one nobody catches, and the stack check.
#include "Common/ObjectModel/RuntimeExceptionFoundation.h"
#include "Compiler/BackEnds/Minilinker/QuorlScriptIntrinsics.h"

namespace {

// Raised for every overflow; it lives as long as the process. Its count
// starts at 1, held by the runtime, so a handler's lock and release never
// bring it to 0.
RuntimeObject sStackOverflowException = {nullptr, nullptr, nullptr, 1,
                                         nullptr, nullptr};

// The class of that name in the running program's list, made when missing.
// The object model has no class records and no allocation yet, so no class
// can be found or made: the answer is null until it has.
RuntimeClass* FindNamedClass(char const* name) { return nullptr; }

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
  SetUnhandledExceptionHook(UnhandledException);
}

// The object itself is not passed on: the host sees a fresh exception of
// the reported kind.
void UnhandledException(RuntimeObject* exception) {
  QuorlScriptCorrespondent* correspondent = GetRuntimeCorrespondent();
  if (!correspondent) return;
  if (exception == &sStackOverflowException)
    correspondent->ScriptError(kRuntimeErrorStackOverflow, 0);
  else
    correspondent->ScriptError(kRuntimeErrorUnhandledException, 0);
}

RuntimeObject* StackOverflowExceptionObject() {
  return &sStackOverflowException;
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
