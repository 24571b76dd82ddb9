// The register cache: schemes, lookups, allocation and invalidation.
#include "Compiler/BackEnds/IA-32/CGIA32.h"

#include "Universal/Assertion.h"

bool CGIA32::RegMatchesScheme(int reg, int scheme) {
  return reg >= 0 && reg < kRegisterCount && ((scheme >> reg) & 1);
}

bool CGIA32::IsXMMScheme(int scheme) {
  return (static_cast<unsigned int>(scheme) & kXMMSchemeBits) != 0;
}

int CGIA32::SchemeExclude(int reg, int scheme) {
  QASSERT_TEXT(reg >= 0 and reg < kRegisterCount,
               "reg >= 0 and reg < kRegisterCount");
  return scheme & ~RegisterBit(reg);
}

int CGIA32::SchemeExclude2(int reg1, int reg2, int scheme) {
  return SchemeExclude(reg2, SchemeExclude(reg1, scheme));
}

int CGIA32::SchemeExclude3(int reg1, int reg2, int reg3, int scheme) {
  return SchemeExclude(reg3, SchemeExclude2(reg1, reg2, scheme));
}

int CGIA32::ModDisp(int disp) {
  return disp >= -128 && disp <= 127 ? kModDisplacement8 : kModDisplacement32;
}

// Only the bank the scheme names is searched: floats live in the SSE bank,
// everything else in the general one. A hit outside the scheme still
// counts, so the caller can copy the value instead of reloading it.
bool CGIA32::LocateLoadedAddr(TacAddr const* addr, int scheme,
                              int* foundWhere) {
  RegisterState* bank = Bank(scheme);
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

void CGIA32::Touch(int reg) {
  QASSERT_TEXT(!(mHomeMask & RegisterBit(reg)), "a home register is never changed");
  Touch(&mRegisters[reg]);
}

void CGIA32::Touch(RegisterState* state) {
  state->Clear();
  state->mUsed = true;
}

// The one eviction policy: the preferred register if it is free (general
// bank only), else the first free register of the scheme, else the one
// least recently hit, the lowest number on a tie.
int CGIA32::AllocateRegister(int scheme, int preferred) {
  QASSERT_TEXT(0 != scheme, "0 != scheme");
  scheme &= ~(IsXMMScheme(scheme) ? mXMMHomeMask : mHomeMask);
  QASSERT_TEXT(0 != scheme, "a scheme of home registers only");
  RegisterState* bank = Bank(scheme);
  int chosen = kNoRegister;
  if (!IsXMMScheme(scheme) && RegMatchesScheme(preferred, scheme) &&
      !bank[preferred].Valid())
    chosen = preferred;
  for (int reg = 0; chosen == kNoRegister && reg < kRegisterCount; reg++)
    if (RegMatchesScheme(reg, scheme) && !bank[reg].Valid()) chosen = reg;
  for (int reg = 0; chosen == kNoRegister && reg < kRegisterCount; reg++) {
    if (!RegMatchesScheme(reg, scheme)) continue;
    int oldest = reg;
    for (int other = reg + 1; other < kRegisterCount; other++)
      if (RegMatchesScheme(other, scheme) &&
          bank[other].mLastUse < bank[oldest].mLastUse)
        oldest = other;
    chosen = oldest;
  }
  QASSERT_TEXT(chosen != kNoRegister, "register scheme without a register");
  Touch(&bank[chosen]);
  bank[chosen].mLastUse = HitClock();
  return chosen;
}

void CGIA32::AllocateInt64Registers(int* hi, int* lo, int scheme) {
  *lo = AllocateRegister(scheme, kNoRegister);
  *hi = AllocateRegister(SchemeExclude(*lo, scheme), kNoRegister);
}

void CGIA32::InvalidateRegisters() {
  for (int reg = 0; reg < kRegisterCount; reg++) {
    mRegisters[reg].Clear();
    mXMMRegisters[reg].Clear();
  }
  KeepHomeRecords();
}

void CGIA32::ResetRegisters() {
  for (int reg = 0; reg < kRegisterCount; reg++) {
    mRegisters[reg] = RegisterState();
    mXMMRegisters[reg] = RegisterState();
  }
}

void CGIA32::ForgetAddr(TacAddr const* addr) {
  for (int reg = 0; reg < kRegisterCount; reg++) {
    while (mRegisters[reg].Contains(addr)) mRegisters[reg].Clear(addr);
    while (mXMMRegisters[reg].Contains(addr)) mXMMRegisters[reg].Clear(addr);
  }
}
