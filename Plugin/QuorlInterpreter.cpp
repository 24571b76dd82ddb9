#include "Plugin/QuorlInterpreter.h"

#include <string.h>

#include "Compiler/BackEnds/Minilinker/QuorlScriptIntrinsics.h"
#include "Plugin/CompileErrorMessages.h"
#include "Plugin/HostCalls.h"

// The fixed text of every CompilerError event. The host string is asked for
// 28 bytes, so that it holds the 27 characters and their terminating NUL:
// hosts have come to rely on that length.
static char const kCompilerErrorText[] = "Error found while compiling";
static int const kCompilerErrorTextLength = 28;

void* QuorlInterpreter::EventHandler(QuorlScriptEventIndex event) const {
  return VELDGetEventInstance(mHostObject, &gQuorlScriptEvents[event]);
}

void QuorlInterpreter::MarkAborted() {
  QuorlScriptDataOf(mHostObject)->mState = kStateAborted;
}

// A host string of the bytes, tagged UTF-8; one reference for the caller.
static VELDString BuildUTF8String(char const* bytes, unsigned long length) {
  VELDString text = VELDBuildString(bytes, (int)length);
  VELDSetStringEncoding(text, kEncodingUTF8);
  return text;
}

void QuorlInterpreter::Print(char const* text, unsigned long length) {
  QuorlPrintHandler handler = (QuorlPrintHandler)EventHandler(kEventPrint);
  if (!handler) return;
  VELDString message = BuildUTF8String(text, length);
  handler(mHostObject, message);
  VELDUnlockString(message);
}

char* QuorlInterpreter::Input(char const* prompt, unsigned long promptLength,
                              unsigned long* resultLength) {
  QuorlInputHandler handler = (QuorlInputHandler)EventHandler(kEventInput);
  if (!handler) {
    if (resultLength) *resultLength = 0;
    return nullptr;
  }
  VELDString promptText = BuildUTF8String(prompt, promptLength);
  VELDString answer = handler(mHostObject, promptText);
  VELDString converted = VELDConvertString(answer, kEncodingUTF8);
  VELDUnlockString(answer);
  unsigned long length = converted ? converted->mLength : 0;
  if (resultLength) *resultLength = length;
  char* result = nullptr;
  if (length) {
    // One spare byte keeps the copy usable as a C string as well.
    result = new char[length + 1];
    memcpy(result, converted->CString(), length);
    result[length] = 0;
  }
  VELDUnlockString(promptText);
  VELDUnlockString(converted);
  return result;
}

// The detail goes first, to the hosts that take it; a report that came
// without one (a link failure) gets the number's summary.
void QuorlInterpreter::ReportCompileErrorDetail(CompileErrorCode code,
                                                unsigned long line) {
  char const* summary = CompileErrorSummary(code);
  CompileErrorDetail const& pending = PendingCompileError();
  if (pending.mValid && pending.mNumber == code) {
    QuorlCompileErrorDetail(mHostObject, code, pending.mMessage.CString(), summary,
                            (int)pending.mLine, (int)pending.mColumn);
  } else {
    QuorlCompileErrorDetail(mHostObject, code, summary, summary, (int)line + 1, 0);
  }
}

void QuorlInterpreter::CompilerError(CompileErrorCode code, unsigned long line) {
  ReportCompileErrorDetail(code, line);
  QuorlCompilerErrorHandler handler =
      (QuorlCompilerErrorHandler)EventHandler(kEventCompilerError);
  if (handler) {
    VELDString text = VELDBuildString(kCompilerErrorText, kCompilerErrorTextLength);
    handler(mHostObject, (int)line, (int)code, text);
    VELDUnlockString(text);
  }
  MarkAborted();
}

// The host class that stands for a runtime error of this code: the raw
// event names a stack overflow "stackOverflowException", as hosts have
// always been asked to make it.
static char const* HostErrorClassName(RuntimeErrorCode code) {
  if (code == kRuntimeErrorStackOverflow || code == kRuntimeErrorStackOverflow2)
    return "stackOverflowException";
  return RuntimeErrorClassName(code);
}

// The frames as the boundary carries them; the names stay with `stack`.
void QuorlInterpreter::ReportCallStack(ScriptCallStack const& stack) {
  SimpleVector<QuorlStackFrame> frames;
  for (unsigned long i = 0; i < stack.mFrames.size(); i++) {
    QuorlStackFrame frame = {stack.mFrames[i].mFunction.CString(),
                             static_cast<int32_t>(stack.mFrames[i].mLine)};
    frames.push_back(frame);
  }
  QuorlRuntimeCallStack(mHostObject, frames.size() ? &frames[0] : nullptr,
                        static_cast<int32_t>(frames.size()),
                        stack.mMoreFrames ? 0 : 1);
}

// The detail of an exception of the script's comes from the runtime, which
// saw where it was raised; a report of the runtime's own (no class to be
// had, or no exception behind it) names the class the host event names.
void QuorlInterpreter::ReportRuntimeErrorDetail(RuntimeErrorCode code) {
  UncaughtExceptionDetail const& uncaught = LastUncaughtException();
  bool fromException = code != kRuntimeErrorNoExceptionClass &&
                       !uncaught.mClassName.IsEmpty();
  if (fromException) ReportCallStack(uncaught.mCallStack);
  QuorlRuntimeErrorDetail(
      mHostObject, fromException ? (int)uncaught.mLine : 0,
      fromException ? uncaught.mClassName.CString() : HostErrorClassName(code),
      fromException ? uncaught.mMessage.CString() : "",
      fromException ? int(uncaught.mErrorNumber) : 0);
}

// A stop is what the host asked for, not an error of the script: the host
// hears of it on its own, and no RuntimeError event is raised.
void QuorlInterpreter::RuntimeError(RuntimeErrorCode code, unsigned long line) {
  if (code == kRuntimeErrorStopped) {
    QuorlScriptStopped(mHostObject);
    MarkAborted();
    return;
  }
  ReportRuntimeErrorDetail(code);
  QuorlRuntimeErrorHandler handler =
      (QuorlRuntimeErrorHandler)EventHandler(kEventRuntimeError);
  if (handler) {
    VELDObject error = VELDnewInstance(HostErrorClassName(code));
    handler(mHostObject, (int)line, error);
    if (error) VELDUnlockObject(error);
  }
  MarkAborted();
}

void QuorlInterpreter::YieldToOtherThreads() { VELDYieldToQuorl(); }
unsigned long QuorlInterpreter::GetStackLimit() { return VELDGetStackLimit(); }
void QuorlInterpreter::SetStackLimit(unsigned long limit) { VELDSetStackLimit(limit); }
void QuorlInterpreter::InitStackChecker(unsigned long base) { VELDInitStackChecker(base); }
