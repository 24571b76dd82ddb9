// 64-bit integers and Currency on a 32-bit machine: register pairs, high
// word at the lower address; never cached.
#include <initializer_list>
#include <utility>

#include "Compiler/BackEnds/PowerPC/CGPPC.h"

#include "Universal/Assertion.h"

// The low words first, so that the carry reaches the high words.
void CGPPC::Int64Binop(TacLine const& line, XForm lowOp, XForm highOp) {
  int aHi, aLo, bHi, bLo;
  LoadInt64TacAddr(line.opA, &aHi, &aLo, kSelectAnyGPR);
  LoadInt64TacAddr(line.opB, &bHi, &bLo,
                   SchemeExclude(aHi, SchemeExclude(aLo, kSelectAnyGPR)));
  bool subtract = lowOp == &PPCOpWriter::ppc_subfc;
  if (subtract) {
    (this->*lowOp)(aLo, bLo, aLo);
    (this->*highOp)(aHi, bHi, aHi);
  } else {
    (this->*lowOp)(aLo, aLo, bLo);
    (this->*highOp)(aHi, aHi, bHi);
  }
  StoreInt64TacAddr(aHi, aLo, line.result);
}

// Equality: both words equal, found by or-ing their differences. Order:
// decided by the high words (signed or not) and, when they are equal, by
// the low words, always unsigned; `orEqual` turns a < b into a <= b as
// not (b < a), and equality into inequality.
void CGPPC::Int64Compare(TacLine const& line, bool equality, bool orEqual) {
  int aHi, aLo, bHi, bLo;
  LoadInt64TacAddr(line.opA, &aHi, &aLo, kSelectAnyGPR);
  LoadInt64TacAddr(line.opB, &bHi, &bLo,
                   SchemeExclude(aHi, SchemeExclude(aLo, kSelectAnyGPR)));
  unsigned long scheme = kSelectAnyGPR;
  for (int reg : {aHi, aLo, bHi, bLo}) scheme = SchemeExclude(reg, scheme);
  int r = AllocateRegister(false, scheme);
  if (equality) {
    ppc_xor(aHi, aHi, bHi);
    ppc_xor(aLo, aLo, bLo);
    ppc_or(r, aHi, aLo);
    ppc_cntlzw(r, r);
    ppc_srwi(r, r, 5);
    if (orEqual) ppc_xori(r, r, 1);
    return StoreTacAddr(r, line.result);
  }
  bool isSigned = CategorizeBinop(line) != kCategoryUInt64;
  if (orEqual) {
    std::swap(aHi, bHi);
    std::swap(aLo, bLo);
  }
  if (isSigned)
    ppc_cmpw(0, aHi, bHi);
  else
    ppc_cmpl(0, aHi, bHi);
  ppc_cmpl(1, aLo, bLo);
  // lt0 | (eq0 & lt1), from the condition register's bits 0, 2 and 4.
  ppc_mfcr(r);
  ppc_rlwinm(aHi, r, 3, 31, 31);
  ppc_rlwinm(aLo, r, 5, 31, 31);
  ppc_and(aHi, aHi, aLo);
  ppc_rlwinm(r, r, 1, 31, 31);
  ppc_or(r, r, aHi);
  if (orEqual) ppc_xori(r, r, 1);
  StoreTacAddr(r, line.result);
}
