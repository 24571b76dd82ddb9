// The pragma state of a compilation: what checks and hooks the generated
// code gets. The compiler holds the initial values; the context holds the
// current ones, saved per method.
#ifndef COMPILER_FRONTEND_LANGUAGEOPTIONS_H
#define COMPILER_FRONTEND_LANGUAGEOPTIONS_H

#include <stdint.h>

struct LanguageOptions {
  uint8_t mBoundsChecking = 1;           // array index checks
  uint8_t mBackgroundTasks = 1;          // yield calls in loops
  uint8_t mNilObjectChecking = 1;        // checks before object use
  uint8_t mStackOverflowChecking = 1;    // stack probe in prologs
  uint8_t mDebug = 0;                    // debugger hooks per statement
  uint8_t mAutoWaitCursorDisabled = 0;
  uint8_t mLockRefCountedParameters = 1;
  uint8_t mProfileCode = 0;
  uint16_t mX86CallingConvention = 0;    // 0 CDecl, 1 StdCall
};

#endif
