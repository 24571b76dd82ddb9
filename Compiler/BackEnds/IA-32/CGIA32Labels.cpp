// Labels and branches: the program's labels and the generator's own jump
// targets go through the same two lists, so every forward jump is patched
// the same way.
#include "Compiler/BackEnds/IA-32/CGIA32.h"

#include "Universal/Assertion.h"

// The displacement field lies `delta` bytes past the current end; answers
// the displacement to a known label, or 0 with the field noted for later.
int CGIA32::FindLabel(long label, int delta) {
  unsigned int field = CodeBufferLength() + delta;
  unsigned int offset = 0;
  if (mLabelOffsets->GetEntry(label, offset))
    return static_cast<int>(offset - (field + 4));
  unsigned long previous = 0;
  mNewestForwardRef->GetEntry(label, previous);
  ForwardRef ref = {field, previous};
  mForwardRefs.push_back(ref);
  mNewestForwardRef->AddEntry(label, mForwardRefs.size());
  mUnresolvedForwardRefs++;
  return 0;
}

// A label placed again keeps its first place, which every jump found.
void CGIA32::PlaceLabel(long label) {
  unsigned int here = CodeBufferLength();
  if (!mLabelOffsets->HasEntry(label)) mLabelOffsets->AddEntry(label, here);
  unsigned long waiting = 0;
  if (!mNewestForwardRef->GetEntry(label, waiting)) return;
  mNewestForwardRef->RemoveEntry(label);
  while (waiting) {
    ForwardRef const& ref = mForwardRefs[waiting - 1];
    mFunc->Set32(ref.mField, here - (ref.mField + 4));
    mUnresolvedForwardRefs--;
    waiting = ref.mPreviousForLabel;
  }
}

void CGIA32::EmitBranch(Branch branch, int opcodeBytes, long label) {
  (this->*branch)(FindLabel(label, opcodeBytes));
}

void CGIA32::tac_Label(TacLine const& line) {
  QASSERT(line.opA->IsConstant() &&
          line.opA->mType.GetMainType() == kSInt32Type);
  InvalidateRegisters();
  PlaceLabel(line.opA->GetValue()->uSInt32);
}

void CGIA32::tac_Jump(TacLine const& line) {
  EmitBranch(&IA32OpWriter::ia32_jmp_rel, 1, line.result->GetValue()->uSInt32);
}

// IfNEI t, False and IfEQI t, True jump when t is True, which the flags
// of the comparison's final `and` show as ZF clear.
bool CGIA32::BranchOnComparisonFlags(TacLine const& line) {
  if (!mOptions.mOptimizeCode || mFlagsHold == nilTacAddr) return false;
  if (line.opA != mFlagsHold || !line.opB->IsConstant()) return false;
  if (line.opcode != kTacIfNEI && line.opcode != kTacIfEQI) return false;
  long value = line.opB->GetValue()->uSInt32;
  if (value != 0 && value != 1) return false;
  bool whenTrue = (line.opcode == kTacIfNEI) == (value == 0);
  EmitBranch(whenTrue ? &IA32OpWriter::ia32_jne : &IA32OpWriter::ia32_je, 2,
             line.result->GetValue()->uSInt32);
  return true;
}

void CGIA32::CompareAndBranch(TacLine const& line, Branch branch) {
  if (ExprIsInt64(line)) QFAIL("not yet supported for Int64");
  if (BranchOnComparisonFlags(line)) return;
  int a = LoadForReading(line.opA, kSelectAnyGPR);
  int b = LoadForReading(line.opB, SchemeExclude(a, kSelectAnyGPR));
  ia32_cmp(kModRegister, a, b);
  EmitBranch(branch, 2, line.result->GetValue()->uSInt32);
}

void CGIA32::tac_IfEQI(TacLine const& line) {
  CompareAndBranch(line, &IA32OpWriter::ia32_je);
}
void CGIA32::tac_IfNEI(TacLine const& line) {
  if (NilCheckInLine(line)) return;
  CompareAndBranch(line, &IA32OpWriter::ia32_jne);
}
void CGIA32::tac_IfLTI(TacLine const& line) {
  CompareAndBranch(line, &IA32OpWriter::ia32_jl);
}
void CGIA32::tac_IfLTU(TacLine const& line) {
  CompareAndBranch(line, &IA32OpWriter::ia32_jb);
}
