// Floating point in the f-registers. A Single result is rounded to single
// precision before anything else sees it, as its store would round it.
#include "Compiler/BackEnds/PowerPC/CGPPC.h"

#include "Universal/Assertion.h"

void CGPPC::FloatBinop(TacLine const& line, XForm op) {
  ExprIsFloat(line);
  int a = LoadTacAddr(line.opA, kSelectAnyFPR);
  int b = LoadTacAddr(line.opB, SchemeExclude(a, kSelectAnyFPR));
  int r = AllocateRegister(
      true, SchemeExclude(a, SchemeExclude(b, kSelectAnyFPR)));
  (this->*op)(r, a, b);
  if (line.result->mType.GetMainType() == kReal32Type) ppc_frsp(r, r);
  StoreTacAddr(r, line.result);
}

// fcmpu leaves LT, GT and EQ clear for an unordered pair: EQ and LT are
// false, their negations NE and LE true.
void CGPPC::FloatCompare(TacLine const& line, int bit, bool negate,
                         bool swap) {
  ExprIsFloat(line);
  int a = LoadTacAddr(line.opA, kSelectAnyFPR);
  int b = LoadTacAddr(line.opB, SchemeExclude(a, kSelectAnyFPR));
  if (swap)
    ppc_fcmpu(0, b, a);
  else
    ppc_fcmpu(0, a, b);
  StoreTacAddr(ConditionBitToRegister(bit, negate, kSelectAnyGPR), line.result);
}
