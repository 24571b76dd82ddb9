#include "Plugin/QuorlScriptInterface.h"

#include <string.h>

#include "Compiler/BackEnds/Minilinker/QuorlScriptIntrinsics.h"
#include "Compiler/BackEnds/Minilinker/minilinker.h"
#include "Plugin/CompileErrorMessages.h"
#include "Universal/Assertion.h"

QuorlScriptInterface::QuorlScriptInterface() {}

QuorlScriptInterface::~QuorlScriptInterface() {
  ForceCompile();
  delete[] mSourceText;
}

void QuorlScriptInterface::ForceCompile() {
  if (!mReadyCode) return;
  delete mReadyCode;
  mReadyCode = nullptr;
}

void QuorlScriptInterface::SetSource(char const* source, unsigned long length) {
  delete[] mSourceText;
  mSourceText = nullptr;
  ForceCompile();
  QASSERT_TEXT(source, "sourceBuf");
  mSourceText = new char[length + 2];
  QASSERT_TEXT(mSourceText, "mSourceText");
  // A C-string copy: it stops at the first NUL and zero-fills the rest, so a
  // NUL inside the text ends the source there.
  strncpy(mSourceText, source, length);
  mSourceText[length] = '\n';
  mSourceText[length + 1] = 0;
}

void QuorlScriptInterface::SetContext(void const* context) {
  ForceCompile();
  mContext = context;
}

void QuorlScriptInterface::RegisterHostMethod(void* entry, bool wantsContext,
                                              char const* declaration) {
  ForceCompile();
  QASSERT_TEXT(entry, "entrypoint");
  QASSERT_TEXT(declaration, "declaration");
  HostMethod method;
  method.mEntry = entry;
  method.mWantsContext = wantsContext;
  method.mDeclaration = string(declaration);
  mHostMethods.push_back(method);
}

void QuorlScriptInterface::RegisterHostProperty(void* getter, void* setter,
                                                long parameter,
                                                char const* declaration) {
  ForceCompile();
  HostProperty property;
  property.mGetter = getter;
  property.mSetter = setter;
  property.mParameter = parameter;
  property.mDeclaration = string(declaration);
  mHostProperties.push_back(property);
}

void QuorlScriptInterface::RegisterHostFunction(void* entry, void* data,
                                                char const* declaration) {
  ForceCompile();
  QASSERT_TEXT(entry, "entrypoint");
  QASSERT_TEXT(declaration, "declaration");
  HostFunction function;
  function.mEntry = entry;
  function.mData = data;
  function.mDeclaration = string(declaration);
  mHostFunctions.push_back(function);
}

void QuorlScriptInterface::ClearHostCallbacks() {
  ForceCompile();
  mHostMethods.deleteAll();
  mHostProperties.deleteAll();
}

// A stop asked for during a run ends with the run; one that arrives when
// nothing runs is forgotten.
void QuorlScriptInterface::Run() {
  mRunning = 1;
  if (!mReadyCode) Precompile();
  if (mReadyCode) {
    // The runtime's stack check compares against the host's limit.
    SetRuntimeStackLimit(GetStackLimit());
    SetRuntimeStopWord(&mStopWord);
    mReadyCode->Run(this);
    SetRuntimeStopWord(nullptr);
  }
  mRunning = 0;
  mStopWord = kStopNone;
}

// The stop is seen at the next yield, brought forward to the next pass.
void QuorlScriptInterface::RequestStop() {
  if (mRunning && mStopWord == kStopNone) mStopWord = kStopRequested;
  RequestYield();
}

void QuorlScriptInterface::RequestYield() {
  RunReadyCode* code = mReadyCode;
  if (mRunning && code) code->BringYieldForward();
}

// The classic report carries the number and the 0-based line; the detail
// waits beside it for the hosts that ask.
int QuorlScriptInterface::CompilerError(CompileError error) {
  SourceLocation const& where = error.Location();
  mPendingError.mValid = true;
  mPendingError.mNumber = error.Type();
  mPendingError.mMessage = CompileErrorText(error, mSourceText);
  mPendingError.mLine = where.mStartLine + 1;
  mPendingError.mColumn = where.mStartOffset < 0 ? 0 : where.mStartOffset + 1;
  CompilerError(error.Type(), where.mStartLine);
  mPendingError.mValid = false;
  return 1;
}

void QuorlScriptInterface::ScriptError(RuntimeErrorCode code, unsigned long line) {
  RuntimeError(code, line);
}

void QuorlScriptInterface::ScriptYield() {
  if (mRunning) YieldToOtherThreads();
}
