// 64-bit integers and Currency on a 32-bit machine: register pairs, low
// word first; never cached.
#include "Compiler/BackEnds/IA-32/CGIA32.h"

#include "Universal/Assertion.h"

void CGIA32::Int64Binop(TacLine const& line, RegMemPlain lowOp,
                        RegMemPlain highOp) {
  int aHi, aLo, bHi, bLo;
  LoadInt64TacAddr(line.opA, &aHi, &aLo, kSelectAnyGPR);
  LoadInt64TacAddr(line.opB, &bHi, &bLo,
                   SchemeExclude2(aHi, aLo, kSelectAnyGPR));
  (this->*lowOp)(kModRegister, aLo, bLo);
  (this->*highOp)(kModRegister, aHi, bHi);
  StoreInt64TacAddr(aHi, aLo, line.result);
}

// Equality compares the low words, then the high words only if the low
// ones matched. Ordering decides on the high words, and only when they are
// equal on the low words, always unsigned.
void CGIA32::Int64Compare(TacLine const& line, GroupPlain setHigh,
                          GroupPlain setLow, bool equality) {
  int r = AllocateRegister(kSelect8BitGPR, kNoRegister);
  int scheme = SchemeExclude(r, kSelectAnyGPR);
  int aHi, aLo, bHi, bLo;
  LoadInt64TacAddr(line.opA, &aHi, &aLo, scheme);
  LoadInt64TacAddr(line.opB, &bHi, &bLo, SchemeExclude2(aHi, aLo, scheme));
  long decided = NewLocalLabel();
  ia32_xor(kModRegister, r, r);
  if (equality) {
    ia32_cmp(kModRegister, aLo, bLo);
    EmitBranch(&IA32OpWriter::ia32_jne, 2, decided);
    ia32_cmp(kModRegister, aHi, bHi);
    PlaceLabel(decided);
    (this->*setLow)(kModRegister, r);
  } else {
    ia32_cmp(kModRegister, aHi, bHi);
    (this->*setHigh)(kModRegister, r);
    EmitBranch(&IA32OpWriter::ia32_jne, 2, decided);
    ia32_cmp(kModRegister, aLo, bLo);
    (this->*setLow)(kModRegister, r);
    PlaceLabel(decided);
  }
  StoreBoolean(r, line.result);
}
