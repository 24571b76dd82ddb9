// The four events of a script, delivered to the embedding program's
// callables. The host's per-instance event handlers are C functions called
// as handler(instance, parameters...); for each callable the program sets,
// the instance gets a trampoline that finds the callable again through the
// instance's embedder word.
#ifndef STANDINHOST_SCRIPTEVENTS_H
#define STANDINHOST_SCRIPTEVENTS_H

#include <vector>

#include "Plugin/EmbeddingBoundary.h"
#include "quorl/QuorlHost.h"

namespace quorl {
namespace standin {

// The events' declarations, which name them in the class record.
extern char const kInputEvent[];
extern char const kPrintEvent[];
extern char const kCompilerErrorEvent[];
extern char const kRuntimeErrorEvent[];

struct ScriptCallbacks {
  Script::PrintHandler print;
  Script::InputHandler input;
  Script::CompilerErrorHandler compilerError;
  Script::RuntimeErrorHandler runtimeError;
  Script::ErrorHandler error;
  // The errors of the call in progress or the last one.
  std::vector<ScriptError> errors;
  // The call stack of the runtime error whose detail comes next.
  std::vector<StackFrame> pendingCallStack;
  bool pendingCallStackComplete = true;
};

// Gives the instance a trampoline for each callable present and no handler
// for each one missing.
void BindEvents(VELDObject instance, ScriptCallbacks* callbacks);

// Removes every handler and the instance's way back to the callables.
void UnbindEvents(VELDObject instance);

// The engine's reports beyond the classic events (Plugin/EmbeddingBoundary.h),
// served by name.
void QuorlCompileErrorDetail(VELDObject instance, int number,
                             char const* message, char const* summary,
                             int line, int column);
void QuorlRuntimeErrorDetail(VELDObject instance, int line,
                             char const* exceptionClass, char const* message,
                             int errorNumber);
void QuorlRuntimeCallStack(VELDObject instance, QuorlStackFrame const* frames,
                           int32_t count, int32_t complete);
void QuorlScriptStopped(VELDObject instance);

}  // namespace standin
}  // namespace quorl

#endif
