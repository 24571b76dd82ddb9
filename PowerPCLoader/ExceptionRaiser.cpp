// The raiser for PowerPC code: the runtime's own walks IA-32 frames, and
// the loader's build makes that one weak so that this one serves.
//
// It walks the back chain from its own frame. A frame belongs to generated
// code when the word at 8 in it, where its callee saved the return address,
// points into the module's code; from there it scans forward, word by word
// up to the function's blr, for the records of the exception markers. A
// region's record is "b 8" and its marker; a landing pad is a branch, the
// marker 1041, the frame offset of the exception variable, and where a
// raise resumes. The return address is pointed at that resume point, and
// the raiser returns: every frame in between returns normally into it.
#include <stdint.h>

#include "Common/ObjectModel/RuntimeExceptionFoundation.h"
#include "Common/ObjectModel/RuntimeThread.h"
#include "PowerPCLoader/LoadedCode.h"

namespace {

enum {
  kHandlerBlockMarker = 1041,
  kTryBeginMarker = 1042,
  kTryEndMarker = 1043,
  kBranchOpcode = 18,
  kReturnInstruction = 0x4e800020,  // blr
  kSavedLinkOffset = 8,
  kFrameOffsetWord = 2,
  kResumeWord = 3,
};

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

}  // namespace

__attribute__((noinline)) void ActivateNextExceptionHandler(
    RuntimeObject* exception) {
  char* limit = static_cast<char*>(GetCurrentRuntimeThread()->StackBase());
  char* frame;
  asm volatile("mr %0, 1" : "=r"(frame));
  while (frame && frame < limit) {
    char* next = *reinterpret_cast<char**>(frame);
    if (next <= frame) break;
    uint32_t** saved = reinterpret_cast<uint32_t**>(frame + kSavedLinkOffset);
    uint32_t* returnAddress = *saved;
    if (ppcloader::IsGeneratedCode(returnAddress)) {
      if (uint32_t* pad = FindLandingPad(returnAddress)) {
        int16_t offset = static_cast<int16_t>(pad[kFrameOffsetWord] & 0xffff);
        if (offset != 0) {
          *reinterpret_cast<RuntimeObject**>(frame + offset) = exception;
          RuntimeLockObject(exception);
        }
        *saved = pad + kResumeWord;
        return;
      }
    }
    frame = next;
  }
  RuntimeUnhandledException(exception);
}
