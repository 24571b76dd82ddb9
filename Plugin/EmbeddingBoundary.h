// What the engine offers a host beyond the classic plug-in contract.
//
// The classic events stay as they are. Beside them, a host may serve a few
// more names through its resolver: the engine then tells it the detail of
// each error just before the classic event, and hands it a table of engine
// operations (stopping a script, calling a script's function, raising a
// script exception from a host function). A host that serves none of these
// names sees the engine exactly as before.
//
// Lines and columns in this header count from 1; 0 means unknown. Texts are
// UTF-8, NUL terminated, and valid only during the call.
#ifndef PLUGIN_EMBEDDINGBOUNDARY_H
#define PLUGIN_EMBEDDINGBOUNDARY_H

#include <stdint.h>

#include "Plugin/PluginBoundary.h"

extern "C" {

// "QuorlCompileErrorDetail": one compile error, before its CompilerError
// event. `summary` is the same for every error of the number; `message`
// adds the names and types involved.
typedef void (*QuorlCompileErrorDetailProc)(VELDObject instance, int number,
                                            char const* message,
                                            char const* summary, int line,
                                            int column);

// "QuorlRuntimeErrorDetail": an exception no handler caught, before its
// RuntimeError event. `line` is where it was raised; `errorNumber` is the
// exception's ErrorNumber.
typedef void (*QuorlRuntimeErrorDetailProc)(VELDObject instance, int line,
                                            char const* exceptionClass,
                                            char const* message,
                                            int errorNumber);

// One frame of a script's call stack: the function as the source names it
// ("Leaf", "Shape.Area"; "<main>" for the main body) and its line.
struct QuorlStackFrame {
  char const* mFunction;
  int32_t mLine;
};

// "QuorlRuntimeCallStack": the call stack where an exception no handler
// caught was raised, innermost first, just before its
// QuorlRuntimeErrorDetail. The frame of the raise comes first, then the
// frame of each call that led there. `complete` is 0 when the stack went
// deeper than the frames given.
typedef void (*QuorlRuntimeCallStackProc)(VELDObject instance,
                                          QuorlStackFrame const* frames,
                                          int32_t count, int32_t complete);

// "QuorlScriptStopped": the run ended because the host asked it to stop.
// There is no RuntimeError event for it; the state becomes 3.
typedef void (*QuorlScriptStoppedProc)(VELDObject instance);

// The value types a host function's declaration may use, as the engine
// describes a parsed declaration to the host.
enum QuorlValueType {
  kQuorlNoValue = 0,
  kQuorlInteger = 1,  // 32-bit signed
  kQuorlInt64 = 2,
  kQuorlDouble = 3,
  kQuorlSingle = 4,
  kQuorlBoolean = 5,
  kQuorlString = 6,
  kQuorlOtherValue = 7,  // a type a checked binding does not map
};

// The most parameters a described declaration may have.
enum { kQuorlMaxParameters = 16 };

struct QuorlSignature {
  int32_t mReturnType;  // a QuorlValueType
  int32_t mParameterCount;
  int32_t mParameterTypes[kQuorlMaxParameters];
};

// One argument or result of a script function called by the host. A string
// is a stringStorage the caller keeps: the engine adds its own reference.
struct QuorlValue {
  int32_t mType;  // a QuorlValueType
  union {
    int32_t mInteger;
    int64_t mInt64;
    double mDouble;
    float mSingle;
    int32_t mBoolean;
    stringStorage* mString;  // a result's string comes with one reference
  };
};

// The outcome of an engine operation.
enum QuorlCallStatus {
  kQuorlCallDone = 0,
  kQuorlNoSuchFunction = 1,   // no Sub or Function of that name
  kQuorlBadArguments = 2,     // count or types do not match
  kQuorlNotCompiled = 3,      // no ready code: compile errors, or no source
  kQuorlRaised = 4,           // the function ended in an uncaught exception
  kQuorlBadDeclaration = 5,   // the declaration does not read
  kQuorlStopped = 6,          // the host stopped it
  kQuorlBusy = 7,             // the script is running: no call into it now
};

// The engine's operations, handed to the host once at load.
struct QuorlEngineOperations {
  uint32_t mSize;  // sizeof(QuorlEngineOperations): later fields may follow
  // Asks the running script to stop at its next yield. Any thread may call
  // it while the instance lives; it is remembered until the run ends.
  void (*mRequestStop)(VELDObject instance);
  // Reads a host function's declaration as the engine will; fills
  // `signature` and answers kQuorlCallDone, or kQuorlBadDeclaration.
  int32_t (*mDescribeDeclaration)(char const* declaration,
                                  QuorlSignature* signature);
  // Registers a host function for the instance's scripts, callable without
  // a context object; it stays across changes of Context. The function is
  // called as entry(data, arguments...): `data` is passed silently first.
  // Answers kQuorlCallDone, or kQuorlBadDeclaration.
  int32_t (*mAddHostFunction)(VELDObject instance, void* entry, void* data,
                              char const* declaration);
  // Raises an exception of the named class (a script exception class, such
  // as "RuntimeException") with the message in the script that called the
  // host function now running. The host function must return at once; its
  // result is ignored.
  void (*mRaiseScriptException)(char const* className, char const* message);
  // Calls a script's Sub or Function by name with the arguments, after Run
  // or Precompile; the result is stored when `result` is given.
  int32_t (*mCallFunction)(VELDObject instance, char const* name,
                           QuorlValue const* arguments, int32_t count,
                           QuorlValue* result);
  // Stops the script that called the host function now running, right
  // there, as a stop asked for by mRequestStop would at the next yield.
  // The host function must return at once; its result is ignored.
  void (*mStopNow)();
  // Has the running script call the host ("VELDYieldToQuorl") at its next
  // loop pass or call, which otherwise may come only after many passes.
  // Any thread may call it while the instance lives.
  void (*mRequestYield)(VELDObject instance);
  // Gives the host its turn now ("VELDYieldToQuorl"), from a library or
  // host function that the running script called, as a loop pass would.
  // Answers nonzero when a stop is on its way back into the script: the
  // function must then return at once; its result is ignored.
  int32_t (*mYieldNow)();
};

// "QuorlTakeEngineOperations": the host keeps the table (it lives as long
// as the plug-in).
typedef void (*QuorlTakeEngineOperationsProc)(
    QuorlEngineOperations const* operations);
}

#endif
