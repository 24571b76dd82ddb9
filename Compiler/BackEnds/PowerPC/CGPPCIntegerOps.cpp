// Arithmetic, bitwise operations, shifts and comparisons: dispatch by
// category, and the 32-bit integer forms.
#include "Compiler/BackEnds/PowerPC/CGPPC.h"

#include "Compiler/Intrinsics.h"
#include "Universal/Assertion.h"

#define QUORL_OP(op) &PPCOpWriter::op

namespace {

bool SignedCategory(ArithmeticCategory category) {
  return category == kCategorySInt32 || category == kCategorySInt64 ||
         category == kCategoryCurrency;
}

}  // namespace

// Load a, load b (never into a's register), a := a op b (or b op a), store.
void CGPPC::IntegerBinop(TacLine const& line, XForm op, bool swap) {
  int a = LoadTacAddr(line.opA, kSelectAnyGPR);
  int b = LoadTacAddr(line.opB, SchemeExclude(a, kSelectAnyGPR));
  Touch(a);
  if (swap)
    (this->*op)(a, b, a);
  else
    (this->*op)(a, a, b);
  StoreTacAddr(a, line.result);
}

void CGPPC::tac_Add(TacLine const& line) {
  switch (CategorizeBinop(line)) {
    case kCategorySInt32:
    case kCategoryUInt32:
      return IntegerBinop(line, QUORL_OP(ppc_add), false);
    case kCategorySInt64:
    case kCategoryUInt64:
    case kCategoryCurrency:
      return Int64Binop(line, QUORL_OP(ppc_addc), QUORL_OP(ppc_adde));
    case kCategoryFloat:
      return FloatBinop(line, QUORL_OP(ppc_fadd));
  }
  QASSERT_TEXT(0, "0");
}

// subf t, a, b is b - a.
void CGPPC::tac_Sub(TacLine const& line) {
  switch (CategorizeBinop(line)) {
    case kCategorySInt32:
    case kCategoryUInt32:
      return IntegerBinop(line, QUORL_OP(ppc_subf), true);
    case kCategorySInt64:
    case kCategoryUInt64:
    case kCategoryCurrency:
      return Int64Binop(line, QUORL_OP(ppc_subfc), QUORL_OP(ppc_subfe));
    case kCategoryFloat:
      return FloatBinop(line, QUORL_OP(ppc_fsub));
  }
  QASSERT_TEXT(0, "0");
}

void CGPPC::tac_Mul(TacLine const& line) {
  switch (CategorizeBinop(line)) {
    case kCategorySInt32:
    case kCategoryUInt32:
      return IntegerBinop(line, QUORL_OP(ppc_mullw), false);
    case kCategorySInt64:
      return CallRuntime(kIntrinsicRuntimeMulSInt64, line.opA, line.opB, line.result);
    case kCategoryUInt64:
      return CallRuntime(kIntrinsicRuntimeMulUInt64, line.opA, line.opB, line.result);
    case kCategoryCurrency:
      return CallRuntime(kIntrinsicRuntimeMulCurrency, line.opA, line.opB, line.result);
    case kCategoryFloat:
      return FloatBinop(line, QUORL_OP(ppc_fmul));
  }
  QASSERT_TEXT(0, "0");
}

// The quotient of a zero divisor is 0 and the remainder the dividend, as
// on every target: the division is skipped, not left to the processor,
// whose answer the architecture leaves undefined.
void CGPPC::IntegerDivide(TacLine const& line, bool remainder) {
  bool isSigned = CategorizeBinop(line) == kCategorySInt32;
  int a = LoadTacAddr(line.opA, kSelectAnyGPR);
  int b = LoadTacAddr(line.opB, SchemeExclude(a, kSelectAnyGPR));
  int q = AllocateRegister(false, SchemeExclude(a, SchemeExclude(b, kSelectAnyGPR)));
  ppc_li(q, 0);
  ppc_cmpwi(0, b, 0);
  ppc_bc(kBranchIfTrue, kConditionEQ, 8);
  if (isSigned)
    ppc_divw(q, a, b);
  else
    ppc_divwu(q, a, b);
  if (remainder) {
    ppc_mullw(q, q, b);
    ppc_subf(q, q, a);
  }
  StoreTacAddr(q, line.result);
}

void CGPPC::tac_Div(TacLine const& line) {
  switch (CategorizeBinop(line)) {
    case kCategorySInt32:
    case kCategoryUInt32:
      return IntegerDivide(line, false);
    case kCategorySInt64:
      return CallRuntime(kIntrinsicRuntimeDivSInt64, line.opA, line.opB, line.result);
    case kCategoryUInt64:
      return CallRuntime(kIntrinsicRuntimeDivUInt64, line.opA, line.opB, line.result);
    case kCategoryCurrency:
      return CallRuntime(kIntrinsicRuntimeDivCurrency, line.opA, line.opB, line.result);
    case kCategoryFloat:
      return FloatBinop(line, QUORL_OP(ppc_fdiv));
  }
  QASSERT_TEXT(0, "0");
}

void CGPPC::tac_Mod(TacLine const& line) {
  switch (CategorizeBinop(line)) {
    case kCategorySInt32:
    case kCategoryUInt32:
      return IntegerDivide(line, true);
    case kCategorySInt64:
      return CallRuntime(kIntrinsicRuntimeModSInt64, line.opA, line.opB, line.result);
    case kCategoryUInt64:
      return CallRuntime(kIntrinsicRuntimeModUInt64, line.opA, line.opB, line.result);
    default:
      break;
  }
  QASSERT_TEXT(0, "0");
}

void CGPPC::tac_Pow(TacLine const& line) {
  QASSERT_TEXT(CategorizeBinop(line) == kCategoryFloat, "0");
  CallRuntime(kIntrinsicRuntimePow, line.opA, line.opB, line.result);
}

// ---------------------------------------------------------------- bitwise

void CGPPC::tac_BitOr(TacLine const& line) {
  ArithmeticCategory category = CategorizeBinop(line);
  if (category <= kCategoryUInt32)
    return IntegerBinop(line, QUORL_OP(ppc_or), false);
  QASSERT_TEXT(category <= kCategoryUInt64, "0");
  Int64Binop(line, QUORL_OP(ppc_or), QUORL_OP(ppc_or));
}

void CGPPC::tac_BitAnd(TacLine const& line) {
  ArithmeticCategory category = CategorizeBinop(line);
  if (category <= kCategoryUInt32)
    return IntegerBinop(line, QUORL_OP(ppc_and), false);
  QASSERT_TEXT(category <= kCategoryUInt64, "0");
  Int64Binop(line, QUORL_OP(ppc_and), QUORL_OP(ppc_and));
}

void CGPPC::tac_BitXor(TacLine const& line) {
  ArithmeticCategory category = CategorizeBinop(line);
  if (category <= kCategoryUInt32)
    return IntegerBinop(line, QUORL_OP(ppc_xor), false);
  QASSERT_TEXT(category <= kCategoryUInt64, "0");
  Int64Binop(line, QUORL_OP(ppc_xor), QUORL_OP(ppc_xor));
}

// The complement is -1 - a, word by word; the operand is alone, so its own
// type gives the width.
void CGPPC::tac_BitNot(TacLine const& line) {
  ArithmeticCategory category = CategorizeType(line.opA->mType);
  if (category == kCategorySInt64 || category == kCategoryUInt64) {
    int hi, lo;
    LoadInt64TacAddr(line.opA, &hi, &lo, kSelectAnyGPR);
    ppc_subfic(hi, hi, -1);
    ppc_subfic(lo, lo, -1);
    return StoreInt64TacAddr(hi, lo, line.result);
  }
  QASSERT_TEXT(category <= kCategoryUInt32, "0");
  int a = LoadTacAddr(line.opA, kSelectAnyGPR);
  Touch(a);
  ppc_subfic(a, a, -1);
  StoreTacAddr(a, line.result);
}

void CGPPC::tac_Neg(TacLine const& line) {
  if (line.opA->mType.IsFloat()) {
    int a = LoadTacAddr(line.opA, kSelectAnyFPR);
    int r = AllocateRegister(true, SchemeExclude(a, kSelectAnyFPR));
    ppc_fneg(r, a);
    StoreTacAddr(r, line.result);
  } else if (ExprIsInt64(line)) {
    int hi, lo;
    LoadInt64TacAddr(line.opA, &hi, &lo, kSelectAnyGPR);
    ppc_subfic(lo, lo, 0);
    ppc_subfze(hi, hi);
    StoreInt64TacAddr(hi, lo, line.result);
  } else {
    int a = LoadTacAddr(line.opA, kSelectAnyGPR);
    Touch(a);
    ppc_neg(a, a);
    StoreTacAddr(a, line.result);
  }
}

// ---------------------------------------------------------------- shifts

// Both signednesses shift arithmetically, and the count is taken modulo
// 32, as on every target; a left shift of 32-bit values leaves its result
// unwritten, as no source construct produces one.
void CGPPC::IntegerShift(TacLine const& line, bool left) {
  ArithmeticCategory category = CategorizeType(line.opA->mType);
  if (category == kCategorySInt64 || category == kCategoryUInt64)
    return CallRuntime(left ? kIntrinsicRuntimeShiftLeftInt64
                            : kIntrinsicRuntimeShiftRightInt64,
                       line.opA, line.opB, line.result);
  QASSERT_TEXT(category <= kCategoryUInt32, "0");
  int a = LoadTacAddr(line.opA, kSelectAnyGPR);
  if (line.opB->IsConstant()) {
    QASSERT(line.opB->mType.GetMainType() == kSInt32Type);
    Touch(a);
    int count = line.opB->GetValue()->uSInt32 & 31;
    if (left)
      ppc_slwi(a, a, count);
    else
      ppc_srawi(a, a, count);
  } else {
    int b = LoadTacAddr(line.opB, SchemeExclude(a, kSelectAnyGPR));
    Touch(a);
    ppc_rlwinm(kScratch, b, 0, 27, 31);
    if (left)
      ppc_slw(a, a, kScratch);
    else
      ppc_sraw(a, a, kScratch);
  }
  if (!left) StoreTacAddr(a, line.result);
}

void CGPPC::tac_BitShiftLeft(TacLine const& line) { IntegerShift(line, true); }
void CGPPC::tac_BitShiftRight(TacLine const& line) { IntegerShift(line, false); }

// ---------------------------------------------------------------- compares

// Condition field 0 only: it is volatile, so no compare obliges the
// prologue to save the condition register.
int CGPPC::ConditionBitToRegister(int bit, bool negate, unsigned long scheme) {
  int r = AllocateRegister(false, scheme);
  ppc_mfcr(r);
  ppc_rlwinm(r, r, bit + 1, 31, 31);
  if (negate) ppc_xori(r, r, 1);
  return r;
}

void CGPPC::IntegerCompare(TacLine const& line, int bit, bool negate,
                           bool swap) {
  bool isSigned = SignedCategory(CategorizeBinop(line));
  int a = LoadTacAddr(line.opA, kSelectAnyGPR);
  int b = LoadTacAddr(line.opB, SchemeExclude(a, kSelectAnyGPR));
  if (swap) {
    int t = a;
    a = b;
    b = t;
  }
  if (isSigned)
    ppc_cmpw(0, a, b);
  else
    ppc_cmpl(0, a, b);
  int r = ConditionBitToRegister(
      bit, negate, SchemeExclude(a, SchemeExclude(b, kSelectAnyGPR)));
  StoreTacAddr(r, line.result);
}

// a <= b is not (b < a); for floats that makes an unordered pair true.
void CGPPC::tac_EQ(TacLine const& line) {
  ArithmeticCategory category = CategorizeBinop(line);
  if (category == kCategoryFloat)
    return FloatCompare(line, kConditionEQ, false, false);
  if (category >= kCategorySInt64) return Int64Compare(line, true, false);
  IntegerCompare(line, kConditionEQ, false, false);
}

void CGPPC::tac_NE(TacLine const& line) {
  ArithmeticCategory category = CategorizeBinop(line);
  if (category == kCategoryFloat)
    return FloatCompare(line, kConditionEQ, true, false);
  if (category >= kCategorySInt64) return Int64Compare(line, true, true);
  IntegerCompare(line, kConditionEQ, true, false);
}

void CGPPC::tac_LT(TacLine const& line) {
  ArithmeticCategory category = CategorizeBinop(line);
  if (category == kCategoryFloat)
    return FloatCompare(line, kConditionLT, false, false);
  if (category >= kCategorySInt64) return Int64Compare(line, false, false);
  IntegerCompare(line, kConditionLT, false, false);
}

void CGPPC::tac_LE(TacLine const& line) {
  ArithmeticCategory category = CategorizeBinop(line);
  if (category == kCategoryFloat)
    return FloatCompare(line, kConditionLT, true, true);
  if (category >= kCategorySInt64) return Int64Compare(line, false, true);
  IntegerCompare(line, kConditionLT, true, true);
}
