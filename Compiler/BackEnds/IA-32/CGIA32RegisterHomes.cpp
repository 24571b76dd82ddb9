// Register homes: in an optimized function, the Int32 variables used most
// inside loops live in EBX, ESI and EDI for the whole function, and the
// Double variables used most inside loops in XMM4 to XMM7.
//
// The memory home stays the truth: every store writes memory and the
// register together, so the register can be given up (a call that may
// change a global, a raise that lands in a handler) by reading memory
// again, and the exception machinery and callees see what they always saw.
// What the register adds is that it survives labels, which the cache of
// the other registers does not: every path into a label keeps the
// register equal to memory, so there is nothing to reconcile. The SSE
// registers are nobody's to keep across a call, so their homes are read
// again after every call, and on the rare paths of the in-line checks.
//
// A pinned register is never handed out by AllocateRegister and never
// holds anything but its variable; code that changes a loaded value gets a
// copy, code that only reads may use the register itself (LoadForReading).
#include "Compiler/BackEnds/IA-32/CGIA32.h"

#include "Universal/Assertion.h"
#include "Universal/IntMap.h"

namespace {

int const kHomeRegisters[] = {kEBX, kESI, kEDI};
int const kHomeRegisterCount = 3;
// The SSE registers below these stay for the operations' own use.
int const kXMMHomeRegisters[] = {4, 5, 6, 7};
int const kXMMHomeRegisterCount = 4;
// A use inside n nested loops counts kLoopWeight^n; a variable must be used
// inside a loop to earn a register.
long const kLoopWeight = 8;
int const kDeepestWeightedLoop = 5;

// 0 for a general register, 1 for an SSE register, -1 for neither.
int RegisterBankFor(CGIA32::OperandHome const& home) {
  if (home.storage != kStackDataStorage && home.storage != kGlobalDataStorage)
    return -1;
  SimpleDataType type = home.addr->mType.GetMainType();
  if (type == kSInt32Type || type == kUInt32Type) return 0;
  if (type == kReal64Type) return 1;
  return -1;
}

CGIA32::OperandHome HomeOf(TacAddr const* addr) {
  StorageClass storage = addr->GetStorageClass();
  unsigned long start = storage == kStackDataStorage ? addr->StorageOffset() : 0;
  return {addr, storage, start, addr->mType.StorageSize()};
}

bool SameOrOverlappingHome(CGIA32::OperandHome const& a,
                           CGIA32::OperandHome const& b) {
  if (a.storage != b.storage) return false;
  if (a.storage == kGlobalDataStorage) return a.addr->LinkID() == b.addr->LinkID();
  if (a.storage != kStackDataStorage) return false;
  return a.start < b.start + b.size && b.start < a.start + a.size;
}

// Lines that need more than the three registers left over, or that reach
// a home through its address.
bool RulesOutRegisterHomes(TacLine const& line) {
  TacAddr const* operands[] = {line.opA, line.opB, line.result};
  for (TacAddr const* addr : operands) {
    if (addr == nilTacAddr) continue;
    if (CodeGenerator::AddrIsInt64(addr) || CodeGenerator::AddrIsStruct(addr))
      return true;
  }
  return false;
}

bool TakesAddress(TacLine const& line) {
  return line.opcode == kTacVarptr || line.opcode == kTacEndianSwap;
}

}  // namespace

// Loop depth comes from backward branches: the lines from a label to a
// later branch back to it are one loop.
void CGIA32::ChooseRegisterHomes(TacLine const* enter) {
  SimpleVector<TacLine const*> lines;
  for (TacLine const* line = enter->mNext; line; line = line->mNext) {
    if (line->opcode == kTacEnter) break;
    lines.push_back(line);
    if (line->opcode == kTacLeave || line->opcode == kTacStop) break;
  }
  for (unsigned long i = 0; i < lines.size(); i++)
    if (lines[i]->opcode == kTacHandleException) mHasLandingPad = true;
  SimpleVector<long> depthChange;
  depthChange.resize(lines.size() + 1);
  for (unsigned long i = 0; i <= lines.size(); i++) depthChange.push_back(0);
  IntMap<unsigned long> labelAt;
  for (unsigned long i = 0; i < lines.size(); i++) {
    TacLine const& line = *lines[i];
    if (RulesOutRegisterHomes(line)) return;
    if (line.opcode == kTacLabel) labelAt.AddEntry(line.opA->GetValue()->uSInt32, i);
    bool branch = line.opcode == kTacJump ||
                  (line.opcode >= kTacIfEQI && line.opcode <= kTacIfLTU);
    unsigned long target;
    if (branch && labelAt.GetEntry(line.result->GetValue()->uSInt32, target)) {
      depthChange[target]++;
      depthChange[i + 1]--;
    }
  }
  SimpleVector<HomeCandidate> candidates;
  SimpleVector<OperandHome> homes;
  // Each operand met: its candidate's index, or -1 when it is no candidate.
  mMetOperands.Clear();
  long depth = 0;
  for (unsigned long i = 0; i < lines.size(); i++) {
    depth += depthChange[i];
    long weight = 1;
    for (long d = 0; d < depth && d < kDeepestWeightedLoop; d++) weight *= kLoopWeight;
    TacLine const& line = *lines[i];
    TacAddr const* operands[] = {line.opA, line.opB, line.result};
    for (TacAddr const* addr : operands) {
      if (addr == nilTacAddr || addr->IsConstant()) continue;
      long index;
      if (!mMetOperands.Find(addr, &index)) {
        homes.push_back(HomeOf(addr));
        index = -1;
        int bank = RegisterBankFor(homes.peek_back());
        if (bank >= 0) {
          index = (long)candidates.size();
          HomeCandidate fresh = {homes.size() - 1, 0, false, bank};
          candidates.push_back(fresh);
        }
        mMetOperands.Add(addr, index);
      }
      if (index < 0) continue;
      candidates[index].weight += weight;
      if (TakesAddress(line)) candidates[index].addressed = true;
    }
  }
  PickHomes(candidates, homes, 0, kHomeRegisters, kHomeRegisterCount);
  if (mOptions.mUseSSE2FloatingPointMath)
    PickHomes(candidates, homes, 1, kXMMHomeRegisters, kXMMHomeRegisterCount);
}

// The heaviest candidates of the bank that share their home with no other
// operand, one per register.
void CGIA32::PickHomes(SimpleVector<HomeCandidate>& candidates,
                       SimpleVector<OperandHome> const& operands, int bank,
                       int const* registers, int count) {
  for (int home = 0; home < count; home++) {
    long best = -1;
    for (unsigned long i = 0; i < candidates.size(); i++) {
      HomeCandidate const& c = candidates[i];
      if (c.bank != bank || c.addressed || c.weight < kLoopWeight) continue;
      if (best < 0 || c.weight > candidates[best].weight) best = i;
    }
    if (best < 0) break;
    HomeCandidate& chosen = candidates[best];
    chosen.addressed = true;  // taken: not offered again
    OperandHome const& own = operands[chosen.operand];
    bool shared = false;
    for (unsigned long i = 0; i < operands.size() && !shared; i++)
      shared = i != chosen.operand && SameOrOverlappingHome(operands[i], own);
    if (shared) {
      home--;
      continue;
    }
    int reg = registers[home];
    RegisterState* states = bank ? mXMMRegisters : mRegisters;
    (bank ? mXMMHomes : mHomes)[reg] = own.addr;
    (bank ? mXMMHomeMask : mHomeMask) |= RegisterBit(reg);
    states[reg].mUsed = true;
    states[reg].Record(own.addr);
  }
}

int CGIA32::HomeRegisterOf(TacAddr const* addr) const {
  TacAddr const* const* homes = addr->mType.IsFloat() ? mXMMHomes : mHomes;
  if (!(addr->mType.IsFloat() ? mXMMHomeMask : mHomeMask)) return kNoRegister;
  for (int reg = 0; reg < kRegisterCount; reg++)
    if (homes[reg] == addr) return reg;
  return kNoRegister;
}

void CGIA32::ClearRegisterHomes() {
  for (int reg = 0; reg < kRegisterCount; reg++) {
    mHomes[reg] = nilTacAddr;
    mXMMHomes[reg] = nilTacAddr;
  }
  mHomeMask = 0;
  mXMMHomeMask = 0;
  mHasLandingPad = false;
}

// After the cache is dropped, each home register still holds its variable.
void CGIA32::KeepHomeRecords() {
  for (int reg = 0; reg < kRegisterCount; reg++) {
    if (mHomes[reg] != nilTacAddr) {
      mRegisters[reg].Clear();
      mRegisters[reg].Record(mHomes[reg]);
    }
    if (mXMMHomes[reg] != nilTacAddr) {
      mXMMRegisters[reg].Clear();
      mXMMRegisters[reg].Record(mXMMHomes[reg]);
    }
  }
}

void CGIA32::ReloadHomeRegisters(HomesToReload which) {
  for (int reg = 0; reg < kRegisterCount; reg++) {
    TacAddr const* addr = mHomes[reg];
    if (addr == nilTacAddr || which == kReloadSSEHomes) continue;
    if (which != kReloadAllHomes && addr->GetStorageClass() != kGlobalDataStorage)
      continue;
    EmitRegMem(&IA32OpWriter::ia32_mov, &IA32OpWriter::ia32_mov,
               &IA32OpWriter::ia32_mov, reg, AddressOf(addr, kSelectAnyGPR));
  }
  for (int reg = 0; reg < kRegisterCount; reg++) {
    TacAddr const* addr = mXMMHomes[reg];
    if (addr == nilTacAddr) continue;
    if (which == kReloadGlobalHomes && addr->GetStorageClass() != kGlobalDataStorage)
      continue;
    EmitRegMem(&IA32OpWriter::ia32_movsd, &IA32OpWriter::ia32_movsd,
               &IA32OpWriter::ia32_movsd, reg, AddressOf(addr, kSelectAnyGPR));
  }
  KeepHomeRecords();
}

int CGIA32::LoadForReading(TacAddr const* addr, int scheme) {
  int home = HomeRegisterOf(addr);
  if (home != kNoRegister) return home;
  return LoadTacAddr(addr, scheme);
}

// The variable's register follows every store to its home.
void CGIA32::FollowHome(int reg, TacAddr const* dest) {
  int home = HomeRegisterOf(dest);
  if (home == kNoRegister) return;
  bool xmm = dest->mType.IsFloat();
  if (home != reg) {
    if (xmm)
      ia32_movsd(kModRegister, home, reg);
    else
      ia32_mov(kModRegister, home, reg);
  }
  RegisterState* states = xmm ? mXMMRegisters : mRegisters;
  states[home].Clear();
  states[home].Record(dest);
}

// A float place written from the x87 stack: its register reads it back.
void CGIA32::RefreshHome(TacAddr const* dest) {
  int home = HomeRegisterOf(dest);
  if (home == kNoRegister) return;
  EmitRegMem(&IA32OpWriter::ia32_movsd, &IA32OpWriter::ia32_movsd,
             &IA32OpWriter::ia32_movsd, home, AddressOf(dest, kSelectVolatileGPR));
  mXMMRegisters[home].Clear();
  mXMMRegisters[home].Record(dest);
}
