// The IA-32 target's plumbing: configuration, the byte sinks, functions
// opening and closing, operand shapes, and the operations that emit little.
#include "Compiler/BackEnds/IA-32/CGIA32.h"

#include "Compiler/SymbolTable/LocalSymbolTable.h"
#include "Universal/Assertion.h"

CGIA32::CGIA32()
    : mLocals(nullptr), mLabelOffsets(new IntMap<unsigned int>),
      mNewestForwardRef(new IntMap<unsigned long>), mUnresolvedForwardRefs(0),
      mObjectBase(nilTacAddr), mObjectBaseOffset(0),
      mClock(0), mCallingConvention(0), mNextLocalLabel(0),
      mFlagsHold(nilTacAddr), mFlagsLeft(nilTacAddr) {
  for (int reg = 0; reg < kRegisterCount; reg++) mSavedRegisters[reg] = false;
  ClearRegisterHomes();
}

CGIA32::~CGIA32() {
  delete mLabelOffsets;
  delete mNewestForwardRef;
}

void CGIA32::Configure(CGIA32Options const& options,
                       SimpleVector<string> const& intrinsicLinkNames) {
  mOptions = options;
  mIntrinsicLinkNames = intrinsicLinkNames;
}

void CGIA32::ia32_Write8(int value) {
  QASSERT_TEXT(mFunc, "mFunc");
  mFunc->Append8(value);
}

void CGIA32::ia32_Write16(int value) {
  QASSERT_TEXT(mFunc, "mFunc");
  mFunc->Append16(value);
}

void CGIA32::ia32_Write32(int value) {
  QASSERT_TEXT(mFunc, "mFunc");
  mFunc->Append32(value);
}

unsigned int CGIA32::CodeBufferLength() { return mFunc->Length(); }

void CGIA32::CompileLineBefore(TacLine const& line) {
  mFlagsHold = mFlagsLeft;
  mFlagsLeft = nilTacAddr;
  if (mFunc)
    mFunc->mLineTable.AddEntry(CodeBufferLength(),
                               static_cast<unsigned int>(line.mLine));
}

void CGIA32::BeginFunction(string const& name) {
  NewFunction(name);
  delete mLabelOffsets;
  mLabelOffsets = new IntMap<unsigned int>;
  delete mNewestForwardRef;
  mNewestForwardRef = new IntMap<unsigned long>;
  mForwardRefs.deleteAll();
  mUnresolvedForwardRefs = 0;
  mParameters.deleteAll();
  mArguments.deleteAll();
  mLocals = nullptr;
  mObjectBase = nilTacAddr;
  mObjectBaseOffset = 0;
  mCallingConvention = 0;
  mNextLocalLabel = 0;
  mConstantPool.deleteAll();
  mConstantReferences.deleteAll();
  ResetRegisters();
  ClearRegisterHomes();
  for (int reg = 0; reg < kRegisterCount; reg++) mSavedRegisters[reg] = false;
}

void CGIA32::EndFunction() {
  FinishFunction();
  mLocals = nullptr;
  mCallingConvention = 0;
  if (mUnresolvedForwardRefs) Error(kErrorUnresolvedForwardReference);
  QASSERT_TEXT(!mArguments.size(), "!mArguments.size()");
  QASSERT_TEXT(!mParameters.size(), "!mParameters.size()");
}

// ---------------------------------------------------------------- shapes

void CGIA32::EmitRegMem(RegMemPlain plain, RegMemDisp displaced,
                        RegMemSIB sib, int reg, IA32Operand const& where) {
  if (where.index != kNoRegister) {
    QASSERT(where.mod == kModIndirect);
    (this->*sib)(kModIndirect, reg, 4, 0, where.index, where.rm);
  } else if (where.mod == kModIndirect && !where.global) {
    (this->*plain)(kModIndirect, reg, where.rm);
  } else {
    (this->*displaced)(where.mod, reg, where.rm, where.disp);
  }
  if (where.global) LoadGlobal(where.global, -4);
}

void CGIA32::EmitGroup(GroupPlain plain, GroupDisp displaced,
                       IA32Operand const& where) {
  QASSERT(where.index == kNoRegister);
  if (where.mod == kModIndirect && !where.global)
    (this->*plain)(kModIndirect, where.rm);
  else
    (this->*displaced)(where.mod, where.rm, where.disp);
  if (where.global) LoadGlobal(where.global, -4);
}

// ---------------------------------------------------------------- small ops

void CGIA32::tac_Noop(TacLine const& line) { ia32_nop(); }

void CGIA32::tac_Debugout(TacLine const& line) { QASSERT_TEXT(0, "0"); }

void CGIA32::tac_Pragma(TacLine const& line) {
  if (line.opA->GetValue()->uSInt32 == 0)
    mCallingConvention = line.opB->GetValue()->uSInt32;
}

// Field operands name a different place under a different base, so what
// the registers know of them ends here.
void CGIA32::tac_Baseref(TacLine const& line) {
  mObjectBase = line.opA;
  if (line.opB->IsConstant()) mObjectBaseOffset = line.opB->GetValue()->uSInt32;
  InvalidateRegisters();
}
