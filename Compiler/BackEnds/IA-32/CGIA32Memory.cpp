// Copies, zeroing, addresses, pointer access, structures and reference
// counts.
#include "Compiler/BackEnds/IA-32/CGIA32.h"

#include "Compiler/Intrinsics.h"
#include "Universal/Assertion.h"

#define QUORL_RM(op) &IA32OpWriter::op, &IA32OpWriter::op, &IA32OpWriter::op
#define QUORL_GROUP(op) &IA32OpWriter::op, &IA32OpWriter::op

namespace {

// The scheme less a register that may be absent.
int Without(int reg, int scheme) {
  return reg == CGIA32::kNoRegister ? scheme : CGIA32::SchemeExclude(reg, scheme);
}

IA32Operand Displaced(IA32Operand where, int delta) {
  where.disp += delta;
  if (where.mod == kModIndirect && where.index == CGIA32::kNoRegister &&
      where.disp)
    where.mod = kModDisplacement8;
  if (where.mod != kModIndirect) where.mod = CGIA32::ModDisp(where.disp);
  return where;
}

}  // namespace

// ---------------------------------------------------------------- copies

void CGIA32::tac_Store(TacLine const& line) {
  QASSERT_TEXT(not line.result->IsConstant(), "not line.result->IsConstant()");
  if (line.result->mType.IsFloat()) {
    if (mOptions.mUseSSE2FloatingPointMath) {
      StoreTacAddr(LoadForReading(line.opA, kSelectAnyXMM), line.result);
    } else {
      PushFloatTacAddr(line.opA);
      PopFloatTacAddr(line.result);
    }
  } else if (AddrIsInt64(line.result) || AddrIsInt64(line.opA)) {
    int hi, lo;
    LoadInt64TacAddr(line.opA, &hi, &lo, kSelectAnyGPR);
    StoreInt64TacAddr(hi, lo, line.result);
  } else if (AddrIsStruct(line.result)) {
    int src = LoadSymbolAddress(line.opA, kSelectAnyGPR);
    int dest = LoadSymbolAddress(line.result, SchemeExclude(src, kSelectAnyGPR));
    CopyStructure(dest, src, line.result->mType.StorageSize(), kSelectAnyGPR);
  } else {
    StoreTacAddr(LoadForReading(line.opA, kSelectAnyGPR), line.result);
  }
}

// Floats go through the x87 on either unit: a Double zero narrows to a
// Single zero on the way out.
void CGIA32::tac_Zero(TacLine const& line) {
  QASSERT(line.result != nilTacAddr && !line.result->IsConstant());
  if (AddrIsStruct(line.result)) return ZeroStructure(line.result);
  if (line.result->mType.IsFloat()) {
    PushFloatTacAddr(gTacFloatZero);
    return PopFloatTacAddr(line.result);
  }
  TacLine zero = line;
  zero.opA = gTacZero;
  tac_Store(zero);
}

// Rounds of 32 bytes through ECX and `loop`, then words, a half word and
// a byte.
void CGIA32::ZeroStructure(TacAddr const* dest) {
  unsigned int bytes = dest->mType.StorageSize();
  int addr = LoadSymbolAddress(dest, SchemeExclude(kECX, kSelectAnyGPR));
  int zero = AllocateRegister(SchemeExclude2(addr, kECX, kSelect8BitGPR),
                              kNoRegister);
  ia32_xor(kModRegister, zero, zero);
  if (bytes > 32) {
    Touch(kECX);
    ia32_mov_imm32(kECX, bytes / 32);
    unsigned int loopStart = CodeBufferLength();
    for (int k = 0; k < 32; k += 4)
      ia32_mov_store(kModDisplacement8, zero, addr, k);
    ia32_add_imm32(kModRegister, addr, 32);
    ia32_loop(static_cast<int>(loopStart - (CodeBufferLength() + 2)));
    bytes %= 32;
  }
  unsigned int offset = 0;
  for (; offset + 4 <= bytes; offset += 4)
    ia32_mov_store(kModDisplacement8, zero, addr, offset);
  if (offset + 2 <= bytes) {
    ia32_mov16_store(kModDisplacement8, zero, addr, offset);
    offset += 2;
  }
  if (offset + 1 <= bytes) {
    ia32_mov8_store(kModDisplacement8, zero, addr, offset);
    offset += 1;
  }
  QASSERT_TEXT(offset == bytes, "offset == bytes");
  Touch(addr);
  ForgetAddr(dest);
}

// Rounds of 16 bytes through the stack, then the rest through the counter
// register: words, a half word, a byte. Both address registers move.
void CGIA32::CopyStructure(int dest, int src, unsigned int bytes, int scheme) {
  QASSERT_TEXT(dest != src, "rDest != rSrc");
  if (!bytes) return;
  int counter = AllocateRegister(SchemeExclude2(dest, src, scheme & kSelect8BitGPR),
                                 kECX);
  Touch(dest);
  Touch(src);
  if (bytes > 16) {
    ia32_mov_imm32(counter, bytes / 16);
    long top = NewLocalLabel();
    PlaceLabel(top);
    unsigned int loopStart = CodeBufferLength();
    for (int k = 0; k < 16; k += 4) {
      ia32_push(kModDisplacement8, src, k);
      ia32_pop(kModDisplacement8, dest, k);
    }
    ia32_add_imm32(kModRegister, src, 16);
    ia32_add_imm32(kModRegister, dest, 16);
    if (counter == kECX) {
      ia32_loop(static_cast<int>(loopStart - (CodeBufferLength() + 2)));
    } else {
      ia32_dec(counter);
      EmitBranch(&IA32OpWriter::ia32_jnz, 2, top);
    }
    bytes %= 16;
  }
  unsigned int offset = 0;
  for (; offset + 4 <= bytes; offset += 4) {
    ia32_mov(kModDisplacement8, counter, src, offset);
    ia32_mov_store(kModDisplacement8, counter, dest, offset);
  }
  if (offset + 2 <= bytes) {
    ia32_mov16(kModDisplacement8, counter, src, offset);
    ia32_mov16_store(kModDisplacement8, counter, dest, offset);
    offset += 2;
  }
  if (offset + 1 <= bytes) {
    ia32_mov8(kModDisplacement8, counter, src, offset);
    ia32_mov8_store(kModDisplacement8, counter, dest, offset);
    offset += 1;
  }
  QASSERT_TEXT(offset == bytes, "offset == bytes");
}

void CGIA32::tac_Varptr(TacLine const& line) {
  StoreTacAddr(LoadSymbolAddress(line.opA, kSelectAnyGPR), line.result);
}

// ---------------------------------------------------------------- pointers

// Pointer plus nothing, a constant displacement, or an Int32 variable as
// SIB index. The x87 has no use for an index: the pointer register is
// advanced instead, and so no longer holds the pointer operand.
IA32Operand CGIA32::PointerOperand(TacLine const& line, TacAddr const* pointer,
                                   int scheme, bool x87) {
  IA32Operand where = {0, kNoRegister, 0, kNoRegister, nullptr};
  if (line.opB != nilTacAddr)
    QASSERT_TEXT(kSInt32Type == line.opB->mType.GetMainType(),
                 "kSInt32Type == line.opB->mType.GetMainType()");
  where.rm = LoadTacAddr(pointer, scheme);
  if (line.opB == nilTacAddr) return where;
  if (line.opB->IsConstant()) {
    where.disp = line.opB->GetValue()->uSInt32;
    where.mod = ModDisp(where.disp);
    return where;
  }
  int index = LoadTacAddr(line.opB, SchemeExclude(where.rm, scheme));
  if (x87) {
    Touch(where.rm);
    ia32_add(kModRegister, where.rm, index);
  } else {
    where.index = index;
  }
  return where;
}

void CGIA32::tac_Peek(TacLine const& line) {
  if (ElementAccessInLine(line)) return;
  TacAddr const* result = line.result;
  SimpleDataType type = result->mType.GetMainType();
  bool isFloat = result->mType.IsFloat();
  bool isStruct = AddrIsStruct(result);
  IA32Operand where =
      PointerOperand(line, line.opA, kSelectAnyGPR, isFloat || isStruct);
  int avoid = Without(where.index, SchemeExclude(where.rm, kSelectAnyGPR));
  if (isFloat) {
    if (type == kReal32Type)
      EmitGroup(QUORL_GROUP(ia32_fld32), where);
    else
      EmitGroup(QUORL_GROUP(ia32_fld64), where);
    return PopFloatTacAddr(result);
  }
  if (isStruct) {
    int src = where.rm;
    Touch(src);
    if (where.disp) ia32_add_imm32(kModRegister, src, where.disp);
    int dest = LoadSymbolAddress(result, SchemeExclude(src, kSelectAnyGPR));
    CopyStructure(dest, src, result->mType.StorageSize(), kSelectAnyGPR);
    return ForgetAddr(result);
  }
  if (AddrIsInt64(result)) {
    if (result->mType.StorageSize() != 8) QFAIL("peek unknown 64-bit type");
    int hi, lo;
    AllocateInt64Registers(&hi, &lo, avoid);
    EmitRegMem(QUORL_RM(ia32_mov), lo, where);
    if (where.index != kNoRegister) {
      Touch(where.index);
      ia32_add_imm8_se(kModRegister, where.index, 4);
      EmitRegMem(QUORL_RM(ia32_mov), hi, where);
    } else {
      EmitRegMem(QUORL_RM(ia32_mov), hi, Displaced(where, 4));
    }
    return StoreInt64TacAddr(hi, lo, result);
  }
  unsigned long size = result->mType.StorageSize();
  int reg;
  if (size == 1) {
    reg = AllocateRegister(avoid & kSelect8BitGPR, type == kSInt8Type ? int(kEAX) : int(kNoRegister));
    if (type != kSInt8Type) ia32_xor(kModRegister, reg, reg);
    EmitRegMem(QUORL_RM(ia32_mov8), reg, where);
    if (type == kSInt8Type) SignExtend(reg, 1);
  } else if (size == 2) {
    reg = AllocateRegister(avoid, type == kSInt16Type ? int(kEAX) : int(kNoRegister));
    if (type != kSInt16Type) ia32_xor(kModRegister, reg, reg);
    EmitRegMem(QUORL_RM(ia32_mov16), reg, where);
    if (type == kSInt16Type) SignExtend(reg, 2);
  } else if (size == 4) {
    reg = AllocateRegister(avoid, kNoRegister);
    EmitRegMem(QUORL_RM(ia32_mov), reg, where);
  } else {
    QFAIL("peek unknown type");
  }
  StoreTacAddr(reg, result);
}

// The value at opA goes to pointer result plus offset opB. Memory written
// through a pointer may be any operand's home, so the cache is dropped.
void CGIA32::tac_Poke(TacLine const& line) {
  TacAddr const* value = line.opA;
  SimpleDataType type = value->mType.GetMainType();
  if (value->mType.IsFloat()) {
    PushFloatTacAddr(value);
    IA32Operand where = PointerOperand(line, line.result, kSelectAnyGPR, true);
    if (type == kReal32Type)
      EmitGroup(QUORL_GROUP(ia32_fstp32), where);
    else
      EmitGroup(QUORL_GROUP(ia32_fstp64), where);
  } else if (AddrIsStruct(value)) {
    IA32Operand where = PointerOperand(line, line.result, kSelectAnyGPR, true);
    int dest = where.rm;
    Touch(dest);
    if (where.disp) ia32_add_imm32(kModRegister, dest, where.disp);
    int src = LoadSymbolAddress(value, SchemeExclude(dest, kSelectAnyGPR));
    CopyStructure(dest, src, value->mType.StorageSize(), kSelectAnyGPR);
  } else if (AddrIsInt64(value)) {
    int hi, lo;
    LoadInt64TacAddr(value, &hi, &lo, kSelectAnyGPR);
    IA32Operand where = PointerOperand(
        line, line.result, SchemeExclude2(hi, lo, kSelectAnyGPR), false);
    EmitRegMem(QUORL_RM(ia32_mov_store), lo, where);
    if (where.index != kNoRegister) {
      Touch(where.index);
      ia32_add_imm8_se(kModRegister, where.index, 4);
      EmitRegMem(QUORL_RM(ia32_mov_store), hi, where);
    } else {
      EmitRegMem(QUORL_RM(ia32_mov_store), hi, Displaced(where, 4));
    }
  } else {
    unsigned long size = value->mType.StorageSize();
    int reg = LoadTacAddr(value, size == 1 ? kSelect8BitGPR : kSelectAnyGPR);
    IA32Operand where = PointerOperand(line, line.result,
                                       SchemeExclude(reg, kSelectAnyGPR), false);
    if (size == 1)
      EmitRegMem(QUORL_RM(ia32_mov8_store), reg, where);
    else if (size == 2)
      EmitRegMem(QUORL_RM(ia32_mov16_store), reg, where);
    else
      EmitRegMem(QUORL_RM(ia32_mov_store), reg, where);
  }
  InvalidateRegisters();
  ReloadHomeRegisters(kReloadGlobalHomes);
}

// Reads from one home and writes the reversed bytes to the other.
void CGIA32::tac_EndianSwap(TacLine const& line) {
  QASSERT_TEXT(line.opA != nilTacAddr, "line.opA != nilTacAddr");
  QASSERT_TEXT(line.result != nilTacAddr, "line.result != nilTacAddr");
  QASSERT_TEXT(line.opA->mType == line.result->mType,
               "line.opA->mType == line.result->mType");
  QASSERT(!line.opA->mType.RefCounted());
  unsigned long size = line.opA->mType.StorageSize();
  if (size == 1) return;
  int from = LoadSymbolAddress(line.opA, kSelectAnyGPR);
  int to = LoadSymbolAddress(line.result, SchemeExclude(from, kSelectAnyGPR));
  int scheme = SchemeExclude2(from, to, size == 2 ? kSelect8BitGPR : kSelectAnyGPR);
  int reg = AllocateRegister(scheme, kNoRegister);
  if (size == 4) {
    ia32_mov(kModIndirect, reg, from);
    ia32_bswap(reg);
    ia32_mov_store(kModIndirect, reg, to);
  } else if (size == 8) {
    // Both words are read before either is written: the two homes may be
    // one, for a swap in place.
    int high = AllocateRegister(SchemeExclude(reg, scheme), kNoRegister);
    ia32_mov(kModIndirect, reg, from);
    ia32_mov(kModDisplacement8, high, from, 4);
    ia32_bswap(reg);
    ia32_bswap(high);
    ia32_mov_store(kModDisplacement8, reg, to, 4);
    ia32_mov_store(kModIndirect, high, to);
    Touch(high);
  } else if (size == 2) {
    ia32_mov16(kModIndirect, reg, from);
    ia32_xchg_swap8(reg);
    ia32_mov16_store(kModIndirect, reg, to);
  } else {
    QASSERT_TEXT(0, "0");
  }
  Touch(from);
  Touch(to);
  ForgetAddr(line.result);
}

// ---------------------------------------------------------------- counts

// The counts of strings and objects ignore nil: an optimized function tests
// for it in line and calls only for a value, since most of the temporaries
// released after each statement hold none. What the call path forgets of
// the registers is forgotten after the join too.
void CGIA32::LockOperation(TacLine const& line, int stringID, int objectID,
                           int wstringID, int cfstringID, char const* failure) {
  int intrinsic = CountingIntrinsic(line.opA->mType, stringID, objectID,
                                    wstringID, cfstringID, failure);
  bool nilIgnored = intrinsic == stringID || intrinsic == objectID;
  bool testFirst = mOptions.mOptimizeCode && nilIgnored &&
                   line.opB == nilTacAddr && !line.opA->IsConstant();
  long skip = NewLocalLabel();
  if (testFirst) {
    int value = LoadForReading(line.opA, kSelectAnyGPR);
    ia32_cmp_imm8_se(kModRegister, value, 0);
    EmitBranch(&IA32OpWriter::ia32_je, 2, skip);
  }
  CallRuntime(intrinsic, line.opA, line.opB, nilTacAddr);
  if (testFirst) PlaceLabel(skip);
}

void CGIA32::tac_Lock(TacLine const& line) {
  LockOperation(line, kIntrinsicRuntimeLockString, kIntrinsicRuntimeLockObject,
                kIntrinsicLockWString, kIntrinsicLockCFString,
                "Locking invalid data type");
}

// The variable is nil after its reference is released, so a second
// release is harmless.
void CGIA32::tac_Unlock(TacLine const& line) {
  LockOperation(line, kIntrinsicRuntimeUnlockString,
                kIntrinsicRuntimeUnlockObject, kIntrinsicUnlockWString,
                kIntrinsicUnlockCFString, "Unlocking invalid data type");
  StoreTacAddr(LoadTacAddr(gTacZero, kSelectAnyGPR), line.opA);
}

void CGIA32::tac_SwapLocks(TacLine const& line) {
  QASSERT_TEXT(line.opA->mType.GetMainType() == line.opB->mType.GetMainType(),
               "line.opA->mType.GetMainType() == line.opB->mType.GetMainType()");
  LockOperation(line, kIntrinsicRuntimeLockUnlockStrings,
                kIntrinsicRuntimeLockUnlockObjects, kIntrinsicSwapWStringLocks,
                kIntrinsicSwapCFStringLocks,
                "Swapping locks on invalid data type");
  StoreTacAddr(LoadTacAddr(gTacZero, kSelectAnyGPR), line.opB);
}
