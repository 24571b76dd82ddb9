// The raiser for PowerPC code: the runtime's own walks IA-32 frames, and
// the loader's build makes that one weak so that this one serves.
//
// It walks the back chain from its own frame (FrameWalk). A frame belongs
// to generated code when the return address into its function points into
// the module's code; from there it scans forward, word by word up to the
// function's blr, for the records of the exception markers. A region's
// record is "b 8" and its marker; a landing pad is a branch, the marker
// 1041, the frame offset of the exception variable, and where a raise
// resumes. The return address is pointed at that resume point, and the
// raiser returns: every frame in between returns normally into it.
#include "PowerPCLoader/ExceptionRaiser.h"

#include <stdint.h>

#include "Common/ObjectModel/RuntimeExceptionFoundation.h"
#include "Compiler/BackEnds/Minilinker/QuorlScriptIntrinsics.h"
#include "PowerPCLoader/FrameWalk.h"
#include "PowerPCLoader/LoadedCode.h"

namespace {

enum {
  kHandlerBlockMarker = 1041,
  kTryBeginMarker = 1042,
  kTryEndMarker = 1043,
  kBranchOpcode = 18,
  kReturnInstruction = 0x4e800020,  // blr
  kFrameOffsetWord = 2,
  kResumeWord = 3,
};

// A return address lies past its bl, which may end the line.
int const kCallInstructionBytes = 4;

bool IsRecordBranch(uint32_t word) {
  return (word >> 26) == kBranchOpcode && (word & 3) == 0;
}

uint32_t* FindLandingPad(uint32_t* code) {
  int depth = 0;
  for (uint32_t* p = code; p[0] != kReturnInstruction; p++) {
    if (!IsRecordBranch(p[0])) continue;
    if (p[1] == kTryBeginMarker) {
      depth++;
    } else if (p[1] == kTryEndMarker) {
      if (depth > 0) depth--;
    } else if (p[1] == kHandlerBlockMarker && depth == 0) {
      return p;
    }
  }
  return nullptr;
}

__attribute__((always_inline)) inline char* StackPointer() {
  char* frame;
  asm volatile("mr %0, 1" : "=r"(frame));
  return frame;
}

// The last exception raised and the line of the innermost script frame
// it was raised from.
struct RaiseSite {
  RuntimeObject* mException = nullptr;
  unsigned long mLine = 0;
};
RaiseSite sLastRaise;
unsigned long sUncaughtLine;

__attribute__((noinline)) void NoteRaiseSite(RuntimeObject* exception) {
  sLastRaise.mException = exception;
  sLastRaise.mLine = 0;
  ppcloader::FrameWalk walk(StackPointer());
  while (walk.Next()) {
    char const* returnAddress =
        reinterpret_cast<char const*>(walk.ReturnAddress());
    if (ppcloader::IsGeneratedCode(returnAddress)) {
      sLastRaise.mLine =
          ppcloader::SourceLineAt(returnAddress - kCallInstructionBytes);
      return;
    }
  }
}

}  // namespace

namespace ppcloader {

void InitRuntimeNotingRaiseLines() {
  RuntimeInit();
  SetExceptionMonitor(NoteRaiseSite);
}

unsigned long UncaughtExceptionLine() { return sUncaughtLine; }

void ReportEndingException(RuntimeObject* exception) {
  sUncaughtLine = exception == sLastRaise.mException ? sLastRaise.mLine : 0;
  RuntimeUnhandledException(exception);
}

}  // namespace ppcloader

__attribute__((noinline)) void ActivateNextExceptionHandler(
    RuntimeObject* exception) {
  ppcloader::FrameWalk walk(StackPointer());
  while (walk.Next()) {
    uint32_t* returnAddress = walk.ReturnAddress();
    if (!ppcloader::IsGeneratedCode(returnAddress)) continue;
    if (uint32_t* pad = FindLandingPad(returnAddress)) {
      int16_t offset = static_cast<int16_t>(pad[kFrameOffsetWord] & 0xffff);
      if (offset != 0) {
        *reinterpret_cast<RuntimeObject**>(walk.Frame() + offset) = exception;
        RuntimeLockObject(exception);
      }
      *walk.ReturnSlot() = pad + kResumeWord;
      return;
    }
  }
  sUncaughtLine = exception == sLastRaise.mException ? sLastRaise.mLine : 0;
  RuntimeUnhandledException(exception);
}
