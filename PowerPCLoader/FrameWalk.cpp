#include "PowerPCLoader/FrameWalk.h"

#include "Common/ObjectModel/RuntimeThread.h"
#include "PowerPCLoader/LoadedCode.h"

namespace ppcloader {

FrameWalk::FrameWalk(char* frame)
    : mFrame(frame),
      mLimit(static_cast<char*>(GetCurrentRuntimeThread()->StackBase())),
      mCalleeLinkOffset(kPlatformLinkOffset) {}

bool FrameWalk::Next() {
  char* next = *reinterpret_cast<char**>(mFrame);
  if (next <= mFrame || next >= mLimit) return false;
  mSlot = reinterpret_cast<uint32_t**>(next + mCalleeLinkOffset);
  mFrame = next;
  mCalleeLinkOffset = LinkOffsetOf(*mSlot);
  return true;
}

}  // namespace ppcloader
