// The runtime's exceptions as the running script meets them: their
// classes, what happens to one nobody catches, and the stack check.
#include "Common/ObjectModel/RuntimeExceptionFoundation.h"
#include "Compiler/BackEnds/Minilinker/QuorlScriptIntrinsics.h"
#include "Compiler/BackEnds/Minilinker/minilinker.h"
#include "Universal/SimpleVector.h"
#include "Universal/ustring.h"

namespace {

// Raised for every overflow; it lives as long as the process. Its count
// starts at 1, held by the runtime, so a handler's lock and release never
// bring it to 0.
RuntimeObject sStackOverflowException = {nullptr, nullptr, nullptr, 1,
                                         nullptr, nullptr};

// Raised when the host stops the script; like the overflow, it lives as
// long as the process and never reaches a count of 0.
RuntimeObject sStopException = {nullptr, nullptr, nullptr, 1, nullptr, nullptr};

// The messages of this thread's live exceptions that have one. Few ever
// do (those a host raises), so a list is enough.
struct ExceptionMessage {
  RuntimeObject* mException;
  string mMessage;
};
thread_local SimpleVector<ExceptionMessage> sMessages;

// The last exception raised on this thread and the line it was raised at.
struct RaiseSite {
  RuntimeObject* mException = nullptr;
  unsigned long mLine = 0;
};
thread_local RaiseSite sLastRaise;
thread_local UncaughtExceptionDetail sUncaught;

void ForgetMessage(RuntimeObject* exception) {
  for (unsigned long i = 0; i < sMessages.size(); i++) {
    if (sMessages[i].mException != exception) continue;
    sMessages.deleteIdx(i);
    return;
  }
}

void InitializeException(RuntimeObject*) {}
void UninitializeException(RuntimeObject* exception) { ForgetMessage(exception); }

// The exception monitor: the line of the innermost frame of script code
// and the frames above it, found by walking up the frame chain from the
// raiser.
void NoteRaiseSite(RuntimeObject* exception) {
  sLastRaise.mException = exception;
  sLastRaise.mLine = 0;
  RunReadyCode const* code = GetRuntimeCode();
  if (!code) return;
  NoteScriptCallStack(code, __builtin_frame_address(0));
  sLastRaise.mLine = NotedRaiseLine(code);
}

string ClassNameOf(RuntimeObject* exception) {
  if (exception == &sStackOverflowException)
    return string("StackOverflowException");
  RuntimeClass* cls = exception ? exception->mClass : nullptr;
  if (!cls || !cls->name) return string("RuntimeException");
  return string(cls->name);
}

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
  if (exception == &sStopException) return kRuntimeErrorStopped;
  RuntimeClass* cls = exception ? exception->mClass : nullptr;
  if (!cls || !cls->name) return kRuntimeErrorUnhandledException;
  string name(cls->name);
  if (name == string("OutOfBoundsException")) return kRuntimeErrorOutOfBounds;
  if (name == string("NilObjectException")) return kRuntimeErrorNilObject;
  if (name == string("IllegalCastException")) return kRuntimeErrorIllegalCast;
  if (name == string("OutOfMemoryException")) return kRuntimeErrorOutOfMemory;
  if (name == string("TypeMismatchException")) return kRuntimeErrorTypeMismatch;
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
  RuntimeClass* typeMismatch = FindNamedClass("TypeMismatchException");
  if (typeMismatch) SetTypeMismatchExceptionClass(typeMismatch);
  SetUnhandledExceptionHook(UnhandledException);
  SetExceptionMonitor(NoteRaiseSite);
}

// The object itself is not passed on: the host sees a fresh exception of
// the reported kind.
void UnhandledException(RuntimeObject* exception) {
  bool seenRaised = exception == sLastRaise.mException;
  sUncaught.mLine = seenRaised ? sLastRaise.mLine : 0;
  RunReadyCode const* code = GetRuntimeCode();
  sUncaught.mCallStack = seenRaised && code ? NotedScriptCallStack(code)
                                            : ScriptCallStack();
  sUncaught.mClassName = ClassNameOf(exception);
  sUncaught.mMessage = RuntimeExceptionMessage(exception);
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

RuntimeObject* StopExceptionObject() {
  if (sStopException.refCount < 1) sStopException.refCount = 1;
  return &sStopException;
}

UncaughtExceptionDetail const& LastUncaughtException() { return sUncaught; }

void SetRuntimeExceptionMessage(RuntimeObject* exception, string const& message) {
  if (!exception) return;
  ForgetMessage(exception);
  ExceptionMessage entry = {exception, message};
  sMessages.push_back(entry);
}

string RuntimeExceptionMessage(RuntimeObject* exception) {
  for (unsigned long i = 0; i < sMessages.size(); i++)
    if (sMessages[i].mException == exception) return sMessages[i].mMessage;
  return string();
}

// The raise takes its own reference; the handler that stores the exception
// takes another, so the one made here is dropped at once.
void RaiseNamedException(char const* className, string const& message) {
  RuntimeClass* cls = FindNamedClass(className);
  if (!cls) return;
  RuntimeObject* exception = RuntimeNewObject(cls);
  if (!exception) return;
  SetRuntimeExceptionMessage(exception, message);
  RuntimeRaiseException(exception);
  RuntimeUnlockObject(exception);
}
