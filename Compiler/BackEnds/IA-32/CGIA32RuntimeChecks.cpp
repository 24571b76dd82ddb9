// The checks an optimized function makes on every loop pass and every
// entry, done in line: the runtime is called only on the rare path, which
// saves and restores every general register so that what the cache knows
// of them survives it. The SSE registers are the C code's to use, so what
// they hold is forgotten there. Both rare paths start where the stack
// pointer is the frame's own between statements, 16-byte aligned, and stay
// aligned with the eight saved words.
#include "Compiler/BackEnds/IA-32/CGIA32.h"

#include "Compiler/Intrinsics.h"
#include "Universal/Assertion.h"

namespace {

// Passes between two calls of the host. A pass that calls script code
// counts the yields in that code too, so only a loop whose body runs long
// in the runtime alone stretches the time between two calls; at this
// interval a body of 0.1 ms still lets a time limit stop it within a
// tenth of a second.
int const kYieldInterval = 1000;

// What the runtime serves besides the intrinsics: the lowest address the
// stack may reach, 0 for no limit.
char const kStackLimitFunction[] = "RuntimeStackLimit";

TacAddr const* ModuleWord(char const* name) {
  return new SymbolAddr(kGlobalDataStorage, IRDataType(kSInt32Type),
                        string(name), 0);
}

// The countdown: one word of the module's globals, zero when the code is
// loaded or run again, so the first pass calls the host.
TacAddr const* YieldCountdown() {
  static TacAddr const* const countdown = ModuleWord(kYieldCountdownWord);
  return countdown;
}

// The stack limit as the runtime last gave it; zero for not known yet,
// which makes the next check ask. The host may change the limit while it
// has its turn, so a yield forgets it.
TacAddr const* StackLimitCache() {
  static TacAddr const* const limit = ModuleWord("% stack limit");
  return limit;
}

IA32Operand Absolute(TacAddr const* global) {
  IA32Operand where = {0, kEBP, 0, CGIA32::kNoRegister, global};
  return where;
}

}  // namespace

char const kYieldCountdownWord[] = "% yield countdown";

// The SSE registers but the homes hold what the C code left.
void CGIA32::ForgetSSERegisters() {
  for (int reg = 0; reg < kXMMRegisterCount; reg++) mXMMRegisters[reg].Clear();
  KeepHomeRecords();
}

void CGIA32::CallByName(string const& name) {
  MarkImport(Import::kImportCall32, name, 1);
  ia32_call_disp32(0);
}

void CGIA32::StoreEAXTo(TacAddr const* global) {
  EmitRegMem(&IA32OpWriter::ia32_mov_store, &IA32OpWriter::ia32_mov_store,
             &IA32OpWriter::ia32_mov_store, kEAX, Absolute(global));
}

void CGIA32::CallOnRarePath(unsigned int functionID) {
  ia32_pushad();
  CallByName(mIntrinsicLinkNames[functionID]);
  ia32_popad();
  ReloadHomeRegisters(kReloadSSEHomes);
}

// The nil test of an object or array the front end writes as
//   IfNEI value, 0 -> ok;  Intrinsic RuntimeNilObject;  Label ok
// where nothing else jumps to `ok`: the test and its raise on a rare path,
// with no label that would end what the registers are known to hold.
bool CGIA32::NilCheckInLine(TacLine const& line) {
  if (!mOptions.mOptimizeCode || !mOptions.mUseSSE2FloatingPointMath) return false;
  TacLine const* raise = line.mNext;
  TacLine const* label = raise ? raise->mNext : nullptr;
  if (line.opcode != kTacIfNEI || !line.opB->IsConstant() ||
      line.opB->GetValue()->uSInt32 != 0 || !label ||
      raise->opcode != kTacIntrinsic ||
      raise->opA->GetValue()->uSInt32 != kIntrinsicRuntimeNilObject ||
      raise->result != nilTacAddr || mArguments.size() ||
      label->opcode != kTacLabel || label->opA != line.result)
    return false;
  int value = LoadForReading(line.opA, kSelectAnyGPR);
  ia32_cmp_imm8_se(kModRegister, value, 0);
  long fine = NewLocalLabel();
  EmitBranch(&IA32OpWriter::ia32_jne, 2, fine);
  CallOnRarePath(kIntrinsicRuntimeNilObject);
  PlaceLabel(fine);
  ForgetSSERegisters();
  mIterator->Next();
  mIterator->Next();
  return true;
}

void CGIA32::YieldInLine() {
  EmitGroup(&IA32OpWriter::ia32_dec_mem, &IA32OpWriter::ia32_dec_mem,
            Absolute(YieldCountdown()));
  long over = NewLocalLabel();
  EmitBranch(&IA32OpWriter::ia32_jns, 2, over);
  ia32_pushad();
  CallByName(mIntrinsicLinkNames[kIntrinsicVELDYieldToQuorl]);
  ia32_mov_imm32(kEAX, kYieldInterval);
  StoreEAXTo(YieldCountdown());
  ia32_xor(kModRegister, kEAX, kEAX);
  StoreEAXTo(StackLimitCache());
  ia32_popad();
  ReloadHomeRegisters(kReloadSSEHomes);
  PlaceLabel(over);
  ForgetSSERegisters();
  mRegisters[kEAX].mUsed = true;
}

// limit - 1 below the stack pointer, unsigned, is the common case; an
// unknown limit (0) wraps to the top and takes the rare path, which checks
// and then learns the limit.
void CGIA32::CheckStackInLine() {
  int limit = AllocateRegister(kSelectAnyGPR, kNoRegister);
  EmitRegMem(&IA32OpWriter::ia32_mov, &IA32OpWriter::ia32_mov,
             &IA32OpWriter::ia32_mov, limit, Absolute(StackLimitCache()));
  ia32_dec(limit);
  ia32_cmp(kModRegister, limit, kESP);
  long fine = NewLocalLabel();
  EmitBranch(&IA32OpWriter::ia32_jb, 2, fine);
  ia32_pushad();
  CallByName(mIntrinsicLinkNames[kIntrinsicRuntimeCheckStack]);
  CallByName(string(kStackLimitFunction));
  StoreEAXTo(StackLimitCache());
  ia32_popad();
  ReloadHomeRegisters(kReloadSSEHomes);
  PlaceLabel(fine);
  ForgetSSERegisters();
  mRegisters[kEAX].mUsed = true;
}
