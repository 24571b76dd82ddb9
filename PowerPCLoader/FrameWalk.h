// The frames above a C function of the loader, outward, each with the word
// that holds the return address into its function.
//
// Generated code and the call bridges keep a call's return address at 8 in
// the caller's frame; the platform's C code and the entry thunks keep it at
// 4. Which word of a frame holds it is therefore decided by the function
// the frame called, and that function is known from the step before: the
// walk starts in C. Reading the other word would find whatever an earlier
// frame at that address left there, often a return address into a script
// function that has since returned.
#ifndef POWERPCLOADER_FRAMEWALK_H
#define POWERPCLOADER_FRAMEWALK_H

#include <stdint.h>

namespace ppcloader {

class FrameWalk {
 public:
  // From `frame`, the frame of a C function (the walk's own caller's).
  explicit FrameWalk(char* frame);
  // One frame outward; false at the end of the chain.
  bool Next();
  char* Frame() const { return mFrame; }
  // Where the return address into the frame's function is kept, and what
  // it is.
  uint32_t** ReturnSlot() const { return mSlot; }
  uint32_t* ReturnAddress() const { return *mSlot; }

 private:
  char* mFrame;
  char* mLimit;
  int mCalleeLinkOffset;  // where the function this frame called saved its link
  uint32_t** mSlot = nullptr;
};

}  // namespace ppcloader

#endif
