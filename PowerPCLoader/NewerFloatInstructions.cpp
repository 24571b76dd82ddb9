#include "PowerPCLoader/NewerFloatInstructions.h"

#include <signal.h>
#include <stdint.h>
#include <string.h>
#include <ucontext.h>

namespace ppcloader {
namespace {

enum {
  kFloatOpcode = 63,
  kMoveFromFPSCR = 583,
  kClearEnables = 1,       // mffsce
  kSetRoundingFromRegister = 22,  // mffscrn
  kSetRoundingImmediate = 23,     // mffscrni
  kProgramCounter = 32,    // PT_NIP
  kEnableBits = 0xf8,      // VE, OE, UE, ZE, XE
  kRoundingBits = 3,
};

double FromBits(uint64_t bits) {
  double value;
  memcpy(&value, &bits, sizeof value);
  return value;
}

uint64_t ToBits(double value) {
  uint64_t bits;
  memcpy(&bits, &value, sizeof bits);
  return bits;
}

// The variants with a non-zero RA field: FRT receives the status and
// control register; some also change it.
void OnIllegalInstruction(int, siginfo_t*, void* context) {
  mcontext_t* machine = static_cast<ucontext_t*>(context)->uc_mcontext.uc_regs;
  uint32_t* pc = reinterpret_cast<uint32_t*>(machine->gregs[kProgramCounter]);
  uint32_t word = *pc;
  if ((word >> 26) != kFloatOpcode || ((word >> 1) & 0x3ff) != kMoveFromFPSCR) {
    signal(SIGILL, SIG_DFL);
    return;
  }
  int frt = (word >> 21) & 31, variant = (word >> 16) & 31, frb = (word >> 11) & 31;
  uint32_t fpscr = static_cast<uint32_t>(ToBits(machine->fpregs.fpscr));
  machine->fpregs.fpregs[frt] = FromBits(0xfff8000000000000ull | fpscr);
  if (variant == kClearEnables) fpscr &= ~kEnableBits;
  if (variant == kSetRoundingFromRegister)
    fpscr = (fpscr & ~kRoundingBits) |
            (ToBits(machine->fpregs.fpregs[frb]) & kRoundingBits);
  if (variant == kSetRoundingImmediate)
    fpscr = (fpscr & ~kRoundingBits) | (frb & kRoundingBits);
  machine->fpregs.fpscr = FromBits(fpscr);
  machine->gregs[kProgramCounter] += 4;
}

}  // namespace

void EmulateNewerFloatInstructions() {
  struct sigaction action;
  memset(&action, 0, sizeof action);
  action.sa_sigaction = OnIllegalInstruction;
  action.sa_flags = SA_SIGINFO;
  sigaction(SIGILL, &action, nullptr);
}

}  // namespace ppcloader
