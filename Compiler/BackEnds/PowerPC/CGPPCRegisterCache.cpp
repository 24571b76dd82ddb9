// The register cache: schemes, lookups, allocation and invalidation, for
// the general and the float bank.
#include "Compiler/BackEnds/PowerPC/CGPPC.h"

#include "Universal/Assertion.h"

namespace {

// The order in which free registers are taken: the volatile ones first,
// then the callee-saved ones from the top, so that the prologue's stmw
// saves as few as it can.
int const kAllocationOrder[] = {3,  4,  5,  6,  7,  8,  9,  10, 11, 12, 31,
                                30, 29, 28, 27, 26, 25, 24, 23, 22, 21, 20,
                                19, 18, 17, 16, 15, 14, 1,  2,  13, 0};
int const kFloatAllocationOrder[] = {1,  2,  3,  4,  5,  6,  7,  8,
                                     9,  10, 11, 12, 13, 31, 30, 29,
                                     28, 27, 26, 25, 24, 23, 22, 21,
                                     20, 19, 18, 17, 16, 15, 14, 0};

}  // namespace

bool CGPPC::RegMatchesScheme(int reg, unsigned long scheme) {
  return reg >= 0 && reg < kRegisterCount && ((scheme >> reg) & 1);
}

unsigned long CGPPC::SchemeExclude(int reg, unsigned long scheme) {
  QASSERT_TEXT(reg >= 0 and reg < kRegisterCount,
               "reg >= 0 and reg < kRegisterCount");
  return scheme & ~(1ul << reg);
}

bool CGPPC::LocateLoadedAddr(TacAddr const* addr, bool isFloat,
                             unsigned long scheme, int* foundWhere) {
  RegisterState* bank = Bank(isFloat);
  bool found = false;
  for (int reg = 0; reg < kRegisterCount; reg++) {
    if (!bank[reg].Contains(addr)) continue;
    *foundWhere = reg;
    found = true;
    if (RegMatchesScheme(reg, scheme)) break;
  }
  if (found) bank[*foundWhere].mLastUse = HitClock();
  return found;
}

void CGPPC::Touch(bool isFloat, int reg) {
  RegisterState& state = Bank(isFloat)[reg];
  state.Clear();
  state.mUsed = true;
}

// Registers holding arguments already loaded for a call are never chosen.
int CGPPC::AllocateRegister(bool isFloat, unsigned long scheme) {
  scheme &= ~(isFloat ? mReservedFloats : mReserved);
  QASSERT_TEXT(0 != scheme, "0 != scheme");
  RegisterState* bank = Bank(isFloat);
  int const* order = isFloat ? kFloatAllocationOrder : kAllocationOrder;
  int chosen = kNoRegister;
  for (int i = 0; chosen == kNoRegister && i < kRegisterCount; i++)
    if (RegMatchesScheme(order[i], scheme) && !bank[order[i]].Valid())
      chosen = order[i];
  for (int i = 0; chosen == kNoRegister && i < kRegisterCount; i++) {
    if (!RegMatchesScheme(order[i], scheme)) continue;
    int oldest = order[i];
    for (int j = i + 1; j < kRegisterCount; j++)
      if (RegMatchesScheme(order[j], scheme) &&
          bank[order[j]].mLastUse < bank[oldest].mLastUse)
        oldest = order[j];
    chosen = oldest;
  }
  QASSERT_TEXT(chosen != kNoRegister, "register scheme without a register");
  Touch(isFloat, chosen);
  bank[chosen].mLastUse = HitClock();
  return chosen;
}

void CGPPC::InvalidateRegisters() {
  for (int reg = 0; reg < kRegisterCount; reg++) {
    mRegisters[reg].Clear();
    mFloatRegisters[reg].Clear();
  }
}

void CGPPC::ResetRegisters() {
  for (int reg = 0; reg < kRegisterCount; reg++) {
    mRegisters[reg] = RegisterState();
    mFloatRegisters[reg] = RegisterState();
  }
}

void CGPPC::ForgetAddr(TacAddr const* addr) {
  for (int reg = 0; reg < kRegisterCount; reg++) {
    while (mRegisters[reg].Contains(addr)) mRegisters[reg].Clear(addr);
    while (mFloatRegisters[reg].Contains(addr)) mFloatRegisters[reg].Clear(addr);
  }
}
