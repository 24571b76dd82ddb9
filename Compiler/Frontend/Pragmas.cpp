#include "Compiler/Frontend/Pragmas.h"

#include "Compiler/Frontend/ParserError.h"
#include "Compiler/Frontend/SrcContext.h"
#include "Compiler/SemBase.h"
#include "Universal/Assertion.h"
#include "Universal/stringmap.h"

namespace {

// Pragma names to their values, matched without regard to case; built on
// first use and kept for the life of the process.
StringMap<pragmas>* sPragmaTable = nullptr;

StringMap<pragmas>& PragmaTable() {
  if (sPragmaTable) return *sPragmaTable;
  static char const* const kNames[] = {"disableBoundsChecking",
                                       "disableBackgroundTasks",
                                       "disableAutoWaitCursor",
                                       "BoundsChecking",
                                       "BackgroundTasks",
                                       "StackOverflowChecking",
                                       "NilObjectChecking",
                                       "Debug",
                                       "Reset",
                                       "BindingPart",
                                       "BindingDeclaration",
                                       "Deprecated",
                                       "LockRefCountedParameters",
                                       "ProfileCode",
                                       "X86CallingConvention"};
  sPragmaTable = new StringMap<pragmas>;
  for (int i = 0; i <= kPragmaX86CallingConvention; i++)
    sPragmaTable->AddEntry(kNames[i], pragmas(i));
  return *sPragmaTable;
}

uint16_t CallingConvention(SemBase* arg) {
  return arg && arg->toString().CompareWithCase("StdCall") == 0 ? 1 : 0;
}

void ApplyPragma(pragmas which, bool v, SemBase* arg) {
  LanguageOptions& options = gContext->mOptions;
  switch (which) {
    case kPragmaDisableBoundsChecking:
      options.mBoundsChecking = 0;
      break;
    case kPragmaDisableBackgroundTasks:
      options.mBackgroundTasks = 0;
      break;
    case kPragmaDisableAutoWaitCursor:
      options.mAutoWaitCursorDisabled = 1;
      break;
    case kPragmaBoundsChecking:
      options.mBoundsChecking = v;
      break;
    case kPragmaBackgroundTasks:
      options.mBackgroundTasks = v;
      break;
    case kPragmaStackOverflowChecking:
      options.mStackOverflowChecking = v;
      break;
    case kPragmaNilObjectChecking:
      options.mNilObjectChecking = v;
      break;
    case kPragmaDebug:
      options.mDebug = v;
      if (!v) options.mProfileCode = 0;
      break;
    case kPragmaReset:
      ResetPragmas();
      break;
    case kPragmaBindingPart:
    case kPragmaBindingDeclaration:
    case kPragmaDeprecated:
      break;
    case kPragmaLockRefCountedParameters:
      options.mLockRefCountedParameters = v;
      break;
    case kPragmaProfileCode:
      options.mProfileCode = v;
      break;
    case kPragmaX86CallingConvention:
      options.mX86CallingConvention = CallingConvention(arg);
      break;
  }
}

}  // namespace

// A bare pragma counts as false: `#pragma BoundsChecking` turns the checks
// off.
SemBase* CompilePragma(SemBase* name, SemBase* arg) {
  QASSERT(gContext);
  QASSERT(name);
  pragmas which;
  if (!PragmaTable().GetEntry(name->toString(), which)) {
    Error(kErrorUnknownPragma, name->Location());
    return nullptr;
  }
  ApplyPragma(which, arg != nullptr, arg);
  return nullptr;
}

void PushPragmas() {
  QASSERT(gContext);
  gContext->mPragmaStack.push_back(gContext->mOptions);
}

void PopPragmas() {
  QASSERT(gContext);
  unsigned long n = gContext->mPragmaStack.size();
  if (n == 0) return;
  gContext->mOptions = gContext->mPragmaStack[n - 1];
  gContext->mPragmaStack.deleteIdx(n - 1);
}

void ResetPragmas() {
  QASSERT(gContext);
  unsigned long n = gContext->mPragmaStack.size();
  if (n) gContext->mOptions = gContext->mPragmaStack[n - 1];
}
