#include "StandInHost/ScriptEvents.h"

#include <exception>

#include "StandInHost/HostObjects.h"
#include "StandInHost/HostStrings.h"
#include "StandInHost/PluginCalls.h"

namespace quorl {
namespace standin {

char const kInputEvent[] = "Input(prompt As String) As String";
char const kPrintEvent[] = "Print(msg As String)";
char const kCompilerErrorEvent[] =
    "CompilerError(line As Integer, errorNumber As Integer, errorMsg As String)";
char const kRuntimeErrorEvent[] =
    "RuntimeError(line As Integer, error As RuntimeException)";

namespace {

ScriptCallbacks* CallbacksOf(VELDObject instance) {
  return static_cast<ScriptCallbacks*>(EmbedderData(instance));
}

// Runs a callable where engine frames are below: nothing may unwind past
// here. After one failure the call's remaining events are dropped. The
// handler is copied first, since it may replace itself while it runs.
template <class Handler, class Call>
void Deliver(Handler const& handler, Call const& call) {
  if (!handler || CallbackFailed()) return;
  Handler copy = handler;
  try {
    call(copy);
  } catch (...) {
    RecordCallbackFailure(std::current_exception());
  }
}

// The engine's message text ends in a NUL it counts as part of the text.
std::string WithoutTrailingNuls(std::string text) {
  while (!text.empty() && text.back() == '\0') text.pop_back();
  return text;
}

void PrintTrampoline(VELDObject instance, VELDString message) {
  ScriptCallbacks* callbacks = CallbacksOf(instance);
  if (!callbacks) return;
  Deliver(callbacks->print, [&](Script::PrintHandler const& print) {
    print(ToStdString(message));
  });
}

// The answer goes back with one reference, which the engine releases.
VELDString InputTrampoline(VELDObject instance, VELDString prompt) {
  ScriptCallbacks* callbacks = CallbacksOf(instance);
  std::string answer;
  if (callbacks) {
    Deliver(callbacks->input, [&](Script::InputHandler const& input) {
      answer = input(ToStdString(prompt));
    });
  }
  return answer.empty() ? nullptr : NewHostString(answer);
}

void CompilerErrorTrampoline(VELDObject instance, int line, int number,
                             VELDString message) {
  ScriptCallbacks* callbacks = CallbacksOf(instance);
  if (!callbacks) return;
  Deliver(callbacks->compilerError,
          [&](Script::CompilerErrorHandler const& compilerError) {
            compilerError(line, number,
                          WithoutTrailingNuls(ToStdString(message)));
          });
}

void RuntimeErrorTrampoline(VELDObject instance, int line, VELDObject error) {
  ScriptCallbacks* callbacks = CallbacksOf(instance);
  if (!callbacks) return;
  Deliver(callbacks->runtimeError,
          [&](Script::RuntimeErrorHandler const& runtimeError) {
            runtimeError(line, ClassNameOf(error));
          });
}

template <class Proc>
void* HandlerIf(bool present, Proc trampoline) {
  return present ? reinterpret_cast<void*>(trampoline) : nullptr;
}

// Every error is kept for Errors(), then handed to the handler.
void ReportError(VELDObject instance, ScriptError const& error) {
  ScriptCallbacks* callbacks = CallbacksOf(instance);
  if (!callbacks) return;
  callbacks->errors.push_back(error);
  Deliver(callbacks->error,
          [&](Script::ErrorHandler const& handler) { handler(error); });
}

std::string Text(char const* text) { return text ? text : ""; }

}  // namespace

void QuorlCompileErrorDetail(VELDObject instance, int number,
                             char const* message, char const* summary,
                             int line, int column) {
  ScriptError error;
  error.kind = ScriptError::Kind::Compile;
  error.number = number;
  error.summary = Text(summary);
  error.message = Text(message);
  error.line = line;
  error.column = column;
  ReportError(instance, error);
}

void QuorlRuntimeErrorDetail(VELDObject instance, int line,
                             char const* exceptionClass, char const* message,
                             int errorNumber) {
  ScriptError error;
  error.kind = ScriptError::Kind::Runtime;
  error.number = errorNumber;
  error.exceptionClass = Text(exceptionClass);
  error.message = Text(message);
  error.line = line;
  if (ScriptCallbacks* callbacks = CallbacksOf(instance)) {
    error.callStack.swap(callbacks->pendingCallStack);
    error.callStackComplete = callbacks->pendingCallStackComplete;
    callbacks->pendingCallStack.clear();
    callbacks->pendingCallStackComplete = true;
  }
  ReportError(instance, error);
}

void QuorlRuntimeCallStack(VELDObject instance, QuorlStackFrame const* frames,
                           int32_t count, int32_t complete) {
  ScriptCallbacks* callbacks = CallbacksOf(instance);
  if (!callbacks) return;
  callbacks->pendingCallStack.clear();
  for (int32_t i = 0; i < count; i++)
    callbacks->pendingCallStack.push_back({Text(frames[i].mFunction), frames[i].mLine});
  callbacks->pendingCallStackComplete = complete != 0;
}

void QuorlScriptStopped(VELDObject instance) {
  ScriptError error;
  error.kind = ScriptError::Kind::Stopped;
  error.message = "stopped by the host";
  ReportError(instance, error);
}

void BindEvents(VELDObject instance, ScriptCallbacks* callbacks) {
  SetEmbedderData(instance, callbacks);
  SetEventHandler(instance, kPrintEvent,
                  HandlerIf<QuorlPrintHandler>(bool(callbacks->print),
                                               &PrintTrampoline));
  SetEventHandler(instance, kInputEvent,
                  HandlerIf<QuorlInputHandler>(bool(callbacks->input),
                                               &InputTrampoline));
  SetEventHandler(instance, kCompilerErrorEvent,
                  HandlerIf<QuorlCompilerErrorHandler>(
                      bool(callbacks->compilerError), &CompilerErrorTrampoline));
  SetEventHandler(instance, kRuntimeErrorEvent,
                  HandlerIf<QuorlRuntimeErrorHandler>(
                      bool(callbacks->runtimeError), &RuntimeErrorTrampoline));
}

void UnbindEvents(VELDObject instance) {
  for (char const* event : {kPrintEvent, kInputEvent, kCompilerErrorEvent,
                            kRuntimeErrorEvent})
    SetEventHandler(instance, event, nullptr);
  SetEmbedderData(instance, nullptr);
}

}  // namespace standin
}  // namespace quorl
