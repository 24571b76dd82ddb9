// Arithmetic, bitwise operations, shifts and comparisons: dispatch by
// category, and the 32-bit integer forms.
#include "Compiler/BackEnds/IA-32/CGIA32.h"

#include "Compiler/Intrinsics.h"
#include "Universal/Assertion.h"

// Load a, load b (never into a's register), a op= b, store a.
void CGIA32::IntegerBinop(TacLine const& line, RegMemPlain op) {
  int a = LoadTacAddr(line.opA, kSelectAnyGPR);
  int b = LoadForReading(line.opB, SchemeExclude(a, kSelectAnyGPR));
  Touch(a);
  (this->*op)(kModRegister, a, b);
  StoreTacAddr(a, line.result);
}

void CGIA32::tac_Add(TacLine const& line) {
  switch (CategorizeBinop(line)) {
    case kCategorySInt32:
    case kCategoryUInt32:
      return IntegerBinop(line, &IA32OpWriter::ia32_add);
    case kCategorySInt64:
    case kCategoryUInt64:
    case kCategoryCurrency:
      return Int64Binop(line, &IA32OpWriter::ia32_add, &IA32OpWriter::ia32_adc);
    case kCategoryFloat:
      return FloatBinop(line, &IA32OpWriter::ia32_faddp,
                        &IA32OpWriter::ia32_addsd, &IA32OpWriter::ia32_addss);
  }
  QASSERT_TEXT(0, "0");
}

void CGIA32::tac_Sub(TacLine const& line) {
  switch (CategorizeBinop(line)) {
    case kCategorySInt32:
    case kCategoryUInt32:
      return IntegerBinop(line, &IA32OpWriter::ia32_sub);
    case kCategorySInt64:
    case kCategoryUInt64:
    case kCategoryCurrency:
      return Int64Binop(line, &IA32OpWriter::ia32_sub, &IA32OpWriter::ia32_sbb);
    case kCategoryFloat:
      return FloatBinop(line, &IA32OpWriter::ia32_fsubp,
                        &IA32OpWriter::ia32_subsd, &IA32OpWriter::ia32_subss);
  }
  QASSERT_TEXT(0, "0");
}

void CGIA32::tac_Mul(TacLine const& line) {
  switch (CategorizeBinop(line)) {
    case kCategorySInt32:
      return IntegerBinop(line, &IA32OpWriter::ia32_imul);
    case kCategoryUInt32: {
      int a = LoadTacAddr(line.opA, kSelectFunctionResult);
      int b = LoadTacAddr(line.opB, SchemeExclude2(kEAX, kEDX, kSelectAnyGPR));
      Touch(a);
      Touch(kEDX);
      ia32_mul(kModRegister, b);
      return StoreTacAddr(kEAX, line.result);
    }
    case kCategorySInt64:
      return CallRuntime(kIntrinsicRuntimeMulSInt64, line.opA, line.opB, line.result);
    case kCategoryUInt64:
      return CallRuntime(kIntrinsicRuntimeMulUInt64, line.opA, line.opB, line.result);
    case kCategoryCurrency:
      return CallRuntime(kIntrinsicRuntimeMulCurrency, line.opA, line.opB, line.result);
    case kCategoryFloat:
      return FloatBinop(line, &IA32OpWriter::ia32_fmulp,
                        &IA32OpWriter::ia32_mulsd, &IA32OpWriter::ia32_mulss);
  }
  QASSERT_TEXT(0, "0");
}

// Neither division fault reaches the processor's trap. A zero divisor gives
// 0 (quotient) or the dividend (remainder); a signed divisor of -1 is a
// negation, which wraps the lowest value to itself, and leaves remainder 0.
void CGIA32::IntegerDivide(TacLine const& line, bool remainder) {
  bool isSigned = CategorizeBinop(line) == kCategorySInt32;
  int a = LoadTacAddr(line.opA, kSelectFunctionResult);
  int b = LoadTacAddr(line.opB, SchemeExclude2(kEAX, kEDX, kSelectAnyGPR));
  Touch(a);
  Touch(b);
  Touch(kEDX);
  long byZero = NewLocalLabel();
  long byMinusOne = NewLocalLabel();
  long done = NewLocalLabel();
  ia32_cmp_imm32(kModRegister, b, 0);
  EmitBranch(&IA32OpWriter::ia32_je, 2, byZero);
  if (isSigned) {
    ia32_cmp_imm32(3, b, -1);
    EmitBranch(&IA32OpWriter::ia32_je, 2, byMinusOne);
    ia32_cdq();
    ia32_idiv(kModRegister, b);
  } else {
    ia32_xor(kModRegister, kEDX, kEDX);
    ia32_div(kModRegister, b);
  }
  EmitBranch(&IA32OpWriter::ia32_jmp_rel, 1, done);
  PlaceLabel(byZero);
  if (remainder)
    ia32_mov(kModRegister, kEDX, kEAX);
  else
    ia32_mov_imm32(kEAX, 0);
  if (isSigned) {
    EmitBranch(&IA32OpWriter::ia32_jmp_rel, 1, done);
    PlaceLabel(byMinusOne);
    if (remainder)
      ia32_xor(3, kEDX, kEDX);
    else
      ia32_neg(3, kEAX);
  }
  PlaceLabel(done);
  StoreTacAddr(remainder ? kEDX : kEAX, line.result);
}

void CGIA32::tac_Div(TacLine const& line) {
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
      return FloatBinop(line, &IA32OpWriter::ia32_fdivp,
                        &IA32OpWriter::ia32_divsd, &IA32OpWriter::ia32_divss);
  }
  QASSERT_TEXT(0, "0");
}

void CGIA32::tac_Mod(TacLine const& line) {
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

void CGIA32::tac_Pow(TacLine const& line) {
  QASSERT_TEXT(CategorizeBinop(line) == kCategoryFloat, "0");
  CallRuntime(kIntrinsicRuntimePow, line.opA, line.opB, line.result);
}

// ---------------------------------------------------------------- bitwise

void CGIA32::tac_BitOr(TacLine const& line) {
  ArithmeticCategory category = CategorizeBinop(line);
  if (category <= kCategoryUInt32)
    return IntegerBinop(line, &IA32OpWriter::ia32_or);
  QASSERT_TEXT(category <= kCategoryUInt64, "0");
  Int64Binop(line, &IA32OpWriter::ia32_or, &IA32OpWriter::ia32_or);
}

void CGIA32::tac_BitAnd(TacLine const& line) {
  ArithmeticCategory category = CategorizeBinop(line);
  if (category <= kCategoryUInt32)
    return IntegerBinop(line, &IA32OpWriter::ia32_and);
  QASSERT_TEXT(category <= kCategoryUInt64, "0");
  Int64Binop(line, &IA32OpWriter::ia32_and, &IA32OpWriter::ia32_and);
}

void CGIA32::tac_BitXor(TacLine const& line) {
  ArithmeticCategory category = CategorizeBinop(line);
  if (category <= kCategoryUInt32)
    return IntegerBinop(line, &IA32OpWriter::ia32_xor);
  QASSERT_TEXT(category <= kCategoryUInt64, "0");
  Int64Binop(line, &IA32OpWriter::ia32_xor, &IA32OpWriter::ia32_xor);
}

// A nil opB categorises as UInt32, so a 64-bit operand stops at the
// category check.
// The operand is alone: its own type gives the width.
void CGIA32::tac_BitNot(TacLine const& line) {
  ArithmeticCategory category = CategorizeType(line.opA->mType);
  if (category == kCategorySInt64 || category == kCategoryUInt64) {
    int hi, lo;
    LoadInt64TacAddr(line.opA, &hi, &lo, kSelectAnyGPR);
    ia32_not(3, hi);
    ia32_not(3, lo);
    return StoreInt64TacAddr(hi, lo, line.result);
  }
  QASSERT_TEXT(category <= kCategoryUInt32, "0");
  int a = LoadTacAddr(line.opA, kSelectAnyGPR);
  Touch(a);
  ia32_not(kModRegister, a);
  StoreTacAddr(a, line.result);
}

void CGIA32::tac_Neg(TacLine const& line) {
  if (line.opA->mType.IsFloat()) {
    PushFloatTacAddr(line.opA);
    ia32_fchs();
    PopFloatTacAddr(line.result);
  } else if (ExprIsInt64(line)) {
    int hi, lo;
    LoadInt64TacAddr(line.opA, &hi, &lo, kSelectAnyGPR);
    ia32_not(kModRegister, hi);
    ia32_neg(kModRegister, lo);
    ia32_sbb_imm32(kModRegister, hi, -1);
    StoreInt64TacAddr(hi, lo, line.result);
  } else {
    int a = LoadTacAddr(line.opA, kSelectAnyGPR);
    Touch(a);
    ia32_neg(kModRegister, a);
    StoreTacAddr(a, line.result);
  }
}

// ---------------------------------------------------------------- shifts

// Both signednesses shift arithmetically; a left shift of 32-bit values
// leaves its result unwritten, as no source construct produces one.
void CGIA32::IntegerShift(TacLine const& line, bool left) {
  ArithmeticCategory category = CategorizeType(line.opA->mType);
  if (category == kCategorySInt64 || category == kCategoryUInt64)
    return CallRuntime(left ? kIntrinsicRuntimeShiftLeftInt64
                            : kIntrinsicRuntimeShiftRightInt64,
                       line.opA, line.opB, line.result);
  QASSERT_TEXT(category <= kCategoryUInt32, "0");
  int a = LoadTacAddr(line.opA, SchemeExclude(kECX, kSelectAnyGPR));
  if (line.opB->IsConstant()) {
    QASSERT(line.opB->mType.GetMainType() == kSInt32Type);
    Touch(a);
    int count = line.opB->GetValue()->uSInt32;
    if (left)
      ia32_sal_imm8(kModRegister, a, count);
    else
      ia32_sar_imm8(kModRegister, a, count);
  } else {
    QASSERT(kECX == LoadTacAddr(line.opB, RegisterBit(kECX)));
    Touch(a);
    if (left)
      ia32_sal_cl(kModRegister, a);
    else
      ia32_sar_cl(kModRegister, a);
  }
  if (!left) StoreTacAddr(a, line.result);
}

void CGIA32::tac_BitShiftLeft(TacLine const& line) { IntegerShift(line, true); }
void CGIA32::tac_BitShiftRight(TacLine const& line) { IntegerShift(line, false); }

// ---------------------------------------------------------------- compares

void CGIA32::StoreBoolean(int reg, TacAddr const* dest) {
  StoreTacAddr(reg, dest);
}

// Nothing the store emits touches the flags: a stack or global home needs
// no address arithmetic.
void CGIA32::FinishComparison(int reg, TacAddr const* dest) {
  ia32_and_imm8_se(kModRegister, reg, 1);
  StoreBoolean(reg, dest);
  StorageClass home = dest->GetStorageClass();
  if (home == kStackDataStorage || home == kGlobalDataStorage) mFlagsLeft = dest;
}

void CGIA32::IntegerCompare(TacLine const& line, GroupPlain setcc) {
  int a = LoadForReading(line.opA, kSelectAnyGPR);
  int b = LoadForReading(line.opB, SchemeExclude(a, kSelectAnyGPR));
  int r = AllocateRegister(SchemeExclude2(a, b, kSelect8BitGPR), kNoRegister);
  ia32_cmp(kModRegister, a, b);
  (this->*setcc)(kModRegister, r);
  FinishComparison(r, line.result);
}

void CGIA32::tac_EQ(TacLine const& line) {
  ArithmeticCategory category = CategorizeBinop(line);
  if (category == kCategoryFloat && mOptions.mOptimizeCode)
    return SSEFloatCompare(line, false, &IA32OpWriter::ia32_sete,
                           &IA32OpWriter::ia32_setnp, &IA32OpWriter::ia32_and);
  if (category == kCategoryFloat)
    return FloatCompare(line, false, 0x4400, 0x4000, &IA32OpWriter::ia32_sete);
  if (category >= kCategorySInt64)
    return Int64Compare(line, &IA32OpWriter::ia32_sete, &IA32OpWriter::ia32_sete, true);
  IntegerCompare(line, &IA32OpWriter::ia32_sete);
}

void CGIA32::tac_NE(TacLine const& line) {
  ArithmeticCategory category = CategorizeBinop(line);
  if (category == kCategoryFloat && mOptions.mOptimizeCode)
    return SSEFloatCompare(line, false, &IA32OpWriter::ia32_setne,
                           &IA32OpWriter::ia32_setp, &IA32OpWriter::ia32_or);
  if (category == kCategoryFloat)
    return FloatCompare(line, false, 0x4400, 0x4000, &IA32OpWriter::ia32_setne);
  if (category >= kCategorySInt64)
    return Int64Compare(line, &IA32OpWriter::ia32_setne, &IA32OpWriter::ia32_setne, true);
  IntegerCompare(line, &IA32OpWriter::ia32_setne);
}

namespace {

bool SignedCategory(ArithmeticCategory category) {
  return category == kCategorySInt32 || category == kCategorySInt64 ||
         category == kCategoryCurrency;
}

}  // namespace

void CGIA32::tac_LT(TacLine const& line) {
  ArithmeticCategory category = CategorizeBinop(line);
  if (category == kCategoryFloat && mOptions.mOptimizeCode)
    return SSEFloatCompare(line, true, &IA32OpWriter::ia32_seta, nullptr, nullptr);
  if (category == kCategoryFloat)
    return FloatCompare(line, true, 0x500, 0x100, &IA32OpWriter::ia32_sete);
  GroupPlain less = &IA32OpWriter::ia32_setb;
  if (SignedCategory(category)) less = &IA32OpWriter::ia32_setl;
  if (category >= kCategorySInt64)
    return Int64Compare(line, less, &IA32OpWriter::ia32_setb, false);
  IntegerCompare(line, less);
}

void CGIA32::tac_LE(TacLine const& line) {
  ArithmeticCategory category = CategorizeBinop(line);
  if (category == kCategoryFloat && mOptions.mOptimizeCode)
    return SSEFloatCompare(line, false, &IA32OpWriter::ia32_setbe, nullptr, nullptr);
  if (category == kCategoryFloat)
    return FloatCompare(line, false, 0x500, 0x100, &IA32OpWriter::ia32_setne);
  GroupPlain less = &IA32OpWriter::ia32_setb;
  GroupPlain lessOrEqual = &IA32OpWriter::ia32_setbe;
  if (SignedCategory(category)) {
    less = &IA32OpWriter::ia32_setl;
    lessOrEqual = &IA32OpWriter::ia32_setle;
  }
  if (category >= kCategorySInt64)
    return Int64Compare(line, less, &IA32OpWriter::ia32_setbe, false);
  IntegerCompare(line, lessOrEqual);
}
