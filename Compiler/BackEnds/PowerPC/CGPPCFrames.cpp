// Functions: opening, and at Leave the patch of every local's displacement
// by the size of the argument area, the prologue (saves, the frame, the
// incoming parameters copied to their locals) and the epilogue.
#include "Compiler/BackEnds/PowerPC/CGPPC.h"

#include "Compiler/SymbolTable/LocalSymbolTable.h"
#include "Universal/Assertion.h"
#include "Universal/ByteHelpers.h"

namespace {

int const kLocalStorageLimit = 32767;
int const kLocalStorageLimitKiB = 32;
// The position-independent model takes its base from the address of an
// anchor in the prologue.
char const* const kBaseAnchorName = "% base";

}  // namespace

void CGPPC::tac_Enter(TacLine const& line) {
  QASSERT_TEXT(line.opA->IsConstant(), "line.opA->IsConstant()");
  QASSERT_TEXT(kStringType == line.opA->mType.GetMainType(),
               "kStringType == line.opA->mType.GetMainType()");
  QASSERT_TEXT(!mFunc || (mFunc->mName == kMainBodyFunctionName &&
                          mFunc->Length() == 0 && Length() == 0),
               "the pending function is the empty main body or nothing");
  QASSERT_TEXT(!mLocals, "!mLocals");
  BeginFunction(line.opA->GetValue()->mString);
  if (line.opB != nilTacAddr) {
    QASSERT(line.opB->IsConstant() &&
            line.opB->mType.GetMainType() == kSInt32Type);
    mLocals = mSymbols->GetTable(line.opB->GetValue()->uSInt32);
  }
}

void CGPPC::tac_Stop(TacLine const& line) { tac_Leave(line); }

// The first callee-saved register written, or kRegisterCount for none.
int CGPPC::FirstSavedRegister(bool isFloat) const {
  RegisterState const* bank = isFloat ? mFloatRegisters : mRegisters;
  for (int reg = isFloat ? kFirstSavedFPR : kFirstSavedGPR;
       reg < kRegisterCount; reg++)
    if (bank[reg].mUsed) return reg;
  return kRegisterCount;
}

// Each noted instruction's 16-bit displacement grows by the argument area.
void CGPPC::PatchLocalReferences() {
  for (unsigned long i = 0; i < mLocalDataRefs.size(); i++) {
    unsigned int at = mLocalDataRefs[i];
    unsigned long word = Get32(at);
    long disp = static_cast<short>(word & 0xffff) +
                static_cast<long>(mOutgoingParameterSpace);
    if (disp < 1 || disp > kLocalStorageLimit) {
      SimpleVector<string> arguments;
      arguments.push_back(ultoa(LocalsSize() / 1024));
      arguments.push_back(ultoa(kLocalStorageLimitKiB));
      Error(kErrorLocalStorageTooLarge, arguments);
      return;
    }
    Set32(at, (word & 0xffff0000) | static_cast<unsigned long>(disp));
  }
}

void CGPPC::tac_Leave(TacLine const& line) {
  if (line.opA != nilTacAddr) LoadReturnValue(line.opA);
  if (mOptions.mCodeModel == kCodeModelPositionIndependent) mMadeCall = true;
  if (mOutgoingParameterSpace < kMinimumParameterSpace)
    mOutgoingParameterSpace = kMinimumParameterSpace;
  PatchLocalReferences();
  int firstGPR = FirstSavedRegister(false);
  int firstFPR = FirstSavedRegister(true);
  unsigned long savedBytes =
      4 * (kRegisterCount - firstGPR) + 8 * (kRegisterCount - firstFPR);
  unsigned long frameSize =
      AlignBytes(savedBytes + LocalsSize() + mOutgoingParameterSpace +
                     kLinkageSize,
                 kFrameAlignment);
  if (frameSize > static_cast<unsigned long>(kLocalStorageLimit) && !mFailed) {
    SimpleVector<string> arguments;
    arguments.push_back(ultoa(LocalsSize() / 1024));
    arguments.push_back(ultoa(kLocalStorageLimitKiB));
    Error(kErrorLocalStorageTooLarge, arguments);
  }
  mProlog.Reset();
  unsigned int anchor = WritePrologue(frameSize, firstGPR, firstFPR);
  CopyParametersToLocals(frameSize);
  mParameters.deleteAll();
  WriteEpilogue(frameSize, firstGPR, firstFPR);
  unsigned int prologLength = mProlog.Length();
  AdjustImportListOffsets(prologLength);
  mFunc->mLineTable.Adjust(prologLength);
  mFunc->Append(reinterpret_cast<char const*>(mProlog.Buffer()), prologLength);
  mFunc->Append(reinterpret_cast<char const*>(Buffer()), Length());
  MakeImportListPermanent(mFunc);
  if (mOptions.mCodeModel == kCodeModelPositionIndependent) {
    mFunc->MarkImportAbsolute(Import::kImportPICBaseAnchor, kBaseAnchorName,
                              anchor);
    mFunc->MarkImportAbsolute(Import::kImportPICHigh, kBaseAnchorName,
                              anchor + 4);
    mFunc->MarkImportAbsolute(Import::kImportPICLow, kBaseAnchorName,
                              anchor + 8);
  }
  mFunc->mParameterSpace = mOutgoingParameterSpace + kLinkageSize;
  if (mOptions.mGenerateTraceback)
    GenerateTracebackTable(prologLength, kRegisterCount - firstGPR,
                           kRegisterCount - firstFPR);
  Reset();
  EndFunction();
}

// Saves go below the caller's stack pointer before the frame exists; the
// link and condition registers into the caller's linkage area. Answers
// where the base register's anchor is, in the position-independent model:
// the return address of the prologue's own bl.
unsigned int CGPPC::WritePrologue(unsigned long frameSize, int firstGPR,
                                  int firstFPR) {
  unsigned int anchor = 0;
  int gprBytes = 4 * (kRegisterCount - firstGPR);
  if (firstGPR < kRegisterCount)
    mProlog.ppc_stmw(firstGPR, -gprBytes, kStackPointer);
  for (int reg = firstFPR; reg < kRegisterCount; reg++)
    mProlog.ppc_stfd(reg, -gprBytes - 8 * (reg - firstFPR + 1), kStackPointer);
  if (mMadeCall) {
    mProlog.ppc_mflr(kScratch);
    mProlog.ppc_stw(kScratch, kSavedLinkOffset, kStackPointer);
  }
  if (mChangedCR) {
    mProlog.ppc_mfcr(kScratch);
    mProlog.ppc_stw(kScratch, kSavedConditionOffset, kStackPointer);
  }
  mProlog.ppc_stwu(kStackPointer, -static_cast<int>(frameSize), kStackPointer);
  if (mOptions.mCodeModel == kCodeModelPositionIndependent) {
    mProlog.ppc_bl(4);
    anchor = mProlog.Length();
    mProlog.ppc_mflr(kBaseRegister);
    mProlog.ppc_lis(kScratch, 0);
    mProlog.ppc_ori(kScratch, kScratch, 0);
    mProlog.ppc_add(kBaseRegister, kBaseRegister, kScratch);
  }
  // What the reload after each call reads.
  if (mMadeCall)
    mProlog.ppc_stw(kBaseRegister, kSavedBaseOffset, kStackPointer);
  return anchor;
}

// The last GetParam line names the first argument word. Words beyond the
// eighth, and floats beyond the thirteenth, are in the caller's argument
// area, above this frame.
void CGPPC::CopyParametersToLocals(unsigned long frameSize) {
  unsigned long word = 0, floats = 0;
  int incoming = static_cast<int>(frameSize) + kLinkageSize;
  for (unsigned long i = mParameters.size(); i > 0; i--) {
    TacAddr const* param = mParameters[i - 1];
    QASSERT_TEXT(param->GetStorageClass() == kStackDataStorage,
                 "parameters live in the frame");
    IRDataType const& type = param->mType;
    unsigned long size = type.StorageSize();
    int disp = StackDisplacement(param) +
               static_cast<int>(mOutgoingParameterSpace);
    if (type.IsFloat()) {
      int reg = kFirstFloatArgument + static_cast<int>(floats);
      if (floats >= kFloatArgumentCount) {
        reg = 0;
        if (size == 4)
          mProlog.ppc_lfs(reg, incoming + 4 * static_cast<int>(word), kStackPointer);
        else
          mProlog.ppc_lfd(reg, incoming + 4 * static_cast<int>(word), kStackPointer);
      }
      if (size == 4)
        mProlog.ppc_stfs(reg, disp, kStackPointer);
      else
        mProlog.ppc_stfd(reg, disp, kStackPointer);
      floats++;
      word += size == 4 ? 1 : 2;
      continue;
    }
    // Whole words, then the tail of a structure by halfword and byte.
    unsigned long words = AlignBytes(size, 4) / 4;
    for (unsigned long k = 0; k < words; k++, word++) {
      int reg = kFirstArgumentRegister + static_cast<int>(word);
      if (word >= kArgumentRegisterCount) {
        reg = kScratch;
        mProlog.ppc_lwz(reg, incoming + 4 * static_cast<int>(word), kStackPointer);
      }
      unsigned long left = size - 4 * k;
      int at = disp + static_cast<int>(4 * k);
      if (left >= 4) {
        mProlog.ppc_stw(reg, at, kStackPointer);
      } else if (size < 4) {
        // A narrow value is the low end of its word.
        if (left == 2)
          mProlog.ppc_sth(reg, at, kStackPointer);
        else
          mProlog.ppc_stb(reg, at, kStackPointer);
      } else {
        // A structure's last bytes are the high end of its last word.
        if (left >= 2) {
          mProlog.ppc_srwi(kScratch, reg, 16);
          mProlog.ppc_sth(kScratch, at, kStackPointer);
        }
        if (left != 2) {
          mProlog.ppc_srwi(kScratch, reg, left == 3 ? 8 : 24);
          mProlog.ppc_stb(kScratch, at + (left == 3 ? 2 : 0), kStackPointer);
        }
      }
    }
  }
}

// Floats in f1, 64-bit values in r3 (high) and r4, others in r3; a
// structure was written through the hidden pointer already.
void CGPPC::LoadReturnValue(TacAddr const* value) {
  if (AddrIsStruct(value)) return;
  QASSERT_TEXT(value->mType.GetMainType() != kNoType, "not returnType.Null()");
  if (value->mType.IsFloat()) {
    QASSERT(LoadTacAddr(value, 1ul << kFirstFloatArgument) ==
            kFirstFloatArgument);
  } else if (AddrIsInt64(value)) {
    int r3 = kFirstArgumentRegister;
    unsigned long scheme = kSelectAnyGPR & ~(3ul << r3);
    int hi, lo;
    LoadInt64TacAddr(value, &hi, &lo, scheme);
    ppc_mr(r3, hi);
    ppc_mr(r3 + 1, lo);
  } else {
    QASSERT(LoadTacAddr(value, 1ul << kFirstArgumentRegister) ==
            kFirstArgumentRegister);
  }
}

// Everything is restored while the frame still stands; only then is it
// dropped.
void CGPPC::WriteEpilogue(unsigned long frameSize, int firstGPR,
                          int firstFPR) {
  int size = static_cast<int>(frameSize);
  if (mMadeCall) {
    ppc_lwz(kScratch, size + kSavedLinkOffset, kStackPointer);
    ppc_mtlr(kScratch);
  }
  if (mChangedCR) {
    ppc_lwz(kScratch, size + kSavedConditionOffset, kStackPointer);
    ppc_mtcr(kScratch);
  }
  int gprBytes = 4 * (kRegisterCount - firstGPR);
  if (firstGPR < kRegisterCount)
    ppc_lmw(firstGPR, size - gprBytes, kStackPointer);
  for (int reg = firstFPR; reg < kRegisterCount; reg++)
    ppc_lfd(reg, size - gprBytes - 8 * (reg - firstFPR + 1), kStackPointer);
  ppc_addi(kStackPointer, kStackPointer, size);
  ppc_blr();
}
