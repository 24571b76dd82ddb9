// The yield to the host that every loop iteration makes, done as a
// countdown: a word of the module's data counts down, and the runtime is
// called only when it runs out.
#include "Compiler/BackEnds/IA-32/CGIA32.h"

#include "Compiler/Intrinsics.h"
#include "Universal/Assertion.h"

namespace {

// Passes between two calls of the host. A pass that calls script code
// counts the yields in that code too, so only a loop whose body runs long
// in the runtime alone stretches the time between two calls; at this
// interval even a body of 0.1 ms still lets a time limit stop it within a
// tenth of a second.
int const kYieldInterval = 1000;

// The countdown's home: one word of the module's globals, zero when the
// code is loaded, so the first pass calls the host.
TacAddr const* YieldCountdown() {
  static SymbolAddr const countdown(kGlobalDataStorage, IRDataType(kSInt32Type),
                                    string("% yield countdown"), 0);
  return &countdown;
}

}  // namespace

// The rare path saves and restores every general register, so what the
// cache knows of them survives it; the SSE registers are the C code's to
// use, so what they hold is forgotten. The stack pointer is where the
// frame keeps it between statements, 16-byte aligned, and stays so with
// the eight saved words.
void CGIA32::YieldInLine() {
  IA32Operand countdown = {0, kEBP, 0, kNoRegister, YieldCountdown()};
  EmitGroup(&IA32OpWriter::ia32_dec_mem, &IA32OpWriter::ia32_dec_mem, countdown);
  long over = NewLocalLabel();
  EmitBranch(&IA32OpWriter::ia32_jns, 2, over);
  ia32_pushad();
  ia32_mov_imm32(kEAX, kYieldInterval);
  EmitRegMem(&IA32OpWriter::ia32_mov_store, &IA32OpWriter::ia32_mov_store,
             &IA32OpWriter::ia32_mov_store, kEAX, countdown);
  MarkImport(Import::kImportCall32,
             mIntrinsicLinkNames[kIntrinsicVELDYieldToQuorl], 1);
  ia32_call_disp32(0);
  ia32_popad();
  PlaceLabel(over);
  for (int reg = 0; reg < kXMMRegisterCount; reg++) mXMMRegisters[reg].Clear();
  mRegisters[kEAX].mUsed = true;
}
