// Raising exceptions in running script code. There are no unwind tables:
// the raiser follows the frame-pointer chain and, in each frame, scans the
// machine code after the return address for the next landing pad the code
// generator left in line (see ExceptionMarkerLayout.h). It then makes that
// pad the frame's return address and returns, so the running function
// returns straight into its handler.
#ifndef COMMON_OBJECTMODEL_RUNTIMEEXCEPTIONFOUNDATION_H
#define COMMON_OBJECTMODEL_RUNTIMEEXCEPTIONFOUNDATION_H

#include "Common/ObjectModel/RuntimeObjectFoundation.h"

typedef void (*RuntimeExceptionHook)(RuntimeObject* exception);
typedef bool (*StackCrawlCallback)(void* frame, void* data);
typedef void (*RuntimeNamedRaiser)(char const* className, char const* message);

extern "C" {
// Tells the monitor, then hands the exception to the nearest handler; nil
// does nothing.
void RuntimeRaiseException(RuntimeObject* exception);
// The same without telling the monitor: the exception was seen already.
void RuntimeReraiseException(RuntimeObject* exception);
// What happens when no frame handles it: the hook, or a failed assertion
// without one.
void RuntimeUnhandledException(RuntimeObject* exception);
// A new object of the class, raised, and its own reference dropped.
void RaiseExceptionClass(RuntimeClass* cls);
// The same with the class stored for each kind. With no class stored for
// an illegal cast or out-of-bounds raise, the nil class stands in for it (a
// nil class makes no object); with no nil-object class either, or when the
// nil-object exception cannot be made, nothing is raised and the unhandled
// hook, if any, hears of a nil exception.
void RaiseNilObjectException();
void RaiseIllegalCastException();
void RaiseOutOfBoundsException();
// The same for an index past a dimension whose upper bound is `ubound`;
// the message names both.
void RaiseIndexOutOfBounds(long index, long ubound);
// A buffer the heap cannot give: the script may catch it and go on.
void RaiseOutOfMemoryException();
// A value that cannot be converted to the type asked for (a variant's).
void RaiseTypeMismatchException();

// A copy of the runtime that registers no exception classes (the host's,
// which serves the library) raises the kinds above through this, by class
// name, in the copy that has them.
void SetNamedExceptionRaiser(RuntimeNamedRaiser raiser);

void SetExceptionMonitor(RuntimeExceptionHook monitor);
void SetUnhandledExceptionHook(RuntimeExceptionHook hook);
void SetNilObjectExceptionClass(RuntimeClass* exc);
void SetFunctionNotFoundClass(RuntimeClass* exc);
void SetExceptionClass(RuntimeClass* exc);
void SetIllegalCastExceptionClass(RuntimeClass* exc);
void SetOutOfBoundsExceptionClass(RuntimeClass* exc);
void SetOutOfMemoryExceptionClass(RuntimeClass* exc);
void SetTypeMismatchExceptionClass(RuntimeClass* exc);
RuntimeClass* GetNilObjectExceptionClass();
RuntimeClass* GetIllegalCastExceptionClass();
RuntimeClass* GetOutOfBoundsExceptionClass();
RuntimeClass* GetOutOfMemoryExceptionClass();
RuntimeClass* GetTypeMismatchExceptionClass();
// The root of every exception class, RuntimeException.
RuntimeClass* GetExceptionClass();
RuntimeExceptionHook GetUnhandledExceptionHook();

// Walks the frame chain from the caller's frame and activates the first
// landing pad found; without one, RuntimeUnhandledException.
// Tells the exception monitor of a raise that does not go through
// RuntimeRaiseException: one that ends the run at once.
void RuntimeNoteRaise(RuntimeObject* exception);
void ActivateNextExceptionHandler(RuntimeObject* exception);
// The landing pad that a raise at `code` reaches within its function, or
// null: regions that start after `code` are skipped whole, with their pads.
unsigned char* FindHandlerSwitchBlock(unsigned char* code);
// The same, for code whose function is known to end at `end`: the scan
// does not look for the end in the bytes, where an operand may spell it.
unsigned char* FindHandlerSwitchBlockBefore(unsigned char* code,
                                            unsigned char const* end);
// Answers whether `code` lies in linked script code and, if so, where the
// function that holds it ends (null when it lies in no function).
typedef bool (*ScriptCodeBounds)(unsigned char const* code,
                                 unsigned char** functionEnd);
// The walk asks this for every return address; without it, or where it
// answers false, the end is found by the bytes.
void SetScriptCodeBounds(ScriptCodeBounds bounds);
// The walk remembers each return address's landing pad; whoever gives code
// memory back, where other code may later be placed, calls this first.
void ForgetHandlerSearches();
// Calls `callback` for each frame from `frame` up, while the chain climbs
// and stays at or below `limit`; stops when the callback says so. Answers
// the frame where it stopped.
void* CrawlStack(void* frame, void* limit, StackCrawlCallback callback,
                 void* data);
// Prints the failure report on standard output.
void DisplayRuntimeErrorAlert(short unused, short code, char const* file,
                              int line, char const* condition,
                              char const* text);
// The text of a failure code, or null.
char const* FailureMode(short code);
}

#endif
