// The script runtime's glue: what running script code calls that belongs to
// the plug-in itself, the state of the script now running, and the table
// from link names to addresses that the in-memory linker resolves against.
//
// The state is process-wide: one correspondent, one class list and one stack
// limit, for the script that runs now. Scheduling is cooperative, and the
// yield saves and restores them around the host's turn.
#ifndef COMPILER_BACKENDS_MINILINKER_QUORLSCRIPTINTRINSICS_H
#define COMPILER_BACKENDS_MINILINKER_QUORLSCRIPTINTRINSICS_H

#include "Common/ObjectModel/RuntimeObjectFoundation.h"
#include "Compiler/BackEnds/Minilinker/QuorlScriptCorrespondent.h"
#include "Compiler/BackEnds/Minilinker/ScriptCallStack.h"
#include "Universal/stringmap.h"
#include "Universal/ustring.h"

class RunReadyCode;

// A name-to-address lookup of the host's; null for an unknown name.
typedef void* (*RuntimeNameResolver)(char const* name);

// The class of the runtime's own exception that a runtime error code
// stands for ("RuntimeException" for any other code).
char const* RuntimeErrorClassName(RuntimeErrorCode code);

// ---- the running script's state
void SetRuntimeCorrespondent(QuorlScriptCorrespondent* correspondent);
QuorlScriptCorrespondent* GetRuntimeCorrespondent();
// The lowest stack address running code may reach; 0 checks nothing. Set
// by the script object before a run, from the host's limit.
void SetRuntimeStackLimit(unsigned long limit);
unsigned long GetRuntimeStackLimit();

// The code that runs now, which knows the lines of its instructions.
void SetRuntimeCode(RunReadyCode const* code);
RunReadyCode const* GetRuntimeCode();

// Before a run: no correspondent, no classes.
void InitQuorlScriptRuntime();
// After a run (and as "RuntimeExit" at the end of the main body): the
// program's classes are dropped.
void ExitQuorlScriptRuntime();

// ---- called from generated code
// The correspondent comes as a hidden first argument. Input answers a new
// string the caller owns, or nil without an answer.
stringStorage* Input(QuorlScriptCorrespondent* corr, stringStorage* prompt);
void Print(QuorlScriptCorrespondent* corr, stringStorage* text);
// The classes of the runtime's exceptions, which are also what a script's
// RuntimeException and its subclasses name; a class that cannot be had is
// reported as runtime error 10.
RuntimeClass* RuntimeExceptionLookup();
RuntimeClass* OutOfMemoryExceptionLookup();
RuntimeClass* NilObjectExceptionLookup();
RuntimeClass* IllegalCastExceptionLookup();
RuntimeClass* TypeMismatchExceptionLookup();
RuntimeClass* OutOfBoundsExceptionLookup();
RuntimeClass* StackOverflowExceptionLookup();
RuntimeClass* FunctionNotFoundExceptionLookup();
// First call of the main body: exception classes and the unhandled hook.
void RuntimeInit();
// What no handler caught: reported as runtime error 2 (6 for a stack
// overflow), line 0.
void UnhandledException(RuntimeObject* exception);
// The host's turn, once per loop iteration.
void RuntimeYield();
// Raises the stack overflow when the stack has grown below the limit.
void RuntimeCheckStack();
// A script has no debugger: these do nothing.
void RuntimeDebugEntry();
void RemoteDebuggerStartup();

// ---- stopping a running script
// The stop word of the running script. The host sets it to kStopRequested,
// from any thread; the next yield makes it kStopUnwinding and raises the
// stop exception, which every Catch passes on and every frame's
// finalisation sees, up to the end of the run.
enum ScriptStopState { kStopNone = 0, kStopRequested = 1, kStopUnwinding = 2 };
void SetRuntimeStopWord(volatile long* word);
// The object the stop raises; it lives as long as the process.
RuntimeObject* StopExceptionObject();
// Called by generated code first thing in a Catch: a stop passes on.
void RuntimePassStop();
// The stop check of a yield: raises the stop when one was asked for.
void RaiseStopIfRequested();
// A stop asked for by the host function the running script called: raised
// at once, from that function.
void RaiseStopNow();
// The yield of a loop pass, taken from a library or host function that
// running script code called; nothing when no script runs on this thread.
// Answers whether a stop is now on its way back into the script, in which
// case the caller returns at once without doing its work.
bool RuntimeYieldFromCall();

// ---- what the host hears of an exception nobody caught
struct UncaughtExceptionDetail {
  unsigned long mLine = 0;  // where it was raised, from 1; 0 unknown
  string mClassName;
  string mMessage;
  long mErrorNumber = 0;
  ScriptCallStack mCallStack;  // where it was raised, innermost first
};
// The detail of the last uncaught exception of this thread.
UncaughtExceptionDetail const& LastUncaughtException();
// Gives an exception object its message; the message goes with the object.
void SetRuntimeExceptionMessage(RuntimeObject* exception, string const& message);
string RuntimeExceptionMessage(RuntimeObject* exception);
// A new exception of the named class (made when the running program has
// none) with the message, raised in the running script.
void RaiseNamedException(char const* className, string const& message);
// A FunctionNotFoundException: "Could not load NAME from LIBRARY".
void RuntimeRaiseFunctionNotFoundException(stringStorage* name,
                                           stringStorage* library);

// ---- the table the linker resolves against
// A new table, owned by the caller: the plug-in's own entries first, then
// every intrinsic name through `resolver`.
StringMap<void*>* MakeQuorlScriptRuntimeFunctionTable(
    RuntimeNameResolver resolver);

#endif
