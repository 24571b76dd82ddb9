// Labels and branches. A conditional branch reaches 32 KiB, an
// unconditional one 32 MiB: a conditional branch to a label behind it and
// out of reach jumps over an unconditional one, and a pending one that the
// code is about to outgrow is given a repeater, an unconditional branch
// that normal flow jumps over and that the conditional one is pointed at.
#include "Compiler/BackEnds/PowerPC/CGPPC.h"

#include "Universal/Assertion.h"

namespace {

bool FindPlaced(SimpleVector<LabelPosition> const& labels, long label,
                unsigned int* offset) {
  for (unsigned long i = 0; i < labels.size(); i++)
    if (labels[i].mLabel == label) {
      *offset = labels[i].mOffset;
      return true;
    }
  return false;
}

int Inverted(int bo) {
  return bo == kBranchIfTrue ? kBranchIfFalse : kBranchIfTrue;
}

}  // namespace

void CGPPC::PlaceLabel(long label) {
  unsigned int here = CodeBufferLength();
  LabelPosition position = {label, here};
  mLabels.push_back(position);
  for (unsigned long i = mForwardRefs.size(); i > 0; i--) {
    LabelPosition const& ref = mForwardRefs[i - 1];
    if (ref.mLabel != label) continue;
    unsigned long displacement = here - ref.mOffset;
    QASSERT_TEXT(displacement < kUnconditionalReach,
                 "displacement < 33554431");
    Set32(ref.mOffset, (Get32(ref.mOffset) & 0xfc000003) |
                           (displacement & 0x3fffffc));
    mForwardRefs.deleteIdx(i - 1);
  }
  for (unsigned long i = mFarBranches.size(); i > 0; i--) {
    LabelPosition const& ref = mFarBranches[i - 1];
    if (ref.mLabel != label) continue;
    unsigned long displacement = here - ref.mOffset;
    QASSERT_TEXT(displacement < 32768, "displacement < 32768");
    QASSERT_TEXT(0 == (displacement & 0x00000003),
                 "0 == (displacement & 0x00000003)");
    Set32(ref.mOffset,
          (Get32(ref.mOffset) & 0xffff0003) | (displacement & 0xfffc));
    mFarBranches.deleteIdx(i - 1);
  }
}

// The displacement to the label when it is placed and in reach of the
// branch; otherwise 0, with the branch about to be written noted among the
// forward references of its kind.
int CGPPC::FindLabel(long label, bool conditional) {
  unsigned int target;
  if (FindPlaced(mLabels, label, &target)) {
    int displacement = static_cast<int>(target - CodeBufferLength());
    if (!conditional || displacement >= -32768) return displacement;
  }
  LabelPosition ref = {label, CodeBufferLength()};
  (conditional ? mFarBranches : mForwardRefs).push_back(ref);
  return 0;
}

void CGPPC::EmitJump(long label) { ppc_b(FindLabel(label, false)); }

// A label behind the branch and out of its reach is jumped to by an
// unconditional branch that the inverted condition skips.
void CGPPC::EmitConditionalBranch(int bo, int bi, long label) {
  unsigned int target;
  if (FindPlaced(mLabels, label, &target) &&
      static_cast<int>(target - CodeBufferLength()) < -32768) {
    ppc_bc(Inverted(bo), bi, 8);
    ppc_b(static_cast<int>(target - CodeBufferLength()));
    return;
  }
  ppc_bc(bo, bi, FindLabel(label, true));
}

void CGPPC::CheckForLongJumps() {
  for (unsigned long i = mFarBranches.size(); i > 0; i--)
    if (CodeBufferLength() - mFarBranches[i - 1].mOffset > kLongJumpThreshold)
      GenerateLongJumpRepeater(i - 1);
}

void CGPPC::GenerateLongJumpRepeater(unsigned long index) {
  LabelPosition branch = mFarBranches[index];
  mFarBranches.deleteIdx(index);
  ppc_b(8);
  unsigned int repeater = CodeBufferLength();
  LabelPosition ref = {branch.mLabel, repeater};
  mForwardRefs.push_back(ref);
  ppc_b(0);
  Set32(branch.mOffset, (Get32(branch.mOffset) & 0xffff0003) |
                            ((repeater - branch.mOffset) & 0xfffc));
}

void CGPPC::tac_Label(TacLine const& line) {
  QASSERT(line.opA->IsConstant() &&
          line.opA->mType.GetMainType() == kSInt32Type);
  InvalidateRegisters();
  PlaceLabel(line.opA->GetValue()->uSInt32);
}

void CGPPC::tac_Jump(TacLine const& line) {
  EmitJump(line.result->GetValue()->uSInt32);
}

void CGPPC::CompareAndBranch(TacLine const& line, int bo, int bi,
                             bool isSigned) {
  if (ExprIsInt64(line)) QFAIL("not yet supported for Int64");
  int a = LoadTacAddr(line.opA, kSelectAnyGPR);
  int b = LoadTacAddr(line.opB, SchemeExclude(a, kSelectAnyGPR));
  if (isSigned)
    ppc_cmpw(0, a, b);
  else
    ppc_cmpl(0, a, b);
  EmitConditionalBranch(bo, bi, line.result->GetValue()->uSInt32);
}

void CGPPC::tac_IfEQI(TacLine const& line) {
  CompareAndBranch(line, kBranchIfTrue, kConditionEQ, true);
}
void CGPPC::tac_IfNEI(TacLine const& line) {
  CompareAndBranch(line, kBranchIfFalse, kConditionEQ, true);
}
void CGPPC::tac_IfLTI(TacLine const& line) {
  CompareAndBranch(line, kBranchIfTrue, kConditionLT, true);
}
void CGPPC::tac_IfLTU(TacLine const& line) {
  CompareAndBranch(line, kBranchIfTrue, kConditionLT, false);
}
