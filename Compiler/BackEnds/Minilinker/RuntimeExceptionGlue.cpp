// The runtime's exceptions as the running script meets them: their
// classes, what happens to one nobody catches, and the stack check.
#include <setjmp.h>

#include "Common/ObjectModel/RuntimeExceptionFoundation.h"
#include "Common/ObjectModel/RuntimeExceptionObjects.h"
#include "Compiler/BackEnds/Minilinker/QuorlScriptIntrinsics.h"
#include "Compiler/BackEnds/Minilinker/minilinker.h"
#include "Universal/ustring.h"

namespace {

char const kRootExceptionName[] = "RuntimeException";
char const kStackOverflowName[] = "StackOverflowException";
// How far below the stack limit handlers may go on calling before an
// overflow ends the run (see RuntimeCheckStack).
unsigned long const kRunawayDepth = 64 * 1024;

// Where a runaway overflow ends the innermost run or host call on this
// thread; each one links the one it runs inside.
struct RunawayEnd {
  jmp_buf where;
  RuntimeObject* exception = nullptr;
  RunawayEnd* outer = nullptr;
};
thread_local RunawayEnd* tRunawayEnd;
char const kStackOverflowMessage[] =
    "The stack overflowed: calls were nested too deeply";

// The runtime's own exceptions that keep their class when nobody catches
// them, by the code the correspondent hears.
struct OwnExceptionCode {
  RuntimeErrorCode code;
  char const* name;
};
OwnExceptionCode const kOwnExceptionCodes[] = {
    {kRuntimeErrorStackOverflow, kStackOverflowName},
    {kRuntimeErrorOutOfBounds, "OutOfBoundsException"},
    {kRuntimeErrorNilObject, "NilObjectException"},
    {kRuntimeErrorIllegalCast, "IllegalCastException"},
    {kRuntimeErrorOutOfMemory, "OutOfMemoryException"},
    {kRuntimeErrorTypeMismatch, "TypeMismatchException"},
};

// Raised when the host stops the script; it lives as long as the process
// and never reaches a count of 0. It is no exception of the script's, so
// it has no class and no message.
RuntimeObject sStopException = {nullptr, nullptr, nullptr, 1, nullptr, nullptr};

// The last exception raised on this thread and the line it was raised at.
struct RaiseSite {
  RuntimeObject* mException = nullptr;
  unsigned long mLine = 0;
};
thread_local RaiseSite sLastRaise;
thread_local UncaughtExceptionDetail sUncaught;

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
  RuntimeClass* cls = exception ? exception->mClass : nullptr;
  if (!cls || !cls->name) return string(kRootExceptionName);
  return string(cls->name);
}

RuntimeClass* ListedClassNamed(char const* name) {
  string wanted(name);
  for (RuntimeClass* cls = GetClassListHead(); cls; cls = cls->next)
    if (cls->name && string(cls->name) == wanted) return cls;
  return nullptr;
}

// A record of the exception tree: the root holds the fields every
// exception has and releases them; the others derive from it and add
// nothing. The record joins the list and goes with it at the end of the run.
RuntimeClass* NewExceptionClass(char const* name, RuntimeClass* parent) {
  RuntimeClass* cls = RuntimeNewClass(parent, 0, 0, 0, 0, 0);
  if (!cls) return nullptr;
  cls->name = string(name).ExtractStringStorage();
  cls->instanceSize = kExceptionInstanceSize;
  if (!parent) cls->finalizer = FinalizeExceptionObject;
  return cls;
}

RuntimeClass* RootExceptionClass() {
  if (RuntimeClass* root = ListedClassNamed(kRootExceptionName)) return root;
  RuntimeClass* root = NewExceptionClass(kRootExceptionName, nullptr);
  if (root) SetExceptionClass(root);
  return root;
}

// The class of that name in the running program's list, made when missing
// as an exception class with no fields of its own.
RuntimeClass* FindNamedClass(char const* name) {
  if (string(name) == string(kRootExceptionName)) return RootExceptionClass();
  if (RuntimeClass* cls = ListedClassNamed(name)) return cls;
  RuntimeClass* root = RootExceptionClass();
  return root ? NewExceptionClass(name, root) : nullptr;
}

// An exception of the class of that name, with the message; a name that a
// class of the script's already has, one that is no exception, makes a
// plain RuntimeException instead. Null when the heap refuses.
RuntimeObject* NewNamedException(char const* className, string const& message) {
  RuntimeClass* cls = FindNamedClass(className);
  RuntimeObject* exception = cls ? RuntimeNewObject(cls) : nullptr;
  if (exception && !IsExceptionObject(exception)) {
    RuntimeUnlockObject(exception);
    cls = RootExceptionClass();
    exception = cls ? RuntimeNewObject(cls) : nullptr;
  }
  if (exception) SetRuntimeExceptionMessage(exception, message);
  return exception;
}

// The report for an exception of the runtime's own that nobody caught,
// which keeps its class for the host.
RuntimeErrorCode UnhandledErrorCode(RuntimeObject* exception) {
  if (exception == &sStopException) return kRuntimeErrorStopped;
  RuntimeClass* cls = exception ? exception->mClass : nullptr;
  if (!cls || !cls->name) return kRuntimeErrorUnhandledException;
  string name(cls->name);
  for (OwnExceptionCode const& own : kOwnExceptionCodes)
    if (name == string(own.name)) return own.code;
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

char const* RuntimeErrorClassName(RuntimeErrorCode code) {
  if (code == kRuntimeErrorStackOverflow2) code = kRuntimeErrorStackOverflow;
  for (OwnExceptionCode const& own : kOwnExceptionCodes)
    if (own.code == code) return own.name;
  return kRootExceptionName;
}

RuntimeClass* RuntimeExceptionLookup() {
  return LookupExceptionClass(kRootExceptionName);
}

RuntimeClass* OutOfMemoryExceptionLookup() {
  return LookupExceptionClass("OutOfMemoryException");
}

RuntimeClass* TypeMismatchExceptionLookup() {
  return LookupExceptionClass("TypeMismatchException");
}

RuntimeClass* StackOverflowExceptionLookup() {
  return LookupExceptionClass(kStackOverflowName);
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

RuntimeClass* FunctionNotFoundExceptionLookup() {
  return LookupExceptionClass("FunctionNotFoundException");
}

// The classes are stored only when they exist; every run gets the hook.
void RuntimeInit() {
  RootExceptionClass();
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
  sUncaught.mErrorNumber = ExceptionErrorNumberOf(exception);
  QuorlScriptCorrespondent* correspondent = GetRuntimeCorrespondent();
  if (correspondent)
    correspondent->ScriptError(UnhandledErrorCode(exception), 0);
}

// The overflow goes through the exception machinery, so a script handler
// can catch it; uncaught, it reaches UnhandledException. Like every raise
// from the runtime, this returns to the running code afterwards. The limit
// lies well above the end of the real stack, so the exception can still be
// made here.
//
// Handlers run below the limit, and one may call on (a Finally that calls
// the function it belongs to), each call raising the overflow anew one
// frame deeper. Past kRunawayDepth below the limit the overflow therefore
// ends the whole run (or host call) at once, as an uncaught overflow: the
// frames between are dropped with what they hold, their handlers unrun,
// and the process lives on.
__attribute__((noinline)) void RuntimeCheckStack() {
  unsigned long limit = GetRuntimeStackLimit();
  char probe = 0;
  unsigned long stackPointer = reinterpret_cast<unsigned long>(&probe);
  if (!limit || stackPointer >= limit) return;
  RuntimeObject* exception =
      NewNamedException(kStackOverflowName, string(kStackOverflowMessage));
  if (!exception) return;
  RunawayEnd* end = tRunawayEnd;
  if (end && stackPointer + kRunawayDepth < limit) {
    RuntimeNoteRaise(exception);
    end->exception = exception;
    longjmp(end->where, 1);
  }
  RuntimeRaiseException(exception);
  RuntimeUnlockObject(exception);
}

RuntimeObject* CallEndingRunaways(void (*body)(void*), void* data) {
  RunawayEnd end;
  end.outer = tRunawayEnd;
  tRunawayEnd = &end;
  if (setjmp(end.where) == 0) body(data);
  tRunawayEnd = end.outer;
  return static_cast<RunawayEnd volatile&>(end).exception;
}

RuntimeObject* StopExceptionObject() {
  if (sStopException.refCount < 1) sStopException.refCount = 1;
  return &sStopException;
}

UncaughtExceptionDetail const& LastUncaughtException() { return sUncaught; }

void SetRuntimeExceptionMessage(RuntimeObject* exception, string const& message) {
  SetExceptionMessage(exception, message.CString(), message.Length());
}

string RuntimeExceptionMessage(RuntimeObject* exception) {
  return string(ExceptionMessageOf(exception));
}

// The raise takes its own reference; the handler that stores the exception
// takes another, so the one made here is dropped at once.
void RaiseNamedException(char const* className, string const& message) {
  RuntimeObject* exception = NewNamedException(className, message);
  if (!exception) return;
  RuntimeRaiseException(exception);
  RuntimeUnlockObject(exception);
}

// A Declare'd function that could not be found when called.
void RuntimeRaiseFunctionNotFoundException(stringStorage* name,
                                           stringStorage* library) {
  string message = string("Could not load ") +
                   string(name ? name->CString() : "") + string(" from ") +
                   string(library ? library->CString() : "");
  RaiseNamedException("FunctionNotFoundException", message);
}
