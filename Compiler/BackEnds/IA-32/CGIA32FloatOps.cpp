// Floating point: the x87 stack by default, SSE registers by option for
// arithmetic; comparisons and negation always use the x87.
#include "Compiler/BackEnds/IA-32/CGIA32.h"

#include "Universal/Assertion.h"

void CGIA32::FloatBinop(TacLine const& line, void (IA32OpWriter::*x87)(),
                        RegMemPlain sseDouble, RegMemPlain sseSingle) {
  ExprIsFloat(line);
  if (!mOptions.mUseSSE2FloatingPointMath) {
    PushFloatTacAddr(line.opA);
    PushFloatTacAddr(line.opB);
    (this->*x87)();
    PopFloatTacAddr(line.result);
    return;
  }
  int a = LoadTacAddr(line.opA, kSelectAnyXMM);
  int b = LoadForReading(line.opB, SchemeExclude(a, kSelectAnyXMM));
  Touch(&mXMMRegisters[a]);
  bool single = line.opA->mType.GetMainType() == kReal32Type;
  (this->*(single ? sseSingle : sseDouble))(kModRegister, a, b);
  StoreTacAddr(a, line.result);
}

// fcompp compares ST0 with ST1; the status word's C3, C2 and C0 bits
// (0x4000, 0x400, 0x100) are masked and tested. An unordered result sets
// all three, which makes EQ and LT false and NE and LE true.
void CGIA32::FloatCompare(TacLine const& line, bool swap, int mask, int value,
                          GroupPlain setcc) {
  ExprIsFloat(line);
  PushFloatTacAddr(swap ? line.opB : line.opA);
  PushFloatTacAddr(swap ? line.opA : line.opB);
  ia32_fcompp();
  Touch(kEAX);
  int r = AllocateRegister(kSelect8BitGPR, kEAX);
  QASSERT(r == kEAX);
  ia32_fnstsw();
  ia32_and_imm32(kModRegister, kEAX, mask);
  ia32_cmp_imm32(kModRegister, kEAX, value);
  (this->*setcc)(kModRegister, r);
  FinishComparison(r, line.result);
}

// ucomisd sets ZF, PF and CF all three for unordered operands. "Above" is
// false then, so a < b is "b above a"; a <= b must be true then, so it is
// "a below or equal b". Equality also needs PF clear, inequality is also
// true with PF set.
void CGIA32::SSEFloatCompare(TacLine const& line, bool swap, GroupPlain setcc,
                             GroupPlain parity, RegMemPlain join) {
  ExprIsFloat(line);
  int a = LoadForReading(swap ? line.opB : line.opA, kSelectAnyXMM);
  int b = LoadForReading(swap ? line.opA : line.opB, SchemeExclude(a, kSelectAnyXMM));
  ia32_ucomisd(kModRegister, a, b);
  int r = AllocateRegister(kSelect8BitGPR, kNoRegister);
  (this->*setcc)(kModRegister, r);
  if (parity) {
    int unordered = AllocateRegister(SchemeExclude(r, kSelect8BitGPR), kNoRegister);
    (this->*parity)(kModRegister, unordered);
    (this->*join)(kModRegister, r, unordered);
  }
  FinishComparison(r, line.result);
}

namespace {

// The library's square root, whose C body is the correctly rounded square
// root that sqrtsd computes too.
char const kSquareRootFunction[] = "RuntimeSqrt";

}  // namespace

bool CGIA32::SquareRootInLine(TacLine const& line) {
  if (!mOptions.mOptimizeCode || !mOptions.mUseSSE2FloatingPointMath ||
      mArguments.size() != 1 || line.result == nilTacAddr ||
      line.opA->GetValue()->mString != string(kSquareRootFunction) ||
      (line.opB != nilTacAddr && line.opB->GetValue()->mString.Length()))
    return false;
  TacAddr const* value = mArguments[0];
  if (value->mType.GetMainType() != kReal64Type ||
      line.result->mType.GetMainType() != kReal64Type)
    return false;
  int source = LoadForReading(value, kSelectAnyXMM);
  int root = AllocateRegister(SchemeExclude(source, kSelectAnyXMM), kNoRegister);
  ia32_sqrtsd(kModRegister, root, source);
  mArguments.deleteAll();
  StoreTacAddr(root, line.result);
  return true;
}
