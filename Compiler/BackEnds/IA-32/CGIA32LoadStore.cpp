// Moving operands between their homes and registers.
#include "Compiler/BackEnds/IA-32/CGIA32.h"

#include <string.h>

#include "Compiler/InternalFailure.h"
#include "Compiler/SymbolTable/LocalSymbolTable.h"
#include "Universal/Assertion.h"

#define QUORL_RM(op) &IA32OpWriter::op, &IA32OpWriter::op, &IA32OpWriter::op
#define QUORL_GROUP(op) &IA32OpWriter::op, &IA32OpWriter::op

namespace {

unsigned int LowWord(TacAddr const* addr) {
  return static_cast<unsigned int>(addr->GetValue()->uSInt64);
}

unsigned int HighWord(TacAddr const* addr) {
  return static_cast<unsigned int>(addr->GetValue()->uSInt64 >> 32);
}

int SingleBits(float value) {
  int bits;
  memcpy(&bits, &value, sizeof bits);
  return bits;
}

}  // namespace

unsigned long CGIA32::StoredESPOffset() const {
  return (mLocals ? mLocals->GetTotalStorage() : 0) + 4;
}

// ---------------------------------------------------------------- homes

IA32Operand CGIA32::AddressOf(TacAddr const* addr, int scheme) {
  IA32Operand where = {kModIndirect, kEBP, 0, kNoRegister, nullptr};
  switch (addr->GetStorageClass()) {
    case kStackDataStorage:
      where.disp = -static_cast<int>(addr->StorageOffset() +
                                     addr->mType.StorageSize());
      where.mod = ModDisp(where.disp);
      break;
    case kBaseRelativeDataStorage:
      QASSERT_TEXT(mObjectBase != nilTacAddr, "field without a base");
      where.rm = LoadTacAddr(mObjectBase, scheme);
      where.disp = static_cast<int>(addr->StorageOffset() + mObjectBaseOffset);
      where.mod = ModDisp(where.disp);
      break;
    case kGlobalDataStorage:
      where.rm = kEBP;  // with mod 0: an absolute address
      where.global = addr;
      break;
    default:
      QFAIL("unknown storage class");
  }
  return where;
}

void CGIA32::LoadGlobal(TacAddr const* addr, int delta) {
  MarkImport(Import::kImportGlobal32, addr->LinkID(), delta);
  unsigned int size;
  if (!mCode->mGlobals.GetEntry(addr->LinkID(), size))
    mCode->mGlobals.AddEntry(addr->LinkID(), addr->mType.StorageSize());
}

// ---------------------------------------------------------------- loads

// Byte-sized values need a byte register; the sign extensions work best
// in EAX.
int CGIA32::RestrictScheme(SimpleDataType type, int scheme, int* preferred) {
  *preferred = kNoRegister;
  if (IsXMMScheme(scheme)) return scheme;
  if (type == kBooleanType || type == kSInt8Type || type == kUInt8Type)
    scheme &= kSelect8BitGPR;
  if (type == kSInt8Type || type == kSInt16Type) *preferred = kEAX;
  return scheme;
}

void CGIA32::SignExtend(int reg, unsigned int size) {
  QASSERT_TEXT(1 == size or 2 == size, "1 == size or 2 == size");
  if (reg != kEAX) {
    ia32_push(kEAX);
    ia32_mov(kModRegister, kEAX, reg);
  }
  if (size == 1) ia32_cbw();
  ia32_cwde();
  if (reg != kEAX) {
    ia32_mov(kModRegister, reg, kEAX);
    ia32_pop(kEAX);
  }
}

// A register may hold more than the value's width: narrow values are
// brought back to their type on every use.
void CGIA32::Renormalise(int reg, SimpleDataType type) {
  if (type == kUInt8Type) ia32_and_imm32(kModRegister, reg, 255);
  if (type == kUInt16Type) ia32_and_imm32(kModRegister, reg, 65535);
  if (type == kSInt8Type) SignExtend(reg, 1);
  if (type == kSInt16Type) SignExtend(reg, 2);
}

int CGIA32::LoadConstant(TacAddr const* addr, int scheme) {
  IRDataType const& type = addr->mType;
  int preferred;
  scheme = RestrictScheme(type.GetMainType(), scheme, &preferred);
  int reg = AllocateRegister(scheme, preferred);
  if (type.IsFloat()) {
    QASSERT_TEXT(mOptions.mUseSSE2FloatingPointMath,
                 "mOptions.mUseSSE2FloatingPointMath");
    bool single = type.GetMainType() == kReal32Type;
    IRValue const* value = addr->GetValue();
    if (mOptions.mOptimizeCode) {
      unsigned long slot = ConstantSlot(addr);
      if (single)
        ia32_movss(kModIndirect, reg, kEBP, 0);
      else
        ia32_movsd(kModIndirect, reg, kEBP, 0);
      ReferToConstant(slot);
      return reg;
    }
    if (single) {
      ia32_push_imm32(SingleBits(value->uReal32));
    } else {
      ia32_push_imm32(static_cast<int>(value->uSInt64 >> 32));
      ia32_push_imm32(static_cast<int>(value->uSInt64));
    }
    int eax = AllocateRegister(kSelectFunctionResult, kEAX);
    ia32_mov(kModRegister, eax, kESP);
    if (single)
      ia32_movss(kModIndirect, reg, eax);
    else
      ia32_movsd(kModIndirect, reg, eax);
    ia32_add_imm32(kModRegister, kESP, single ? 4 : 8);
  } else if (type.GetMainType() == kStringType) {
    if (addr->GetValue()->mString.Length()) {
      MarkImport(Import::kImportStringLiteral, addr->GetValue()->mString, 1);
      ia32_mov_imm32(reg, 0);
    } else {
      ia32_xor(kModRegister, reg, reg);
    }
  } else if (addr->GetValue()->uSInt32 == 0) {
    ia32_xor(kModRegister, reg, reg);
  } else {
    ia32_mov_imm32(reg, addr->GetValue()->uSInt32);
  }
  return reg;
}

void CGIA32::LoadFromMemory(int reg, TacAddr const* addr,
                            IA32Operand const& where) {
  IRDataType const& type = addr->mType;
  switch (type.GetMainType()) {
    case kBooleanType:
      EmitRegMem(QUORL_RM(ia32_mov8), reg, where);
      ia32_cmp_imm8_se(kModRegister, reg, 0);
      ia32_and_imm8_se(kModRegister, reg, 1);
      return;
    case kSInt8Type:
      EmitRegMem(QUORL_RM(ia32_mov8), reg, where);
      SignExtend(reg, 1);
      return;
    case kUInt8Type:
      EmitRegMem(QUORL_RM(ia32_mov8), reg, where);
      ia32_and_imm32(kModRegister, reg, 255);
      return;
    case kSInt16Type:
      EmitRegMem(QUORL_RM(ia32_mov16), reg, where);
      SignExtend(reg, 2);
      return;
    case kUInt16Type:
      ia32_xor(kModRegister, reg, reg);
      EmitRegMem(QUORL_RM(ia32_mov16), reg, where);
      return;
    case kReal32Type:
      EmitRegMem(QUORL_RM(ia32_movss), reg, where);
      return;
    case kReal64Type:
      EmitRegMem(QUORL_RM(ia32_movsd), reg, where);
      return;
    default:
      break;
  }
  if (type.StorageSize() != 4 || type.GetMainType() == kStructureType)
    QFAIL_STRING(string("No load support for datatype ") + type.ToString());
  EmitRegMem(QUORL_RM(ia32_mov), reg, where);
}

int CGIA32::LoadTacAddr(TacAddr const* addr, int scheme) {
  QASSERT_TEXT(scheme, "regScheme");
  if (AddrIsInt64(addr))
    QFAIL("Don't use LoadTacAddr for a 64-bit int on a 32-bit machine");
  bool xmm = IsXMMScheme(scheme);
  QASSERT_TEXT(xmm == addr->mType.IsFloat(), "float operands use SSE schemes");
  SimpleDataType type = addr->mType.GetMainType();
  int preferred;
  int restricted = RestrictScheme(type, scheme, &preferred);
  restricted &= ~(xmm ? mXMMHomeMask : mHomeMask);
  RegisterState* bank = Bank(scheme);
  int reg;
  int found;
  if (LocateLoadedAddr(addr, restricted, &found)) {
    reg = found;
    if (!RegMatchesScheme(found, restricted)) {
      reg = AllocateRegister(restricted, preferred);
      if (xmm)
        ia32_movsd(kModRegister, reg, found);
      else
        ia32_mov(kModRegister, reg, found);
    }
    if (!xmm) Renormalise(reg, type);
  } else if (addr->IsConstant()) {
    reg = LoadConstant(addr, scheme);
  } else {
    reg = AllocateRegister(restricted, preferred);
    int baseScheme = xmm ? kSelectAnyGPR : SchemeExclude(reg, scheme);
    if (baseScheme == 0) baseScheme = RegisterBit(reg);  // the value's register serves
    IA32Operand where = AddressOf(addr, baseScheme);
    LoadFromMemory(reg, addr, where);
  }
  bank[reg].Clear();
  bank[reg].Record(addr);
  bank[reg].mUsed = true;
  bank[reg].mLastUse = HitClock();
  QASSERT_TEXT(xmm || RegMatchesScheme(reg, kSelectAnyGPR),
               "RegMatchesScheme( reg, kSelectAnyGPR )");
  return reg;
}

void CGIA32::LoadInt64TacAddr(TacAddr const* addr, int* hi, int* lo,
                              int scheme) {
  IRDataType const& type = addr->mType;
  QASSERT_TEXT(type.IsInteger() || type.GetMainType() == kCurrencyType,
               "64-bit load of a non-integer");
  if (type.StorageSize() < 8) {
    *lo = LoadTacAddr(addr, scheme);
    *hi = AllocateRegister(SchemeExclude(*lo, scheme), kNoRegister);
    ia32_mov(kModRegister, *hi, *lo);
    if (type.Signed())
      ia32_sar_imm8(kModRegister, *hi, 31);
    else
      ia32_xor(kModRegister, *hi, *hi);
  } else if (addr->IsConstant()) {
    AllocateInt64Registers(hi, lo, scheme);
    ia32_mov_imm32(*lo, LowWord(addr));
    ia32_mov_imm32(*hi, HighWord(addr));
  } else {
    AllocateInt64Registers(hi, lo, scheme);
    // A field's base goes into the low register, read last.
    IA32Operand where = AddressOf(addr, RegisterBit(*lo));
    IA32Operand high = where;
    high.disp += 4;
    if (!where.global) high.mod = ModDisp(high.disp);
    EmitRegMem(QUORL_RM(ia32_mov), *hi, high);
    EmitRegMem(QUORL_RM(ia32_mov), *lo, where);
  }
  Touch(*hi);
  Touch(*lo);
}

int CGIA32::LoadSymbolAddress(TacAddr const* addr, int scheme) {
  QASSERT_TEXT(not addr->IsConstant(), "not value->IsConstant()");
  int reg;
  switch (addr->GetStorageClass()) {
    case kStackDataStorage: {
      reg = AllocateRegister(scheme, kNoRegister);
      IA32Operand where = AddressOf(addr, scheme);
      ia32_lea(where.mod, reg, kEBP, where.disp);
      break;
    }
    case kBaseRelativeDataStorage:
      reg = LoadTacAddr(mObjectBase, scheme);
      Touch(reg);
      ia32_add_imm32(kModRegister, reg,
                     addr->StorageOffset() + mObjectBaseOffset);
      break;
    case kGlobalDataStorage:
      reg = AllocateRegister(scheme, kNoRegister);
      LoadGlobal(addr, 1);
      ia32_mov_imm32(reg, 0);
      break;
    default:
      QFAIL("unknown storage class");
  }
  return reg;
}

// ---------------------------------------------------------------- stores

void CGIA32::StoreToMemory(int reg, TacAddr const* dest,
                           IA32Operand const& where) {
  IRDataType const& type = dest->mType;
  if (type.GetMainType() == kReal32Type)
    EmitRegMem(QUORL_RM(ia32_movss_store), reg, where);
  else if (type.GetMainType() == kReal64Type)
    EmitRegMem(QUORL_RM(ia32_movsd_store), reg, where);
  else if (type.GetMainType() == kStructureType || type.StorageSize() > 4 ||
           type.StorageSize() == 3 || type.StorageSize() == 0)
    QFAIL_STRING(string("unstorable type ") + type.ToString());
  else if (type.StorageSize() == 1)
    EmitRegMem(QUORL_RM(ia32_mov8_store), reg, where);
  else if (type.StorageSize() == 2)
    EmitRegMem(QUORL_RM(ia32_mov16_store), reg, where);
  else
    EmitRegMem(QUORL_RM(ia32_mov_store), reg, where);
}

// Writes through at once, then remembers that the register holds the
// operand: a later use of dest costs no load.
void CGIA32::StoreTacAddr(int reg, TacAddr const* dest) {
  QASSERT_TEXT(reg >= 0 && reg < kRegisterCount, "reg");
  QASSERT_TEXT(!dest->IsConstant(), "!dest->IsConstant()");
  QASSERT_TEXT(mFunc, "mFunc");
  bool isFloat = dest->mType.IsFloat();
  QASSERT_TEXT(mOptions.mUseSSE2FloatingPointMath or not isFloat,
               "mOptions.mUseSSE2FloatingPointMath or not dest->mType.IsFloat()");
  if (AddrIsInt64(dest))
    QFAIL("Don't use StoreTacAddr for a 64-bit int on a 32-bit machine");
  if (!isFloat && dest->mType.StorageSize() == 1 &&
      !RegMatchesScheme(reg, kSelect8BitGPR)) {
    int byteReg = AllocateRegister(kSelect8BitGPR, kNoRegister);
    ia32_mov(kModRegister, byteReg, reg);
    reg = byteReg;
  }
  RegisterState* bank = isFloat ? mXMMRegisters : mRegisters;
  ForgetAddr(dest);
  if (dest == mObjectBase) InvalidateRegisters();
  int baseScheme = isFloat ? kSelectAnyGPR : SchemeExclude(reg, kSelectAnyGPR);
  StoreToMemory(reg, dest, AddressOf(dest, baseScheme));
  if (!((isFloat ? mXMMHomeMask : mHomeMask) & RegisterBit(reg))) {
    bank[reg].Record(dest);
    bank[reg].mLastUse = HitClock();
  }
  FollowHome(reg, dest);
}

void CGIA32::StoreInt64TacAddr(int hi, int lo, TacAddr const* dest) {
  if (dest->mType.StorageSize() < 8) {
    StoreTacAddr(lo, dest);
    return;
  }
  QASSERT_TEXT(!dest->IsConstant(), "!dest->IsConstant()");
  ForgetAddr(dest);
  IA32Operand where =
      AddressOf(dest, SchemeExclude2(hi, lo, kSelectAnyGPR));
  IA32Operand high = where;
  high.disp += 4;
  if (!where.global) high.mod = ModDisp(high.disp);
  EmitRegMem(QUORL_RM(ia32_mov_store), lo, where);
  EmitRegMem(QUORL_RM(ia32_mov_store), hi, high);
}

// ---------------------------------------------------------------- x87

void CGIA32::PushFloatTacAddr(TacAddr const* addr) {
  bool single = addr->mType.GetMainType() == kReal32Type;
  QASSERT_TEXT(addr->mType.IsFloat(), "float operand");
  if (addr->IsConstant() && mOptions.mOptimizeCode) {
    unsigned long slot = ConstantSlot(addr);
    if (single)
      ia32_fld32(kModIndirect, kEBP, 0);
    else
      ia32_fld64(kModIndirect, kEBP, 0);
    ReferToConstant(slot);
    return;
  }
  if (addr->IsConstant()) {
    IRValue const* value = addr->GetValue();
    if (single) {
      ia32_push_imm32(SingleBits(value->uReal32));
      ia32_fld32(kModIndirect, kESP);
    } else {
      ia32_push_imm32(static_cast<int>(value->uSInt64 >> 32));
      ia32_push_imm32(static_cast<int>(value->uSInt64));
      ia32_fld64(kModIndirect, kESP);
    }
    ia32_add_imm32(kModRegister, kESP, single ? 4 : 8);
    return;
  }
  IA32Operand where = AddressOf(addr, kSelectVolatileGPR);
  if (single)
    EmitGroup(QUORL_GROUP(ia32_fld32), where);
  else
    EmitGroup(QUORL_GROUP(ia32_fld64), where);
}

void CGIA32::PopFloatTacAddr(TacAddr const* addr) {
  QASSERT_TEXT(addr->mType.IsFloat() && !addr->IsConstant(), "float place");
  ForgetAddr(addr);
  IA32Operand where = AddressOf(addr, kSelectVolatileGPR);
  if (addr->mType.GetMainType() == kReal32Type)
    EmitGroup(QUORL_GROUP(ia32_fstp32), where);
  else
    EmitGroup(QUORL_GROUP(ia32_fstp64), where);
  RefreshHome(addr);
}
