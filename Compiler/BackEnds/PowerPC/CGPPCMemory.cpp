// Copies, zeroing, addresses, pointers, byte order and reference counts.
#include "Compiler/BackEnds/PowerPC/CGPPC.h"

#include "Compiler/InternalFailure.h"
#include "Compiler/Intrinsics.h"
#include "Universal/Assertion.h"

namespace {

// Structures above this size are copied by a counted loop.
unsigned int const kUnrolledCopyLimit = 64;

}  // namespace

void CGPPC::tac_Store(TacLine const& line) {
  QASSERT_TEXT(not line.result->IsConstant(), "not line.result->IsConstant()");
  if (line.result->mType.IsFloat()) {
    StoreTacAddr(LoadTacAddr(line.opA, kSelectAnyFPR), line.result);
  } else if (AddrIsInt64(line.result) || AddrIsInt64(line.opA)) {
    int hi, lo;
    LoadInt64TacAddr(line.opA, &hi, &lo, kSelectAnyGPR);
    StoreInt64TacAddr(hi, lo, line.result);
  } else if (AddrIsStruct(line.result)) {
    int src = LoadSymbolAddress(line.opA, kSelectAnyGPR);
    int dest = LoadSymbolAddress(line.result, SchemeExclude(src, kSelectAnyGPR));
    CopyStructure(dest, src, line.result->mType.StorageSize());
    ForgetAddr(line.result);
  } else {
    StoreTacAddr(LoadTacAddr(line.opA, kSelectAnyGPR), line.result);
  }
}

// Words through r0, then a halfword and a byte; long structures by a loop
// on the count register, which moves both addresses.
void CGPPC::CopyStructure(int dest, int src, unsigned int bytes) {
  QASSERT_TEXT(dest != src, "rDest != rSrc");
  if (bytes == 0) return;
  Touch(dest);
  Touch(src);
  unsigned int offset = 0;
  if (bytes > kUnrolledCopyLimit) {
    LoadImmediate(kScratch, bytes / 4);
    ppc_mtctr(kScratch);
    ppc_lwz(kScratch, 0, src);
    ppc_stw(kScratch, 0, dest);
    ppc_addi(src, src, 4);
    ppc_addi(dest, dest, 4);
    ppc_bdnz(-16);
    bytes %= 4;
  }
  for (; offset + 4 <= bytes; offset += 4) {
    ppc_lwz(kScratch, offset, src);
    ppc_stw(kScratch, offset, dest);
  }
  if (offset + 2 <= bytes) {
    ppc_lhz(kScratch, offset, src);
    ppc_sth(kScratch, offset, dest);
    offset += 2;
  }
  if (offset < bytes) {
    ppc_lbz(kScratch, offset, src);
    ppc_stb(kScratch, offset, dest);
    offset++;
  }
  QASSERT_TEXT(offset == bytes, "offset == bytes");
}

void CGPPC::ZeroStructure(TacAddr const* dest) {
  unsigned int bytes = dest->mType.StorageSize();
  int to = LoadSymbolAddress(dest, kSelectAnyGPR);
  Touch(to);
  ppc_li(kScratch, 0);
  unsigned int offset = 0;
  if (bytes > kUnrolledCopyLimit) {
    int count = AllocateRegister(false, SchemeExclude(to, kSelectAnyGPR));
    LoadImmediate(count, bytes / 4);
    ppc_mtctr(count);
    ppc_stw(kScratch, 0, to);
    ppc_addi(to, to, 4);
    ppc_bdnz(-8);
    bytes %= 4;
  }
  for (; offset + 4 <= bytes; offset += 4) ppc_stw(kScratch, offset, to);
  if (offset + 2 <= bytes) {
    ppc_sth(kScratch, offset, to);
    offset += 2;
  }
  if (offset < bytes) ppc_stb(kScratch, offset, to);
  ForgetAddr(dest);
}

void CGPPC::tac_Zero(TacLine const& line) {
  QASSERT(line.result != nilTacAddr && !line.result->IsConstant());
  if (AddrIsStruct(line.result)) return ZeroStructure(line.result);
  TacLine zero = line;
  zero.opA = line.result->mType.IsFloat() ? gTacFloatZero : gTacZero;
  tac_Store(zero);
}

void CGPPC::tac_Varptr(TacLine const& line) {
  StoreTacAddr(LoadSymbolAddress(line.opA, kSelectAnyGPR), line.result);
}

// ---------------------------------------------------------------- pointers

// Pointer plus offset: a constant offset is the displacement, a variable
// one is added into a register of its own.
PPCOperand CGPPC::PointerOperand(TacLine const& line, TacAddr const* pointer,
                                 unsigned long scheme, int* base) {
  if (line.opB != nilTacAddr)
    QASSERT_TEXT(kSInt32Type == line.opB->mType.GetMainType(),
                 "kSInt32Type == line.opB->mType.GetMainType()");
  PPCOperand where = {LoadTacAddr(pointer, scheme), 0, false};
  if (line.opB == nilTacAddr) {
  } else if (line.opB->IsConstant()) {
    where.disp = line.opB->GetValue()->uSInt32;
    QASSERT_TEXT(where.disp >= -32768 && where.disp <= 32767,
                 "pointer offset beyond 32 KiB");
  } else {
    int index = LoadTacAddr(line.opB, SchemeExclude(where.base, scheme));
    int sum = AllocateRegister(
        false, SchemeExclude(index, SchemeExclude(where.base, scheme)));
    ppc_add(sum, where.base, index);
    where.base = sum;
  }
  *base = where.base;
  return where;
}

void CGPPC::tac_Peek(TacLine const& line) {
  TacAddr const* result = line.result;
  IRDataType const& type = result->mType;
  int base;
  PPCOperand where = PointerOperand(line, line.opA, kSelectAnyGPR, &base);
  unsigned long avoid = SchemeExclude(base, kSelectAnyGPR);
  if (AddrIsStruct(result)) {
    Touch(base);
    if (where.disp) ppc_addi(base, base, where.disp);
    int dest = LoadSymbolAddress(result, avoid);
    CopyStructure(dest, base, type.StorageSize());
    return ForgetAddr(result);
  }
  if (AddrIsInt64(result)) {
    if (type.StorageSize() != 8) QFAIL("peek unknown 64-bit type");
    int lo = AllocateRegister(false, avoid);
    int hi = AllocateRegister(false, SchemeExclude(lo, avoid));
    PPCOperand low = where;
    low.disp += 4;
    EmitMemory(&PPCOpWriter::ppc_lwz, hi, where);
    EmitMemory(&PPCOpWriter::ppc_lwz, lo, low);
    return StoreInt64TacAddr(hi, lo, result);
  }
  bool isFloat = type.IsFloat();
  unsigned long size = type.StorageSize();
  if (!isFloat && size != 1 && size != 2 && size != 4) QFAIL("peek unknown type");
  int reg = AllocateRegister(isFloat, isFloat ? kSelectAnyFPR : avoid);
  LoadFromMemory(reg, type.GetMainType(), size, where);
  StoreTacAddr(reg, result);
}

// Memory written through a pointer may be any operand's home, so the cache
// is dropped.
void CGPPC::tac_Poke(TacLine const& line) {
  TacAddr const* value = line.opA;
  IRDataType const& type = value->mType;
  int base;
  if (AddrIsStruct(value)) {
    int src = LoadSymbolAddress(value, kSelectAnyGPR);
    PPCOperand where =
        PointerOperand(line, line.result, SchemeExclude(src, kSelectAnyGPR), &base);
    Touch(base);
    if (where.disp) ppc_addi(base, base, where.disp);
    CopyStructure(base, src, type.StorageSize());
  } else if (AddrIsInt64(value)) {
    int hi, lo;
    LoadInt64TacAddr(value, &hi, &lo, kSelectAnyGPR);
    PPCOperand where = PointerOperand(
        line, line.result, SchemeExclude(hi, SchemeExclude(lo, kSelectAnyGPR)),
        &base);
    PPCOperand low = where;
    low.disp += 4;
    EmitMemory(&PPCOpWriter::ppc_stw, hi, where);
    EmitMemory(&PPCOpWriter::ppc_stw, lo, low);
  } else {
    bool isFloat = type.IsFloat();
    int reg = LoadTacAddr(value, isFloat ? kSelectAnyFPR : kSelectAnyGPR);
    unsigned long scheme =
        isFloat ? kSelectAnyGPR : SchemeExclude(reg, kSelectAnyGPR);
    StoreToMemory(reg, type, PointerOperand(line, line.result, scheme, &base));
  }
  InvalidateRegisters();
}

// The byte-reversing loads do the work; a 64-bit value also trades its
// words.
void CGPPC::tac_EndianSwap(TacLine const& line) {
  QASSERT_TEXT(line.opA != nilTacAddr, "line.opA != nilTacAddr");
  QASSERT_TEXT(line.result != nilTacAddr, "line.result != nilTacAddr");
  QASSERT_TEXT(line.opA->mType == line.result->mType,
               "line.opA->mType == line.result->mType");
  QASSERT(!line.opA->mType.RefCounted());
  unsigned long size = line.opA->mType.StorageSize();
  if (size == 1) return;
  int from = LoadSymbolAddress(line.opA, kSelectAnyGPR);
  int to = LoadSymbolAddress(line.result, SchemeExclude(from, kSelectAnyGPR));
  int reg = AllocateRegister(
      false, SchemeExclude(from, SchemeExclude(to, kSelectAnyGPR)));
  if (size == 4) {
    ppc_lwbrx(reg, 0, from);
    ppc_stw(reg, 0, to);
  } else if (size == 8) {
    // Both words are read before either is written: the two homes may be
    // one, for a swap in place.
    int high = AllocateRegister(
        false, SchemeExclude(reg, SchemeExclude(from, SchemeExclude(to, kSelectAnyGPR))));
    ppc_lwbrx(reg, 0, from);
    ppc_li(kScratch, 4);
    ppc_lwbrx(high, from, kScratch);
    ppc_stw(reg, 4, to);
    ppc_stw(high, 0, to);
    Touch(high);
  } else if (size == 2) {
    ppc_lhbrx(reg, 0, from);
    ppc_sth(reg, 0, to);
  } else {
    QASSERT_TEXT(0, "0");
  }
  Touch(from);
  Touch(to);
  Touch(reg);
  ForgetAddr(line.result);
}

// ---------------------------------------------------------------- counts

void CGPPC::LockOperation(TacLine const& line, int stringID, int objectID,
                          int wstringID, int cfstringID, char const* failure) {
  CallRuntime(CountingIntrinsic(line.opA->mType, stringID, objectID, wstringID,
                                cfstringID, failure),
              line.opA, line.opB, nilTacAddr);
}

void CGPPC::tac_Lock(TacLine const& line) {
  LockOperation(line, kIntrinsicRuntimeLockString, kIntrinsicRuntimeLockObject,
                kIntrinsicLockWString, kIntrinsicLockCFString,
                "Locking invalid data type");
}

// The variable is nil after its reference is released, so a second
// release is harmless.
void CGPPC::tac_Unlock(TacLine const& line) {
  LockOperation(line, kIntrinsicRuntimeUnlockString,
                kIntrinsicRuntimeUnlockObject, kIntrinsicUnlockWString,
                kIntrinsicUnlockCFString, "Unlocking invalid data type");
  StoreTacAddr(LoadTacAddr(gTacZero, kSelectAnyGPR), line.opA);
}

void CGPPC::tac_SwapLocks(TacLine const& line) {
  QASSERT_TEXT(line.opA->mType.GetMainType() == line.opB->mType.GetMainType(),
               "line.opA->mType.GetMainType() == line.opB->mType.GetMainType()");
  LockOperation(line, kIntrinsicRuntimeLockUnlockStrings,
                kIntrinsicRuntimeLockUnlockObjects, kIntrinsicSwapWStringLocks,
                kIntrinsicSwapCFStringLocks,
                "Swapping locks on invalid data type");
  StoreTacAddr(LoadTacAddr(gTacZero, kSelectAnyGPR), line.opB);
}
