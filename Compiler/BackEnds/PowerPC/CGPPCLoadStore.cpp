// Moving operands between their homes and registers.
#include "Compiler/BackEnds/PowerPC/CGPPC.h"

#include <string.h>

#include "Compiler/InternalFailure.h"
#include "Universal/Assertion.h"

namespace {

bool FitsSigned16(long value) { return value >= -32768 && value <= 32767; }

unsigned long SingleBits(float value) {
  unsigned int bits;
  memcpy(&bits, &value, sizeof bits);
  return bits;
}

}  // namespace

// ---------------------------------------------------------------- homes

PPCOperand CGPPC::AddressOf(TacAddr const* addr, unsigned long scheme) {
  PPCOperand where = {kStackPointer, 0, false};
  switch (addr->GetStorageClass()) {
    case kStackDataStorage:
      where.disp = StackDisplacement(addr);
      where.local = true;
      break;
    case kBaseRelativeDataStorage: {
      QASSERT_TEXT(mObjectBase != nilTacAddr, "field without a base");
      long disp = addr->StorageOffset() + mObjectBaseOffset;
      QASSERT_TEXT(FitsSigned16(disp), "field beyond 32 KiB of its base");
      where.base = LoadTacAddr(mObjectBase, scheme);
      where.disp = static_cast<int>(disp);
      break;
    }
    case kGlobalDataStorage:
      where.base = AllocateRegister(false, scheme);
      LoadGlobalAddress(where.base, addr);
      break;
    default:
      QFAIL("unknown storage class");
  }
  return where;
}

// The linker fills the pair: the whole address in the absolute model, the
// distance from the base register in the others.
void CGPPC::LoadGlobalAddress(int reg, TacAddr const* addr) {
  unsigned int size;
  if (!mCode->mGlobals.GetEntry(addr->LinkID(), size))
    mCode->mGlobals.AddEntry(addr->LinkID(), addr->mType.StorageSize());
  MarkImport(Import::kImportPPCGlobal, addr->LinkID(), 0);
  if (mOptions.mCodeModel == kCodeModelTableOfContents ||
      mOptions.mCodeModel == kCodeModelPositionIndependent) {
    ppc_addis(reg, kBaseRegister, 0);
    ppc_addi(reg, reg, 0);
  } else {
    ppc_lis(reg, 0);
    ppc_ori(reg, reg, 0);
  }
}

void CGPPC::LoadImmediate(int reg, unsigned long value) {
  long word = static_cast<int>(value);
  if (FitsSigned16(word)) {
    ppc_li(reg, static_cast<int>(word));
    return;
  }
  ppc_lis(reg, static_cast<int>(value >> 16));
  if (value & 0xffff) ppc_ori(reg, reg, static_cast<int>(value & 0xffff));
}

// ---------------------------------------------------------------- loads

// A register may hold more than the value's width: narrow values are
// brought back to their type on every use.
void CGPPC::Renormalise(int reg, SimpleDataType type) {
  if (type == kUInt8Type) ppc_rlwinm(reg, reg, 0, 24, 31);
  if (type == kUInt16Type) ppc_rlwinm(reg, reg, 0, 16, 31);
  if (type == kSInt8Type) ppc_extsb(reg, reg);
  if (type == kSInt16Type) ppc_extsh(reg, reg);
}

// The bits go through the scratch words of the frame.
void CGPPC::LoadFloatConstant(int reg, TacAddr const* addr) {
  IRValue const* value = addr->GetValue();
  if (addr->mType.GetMainType() == kReal32Type) {
    LoadImmediate(kScratch, SingleBits(value->uReal32));
    ppc_stw(kScratch, kScratchOffset, kStackPointer);
    ppc_lfs(reg, kScratchOffset, kStackPointer);
    return;
  }
  unsigned long long bits = value->uSInt64;
  LoadImmediate(kScratch, static_cast<unsigned long>(bits >> 32));
  ppc_stw(kScratch, kScratchOffset, kStackPointer);
  LoadImmediate(kScratch, static_cast<unsigned long>(bits & 0xffffffff));
  ppc_stw(kScratch, kScratchOffset + 4, kStackPointer);
  ppc_lfd(reg, kScratchOffset, kStackPointer);
}

int CGPPC::LoadConstant(TacAddr const* addr, unsigned long scheme) {
  IRDataType const& type = addr->mType;
  int reg = AllocateRegister(type.IsFloat(), scheme);
  if (type.IsFloat()) {
    LoadFloatConstant(reg, addr);
  } else if (type.GetMainType() == kStringType) {
    string const& text = addr->GetValue()->mString;
    if (text.Length()) {
      MarkImport(Import::kImportPPCStringHigh, text, 0);
      ppc_lis(reg, 0);
      MarkImport(Import::kImportPPCStringLow, text, 0);
      ppc_ori(reg, reg, 0);
    } else {
      ppc_li(reg, 0);
    }
  } else {
    LoadImmediate(reg, static_cast<unsigned long>(addr->GetValue()->uSInt32));
  }
  return reg;
}

void CGPPC::LoadFromMemory(int reg, SimpleDataType type, unsigned long size,
                           PPCOperand const& where) {
  switch (type) {
    case kBooleanType:
      EmitMemory(&PPCOpWriter::ppc_lbz, reg, where);
      ppc_rlwinm(reg, reg, 0, 31, 31);
      return;
    case kSInt8Type:
      EmitMemory(&PPCOpWriter::ppc_lbz, reg, where);
      ppc_extsb(reg, reg);
      return;
    case kUInt8Type:
      EmitMemory(&PPCOpWriter::ppc_lbz, reg, where);
      return;
    case kSInt16Type:
      EmitMemory(&PPCOpWriter::ppc_lhz, reg, where);
      ppc_extsh(reg, reg);
      return;
    case kUInt16Type:
      EmitMemory(&PPCOpWriter::ppc_lhz, reg, where);
      return;
    case kReal32Type:
      EmitMemory(&PPCOpWriter::ppc_lfs, reg, where);
      return;
    case kReal64Type:
      EmitMemory(&PPCOpWriter::ppc_lfd, reg, where);
      return;
    default:
      break;
  }
  if (size != 4 || type == kStructureType)
    QFAIL("No load support for datatype");
  EmitMemory(&PPCOpWriter::ppc_lwz, reg, where);
}

int CGPPC::LoadTacAddr(TacAddr const* addr, unsigned long scheme) {
  QASSERT_TEXT(scheme, "regScheme");
  if (AddrIsInt64(addr))
    QFAIL("Don't use LoadTacAddr for a 64-bit int on a 32-bit machine");
  bool isFloat = addr->mType.IsFloat();
  SimpleDataType type = addr->mType.GetMainType();
  RegisterState* bank = Bank(isFloat);
  int reg;
  int found;
  if (LocateLoadedAddr(addr, isFloat, scheme, &found)) {
    reg = found;
    if (!RegMatchesScheme(found, scheme)) {
      reg = AllocateRegister(isFloat, scheme);
      if (isFloat)
        ppc_fmr(reg, found);
      else
        ppc_mr(reg, found);
    }
    if (!isFloat) Renormalise(reg, type);
  } else if (addr->IsConstant()) {
    reg = LoadConstant(addr, scheme);
  } else {
    reg = AllocateRegister(isFloat, scheme);
    // A base or a global's address may go into the value's own register.
    unsigned long baseScheme = isFloat ? kSelectAnyGPR : 1ul << reg;
    PPCOperand where = AddressOf(addr, baseScheme);
    LoadFromMemory(reg, type, addr->mType.StorageSize(), where);
  }
  bank[reg].Clear();
  bank[reg].Record(addr);
  bank[reg].mUsed = true;
  bank[reg].mLastUse = HitClock();
  return reg;
}

// Big-endian: the high word lies at the lower address.
void CGPPC::LoadInt64TacAddr(TacAddr const* addr, int* hi, int* lo,
                             unsigned long scheme) {
  IRDataType const& type = addr->mType;
  QASSERT_TEXT(type.IsInteger() || type.GetMainType() == kCurrencyType,
               "64-bit load of a non-integer");
  if (type.StorageSize() < 8) {
    *lo = LoadTacAddr(addr, scheme);
    *hi = AllocateRegister(false, SchemeExclude(*lo, scheme));
    if (type.Signed())
      ppc_srawi(*hi, *lo, 31);
    else
      ppc_li(*hi, 0);
  } else if (addr->IsConstant()) {
    *lo = AllocateRegister(false, scheme);
    *hi = AllocateRegister(false, SchemeExclude(*lo, scheme));
    unsigned long long value = addr->GetValue()->uSInt64;
    LoadImmediate(*lo, static_cast<unsigned long>(value & 0xffffffff));
    LoadImmediate(*hi, static_cast<unsigned long>(value >> 32));
  } else {
    *lo = AllocateRegister(false, scheme);
    *hi = AllocateRegister(false, SchemeExclude(*lo, scheme));
    // A base goes into the low register, read last.
    PPCOperand where = AddressOf(addr, 1ul << *lo);
    PPCOperand low = where;
    low.disp += 4;
    EmitMemory(&PPCOpWriter::ppc_lwz, *hi, where);
    EmitMemory(&PPCOpWriter::ppc_lwz, *lo, low);
  }
  Touch(*hi);
  Touch(*lo);
}

int CGPPC::LoadSymbolAddress(TacAddr const* addr, unsigned long scheme) {
  QASSERT_TEXT(not addr->IsConstant(), "not value->IsConstant()");
  int reg;
  switch (addr->GetStorageClass()) {
    case kStackDataStorage:
      reg = AllocateRegister(false, scheme);
      NoteLocalReference();
      ppc_addi(reg, kStackPointer, StackDisplacement(addr));
      break;
    case kBaseRelativeDataStorage: {
      long disp = addr->StorageOffset() + mObjectBaseOffset;
      QASSERT_TEXT(FitsSigned16(disp), "field beyond 32 KiB of its base");
      reg = LoadTacAddr(mObjectBase, scheme);
      Touch(reg);
      ppc_addi(reg, reg, static_cast<int>(disp));
      break;
    }
    case kGlobalDataStorage:
      reg = AllocateRegister(false, scheme);
      LoadGlobalAddress(reg, addr);
      break;
    default:
      QFAIL("unknown storage class");
  }
  return reg;
}

// ---------------------------------------------------------------- stores

void CGPPC::StoreToMemory(int reg, IRDataType const& type,
                          PPCOperand const& where) {
  unsigned long size = type.StorageSize();
  if (type.GetMainType() == kReal32Type)
    EmitMemory(&PPCOpWriter::ppc_stfs, reg, where);
  else if (type.GetMainType() == kReal64Type)
    EmitMemory(&PPCOpWriter::ppc_stfd, reg, where);
  else if (type.GetMainType() == kStructureType || size > 4 || size == 3 ||
           size == 0)
    QFAIL_STRING(string("unstorable type ") + type.ToString());
  else if (size == 1)
    EmitMemory(&PPCOpWriter::ppc_stb, reg, where);
  else if (size == 2)
    EmitMemory(&PPCOpWriter::ppc_sth, reg, where);
  else
    EmitMemory(&PPCOpWriter::ppc_stw, reg, where);
}

// Writes through at once, then remembers that the register holds the
// operand.
void CGPPC::StoreTacAddr(int reg, TacAddr const* dest) {
  QASSERT_TEXT(reg >= 0 && reg < kRegisterCount, "reg");
  QASSERT_TEXT(!dest->IsConstant(), "!dest->IsConstant()");
  QASSERT_TEXT(mFunc, "mFunc");
  if (AddrIsInt64(dest))
    QFAIL("Don't use StoreTacAddr for a 64-bit int on a 32-bit machine");
  bool isFloat = dest->mType.IsFloat();
  ForgetAddr(dest);
  if (dest == mObjectBase) InvalidateRegisters();
  unsigned long baseScheme =
      isFloat ? kSelectAnyGPR : SchemeExclude(reg, kSelectAnyGPR);
  StoreToMemory(reg, dest->mType, AddressOf(dest, baseScheme));
  RegisterState* bank = Bank(isFloat);
  bank[reg].Record(dest);
  bank[reg].mUsed = true;
  bank[reg].mLastUse = HitClock();
}

void CGPPC::StoreInt64TacAddr(int hi, int lo, TacAddr const* dest) {
  if (dest->mType.StorageSize() < 8) {
    StoreTacAddr(lo, dest);
    return;
  }
  QASSERT_TEXT(!dest->IsConstant(), "!dest->IsConstant()");
  ForgetAddr(dest);
  PPCOperand where =
      AddressOf(dest, SchemeExclude(hi, SchemeExclude(lo, kSelectAnyGPR)));
  PPCOperand low = where;
  low.disp += 4;
  EmitMemory(&PPCOpWriter::ppc_stw, hi, where);
  EmitMemory(&PPCOpWriter::ppc_stw, lo, low);
}
