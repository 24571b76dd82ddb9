#include "Plugin/QuorlScriptInterface.h"

#include <string.h>

#include "Compiler/BackEnds/Minilinker/QuorlScriptIntrinsics.h"
#include "Compiler/BackEnds/Minilinker/minilinker.h"
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

void QuorlScriptInterface::ClearHostCallbacks() {
  ForceCompile();
  mHostMethods.deleteAll();
  mHostProperties.deleteAll();
}

void QuorlScriptInterface::Run() {
  mRunning = 1;
  if (!mReadyCode) Precompile();
  if (mReadyCode) {
    // The runtime's stack check compares against the host's limit.
    SetRuntimeStackLimit(GetStackLimit());
    mReadyCode->Run(this);
  }
  mRunning = 0;
}

int QuorlScriptInterface::CompilerError(CompileError error) {
  CompilerError(error.Type(), error.Location().mStartLine);
  return 1;
}

void QuorlScriptInterface::ScriptError(RuntimeErrorCode code, unsigned long line) {
  RuntimeError(code, line);
}

void QuorlScriptInterface::ScriptYield() {
  if (mRunning) YieldToOtherThreads();
}
