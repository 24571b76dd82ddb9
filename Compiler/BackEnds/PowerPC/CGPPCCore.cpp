// The PowerPC target's plumbing: configuration, functions opening and
// closing, memory operands, and the operations that emit little.
#include "Compiler/BackEnds/PowerPC/CGPPC.h"

#include "Compiler/SymbolTable/LocalSymbolTable.h"
#include "Universal/Assertion.h"

CGPPC::CGPPC()
    : PPCOpBufWriter(kBodyBufferSize), mLocals(nullptr),
      mObjectBase(nilTacAddr), mObjectBaseOffset(0), mClock(0),
      mOutgoingParameterSpace(0), mMadeCall(false), mChangedCR(false),
      mProlog(kPrologBufferSize), mNextLocalLabel(0), mReserved(0),
      mReservedFloats(0) {}

CGPPC::~CGPPC() {}

void CGPPC::Configure(CGPPCOptions const& options,
                      SimpleVector<string> const& intrinsicLinkNames) {
  mOptions = options;
  mIntrinsicLinkNames = intrinsicLinkNames;
}

void CGPPC::CompileLineBefore(TacLine const& line) {
  if (mFunc)
    mFunc->mLineTable.AddEntry(CodeBufferLength(),
                               static_cast<unsigned int>(line.mLine));
}

// The conditional branches reach 32 KiB: past the threshold, a pending one
// gets a repeater before it is too late.
void CGPPC::CompileLineAfter(TacLine const& line) {
  if (mFunc && CodeBufferLength() > kLongJumpThreshold) CheckForLongJumps();
}

void CGPPC::BeginFunction(string const& name) {
  NewFunction(name);
  Reset();
  mLabels.deleteAll();
  mForwardRefs.deleteAll();
  mFarBranches.deleteAll();
  mParameters.deleteAll();
  mArguments.deleteAll();
  mLocalDataRefs.deleteAll();
  mLocals = nullptr;
  mObjectBase = nilTacAddr;
  mObjectBaseOffset = 0;
  mOutgoingParameterSpace = 0;
  mMadeCall = false;
  mChangedCR = false;
  mNextLocalLabel = 0;
  mReserved = 0;
  mReservedFloats = 0;
  ResetRegisters();
}

void CGPPC::EndFunction() {
  FinishFunction();
  mLocals = nullptr;
  if (mForwardRefs.size() || mFarBranches.size())
    Error(kErrorUnresolvedForwardReference);
  QASSERT_TEXT(!mArguments.size(), "!mArguments.size()");
  QASSERT_TEXT(!mParameters.size(), "!mParameters.size()");
}

// ---------------------------------------------------------------- memory

unsigned long CGPPC::LocalsSize() const {
  return mLocals ? mLocals->GetTotalStorage() : 0;
}

// Locals lie above the argument area, whose size is added at Leave.
int CGPPC::StackDisplacement(TacAddr const* addr) const {
  return static_cast<int>(kLinkageSize + addr->StorageOffset());
}

void CGPPC::EmitMemory(DForm op, int reg, PPCOperand const& where) {
  if (where.local) NoteLocalReference();
  (this->*op)(reg, where.disp, where.base);
}

// ---------------------------------------------------------------- small ops

void CGPPC::tac_Noop(TacLine const& line) { ppc_noop(); }

void CGPPC::tac_Debugout(TacLine const& line) { QASSERT_TEXT(0, "0"); }

// The calling convention pragma means nothing here: the caller never
// counts what it passed.
void CGPPC::tac_Pragma(TacLine const& line) {}

void CGPPC::tac_Baseref(TacLine const& line) {
  mObjectBase = line.opA;
  if (line.opB->IsConstant()) mObjectBaseOffset = line.opB->GetValue()->uSInt32;
  InvalidateRegisters();
}
