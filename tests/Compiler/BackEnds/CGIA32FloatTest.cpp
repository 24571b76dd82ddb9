// Floating point, conversions and Currency, generated and run, on the x87
// stack and with SSE.
#include <math.h>
#include <stdint.h>

#include "tests/Compiler/BackEnds/GeneratedCode.h"

namespace {

typedef double (*DoubleFn)(double, double);
typedef float (*SingleFn)(float, float);

double Double(TacOpcode op, double a, double b, bool sse = false) {
  CGIA32Options options;
  options.mUseSSE2FloatingPointMath = sse;
  auto code = OperationFunction(op, {kReal64Type, kReal64Type}, kReal64Type, options);
  return code->Fn<DoubleFn>("f")(a, b);
}

float Single(TacOpcode op, float a, float b, bool sse = false) {
  CGIA32Options options;
  options.mUseSSE2FloatingPointMath = sse;
  auto code = OperationFunction(op, {kReal32Type, kReal32Type}, kReal32Type, options);
  return code->Fn<SingleFn>("f")(a, b);
}

int Compare(TacOpcode op, double a, double b) {
  auto code = OperationFunction(op, {kReal64Type, kReal64Type}, kBooleanType);
  return reinterpret_cast<int (*)(double, double)>(code->Function("f"))(a, b);
}

}  // namespace

// Scripts reach the x87 stack only; SSE and the x87 division by zero are
// checked here.
TEST(CGIA32FloatTest, ArithmeticWithSSEAndDivisionByZero) {
  struct { TacOpcode op; double a, b, expected; } const rows[] = {
      {kTacAdd, 1.5, 2.25, 3.75}, {kTacSub, 1.5, 2.25, -0.75}, {kTacMul, 1.5, 2.25, 3.375},
      {kTacDiv, 1.0, 4.0, 0.25}};
  for (auto const& r : rows) {
    EXPECT_EQ(r.expected, Double(r.op, r.a, r.b, true)) << TacOpcodeName(r.op);
    EXPECT_EQ(float(r.expected), Single(r.op, float(r.a), float(r.b), true)) << TacOpcodeName(r.op);
  }
  for (bool sse : {false, true}) EXPECT_TRUE(isinf(Double(kTacDiv, 1.0, 0.0, sse))) << sse;
}

TEST(CGIA32FloatTest, ComparisonsWithNaN) {
  double const nan = NAN;
  struct { TacOpcode op; double a, b; int expected; } const rows[] = {
      {kTacEQ, nan, 1.0, 0}, {kTacLT, nan, 1.0, 0}, {kTacLT, 1.0, nan, 0}, {kTacNE, nan, 1.0, 1},
      {kTacLE, nan, 1.0, 1}};
  for (auto const& r : rows)
    EXPECT_EQ(r.expected, Compare(r.op, r.a, r.b)) << TacOpcodeName(r.op) << " " << r.a << ", " << r.b;
}

// Float constants reach the x87 stack and SSE registers through the stack.
TEST(CGIA32FloatTest, Constants) {
  for (bool sse : {false, true}) {
    TacProgram p;
    long f = p.Frame("f");
    TacAddr const* a = p.Local(f, "a", IRDataType(kReal64Type));
    TacAddr const* r = p.Local(f, "r", IRDataType(kReal64Type));
    TacAddr const* s = p.Local(f, "s", IRDataType(kReal32Type));
    p.Enter("f", f);
    p.Params({a});
    p.Line(kTacAdd, a, p.Real64(0.125), r);
    p.Line(kTacStore, p.Real32(2.0f), nilTacAddr, s);
    p.Line(kTacMul, s, p.Real32(3.0f), s);
    p.Line(kTacCvt, s, nilTacAddr, a);
    p.Line(kTacAdd, r, a, r);
    p.Line(kTacLeave, r);
    CGIA32Options options;
    options.mUseSSE2FloatingPointMath = sse;
    LoadedCode code(GenerateIA32(p, options));
    EXPECT_EQ(7.125, reinterpret_cast<double (*)(double)>(code.Function("f"))(1.0))
        << (sse ? "SSE" : "x87");
  }
}

namespace {

// A value of either kind; which one counts follows the type.
struct Value {
  int64_t i;
  double d;
};
Value I(int64_t i) { return {i, 0}; }
Value D(double d) { return {0, d}; }

// 0: one word, 1: two words, 2: Single, 3: Double.
int Kind(SimpleDataType type) {
  if (type == kReal32Type) return 2;
  if (type == kReal64Type) return 3;
  return IRDataType(type).StorageSize() == 8 ? 1 : 0;
}

template <class A>
Value CallWith(void* f, SimpleDataType to, A a) {
  switch (Kind(to)) {
    case 0: return I(reinterpret_cast<uint32_t (*)(A)>(f)(a));
    case 1: return I(reinterpret_cast<int64_t (*)(A)>(f)(a));
    case 2: return D(reinterpret_cast<float (*)(A)>(f)(a));
    default: return D(reinterpret_cast<double (*)(A)>(f)(a));
  }
}

}  // namespace

// The conversion pairs scripts do not run (unsigned, 64-bit, Single and
// Currency ones), through f(a) = Cvt a.
TEST(CGIA32FloatTest, ConversionPairs) {
  SimpleDataType const S = kSInt32Type, U = kUInt32Type, L = kSInt64Type, M = kUInt64Type,
                       C = kCurrencyType, F = kReal32Type, R = kReal64Type;
  struct { SimpleDataType from, to; Value in, out; } const rows[] = {
      // Integer to integer: moves, widening by the source's signedness.
      {U, L, I(-5), I(0xFFFFFFFBLL)}, {U, M, I(-5), I(0xFFFFFFFBLL)},
      {L, S, I(0x500000007LL), I(7)}, {M, U, I(0x500000007LL), I(7)}, {M, L, I(-1), I(-1)},
      {L, M, I(-1), I(-1)}, {kSInt8Type, L, I(0x1FE), I(-2)},
      // To Double and Single.
      {U, R, I(-3), D(4294967293.0)}, {L, R, I(-3000000000000LL), D(-3e12)},
      {M, R, I(-1), D(18446744073709551615.0)}, {S, F, I(-3), D(-3.0)},
      // From Double and Single: truncation toward zero.
      {R, U, D(3000000000.7), I(3000000000u)},
      {R, L, D(-5000000000.5), I(-5000000000LL)}, {R, M, D(1e19), I(int64_t(10000000000000000000ull))},
      {R, C, D(1.23456), I(12346)}, {F, S, D(-2.5), I(-2)}, {F, U, D(7.9), I(7)},
      {F, L, D(-4.5), I(-4)}, {F, M, D(9.5), I(9)}, {F, C, D(1.5), I(15000)},
      // Currency: scaled by 10,000.
      {S, C, I(-7), I(-70000)}, {U, C, I(-1), I(42949672950000LL)}, {L, C, I(5), I(50000)},
      {M, C, I(5), I(50000)}, {C, S, I(-19999), I(-1)}, {C, U, I(29999), I(2)},
      {C, L, I(3000000000LL), I(300000)}, {C, M, I(30000), I(3)}, {C, R, I(12345), D(1.2345)}};
  for (auto const& r : rows) {
    auto code = OperationFunction(kTacCvt, {r.from}, r.to);
    void* f = code->Function("f");
    Value out = Kind(r.from) == 0   ? CallWith(f, r.to, int32_t(r.in.i))
                : Kind(r.from) == 1 ? CallWith(f, r.to, r.in.i)
                : Kind(r.from) == 2 ? CallWith(f, r.to, float(r.in.d))
                                    : CallWith(f, r.to, r.in.d);
    std::string row = IRDataType(r.from).ToString().CString() + std::string(" to ") +
                      IRDataType(r.to).ToString().CString();
    if (Kind(r.to) == 0) { EXPECT_EQ(uint32_t(r.out.i), uint32_t(out.i)) << row; }
    if (Kind(r.to) == 1) { EXPECT_EQ(r.out.i, out.i) << row; }
    if (Kind(r.to) == 2) { EXPECT_EQ(float(r.out.d), float(out.d)) << row; }
    if (Kind(r.to) == 3) { EXPECT_EQ(r.out.d, out.d) << row; }
  }
}

TEST(CGIA32FloatTest, CurrencyArithmetic) {
  auto mul = OperationFunction(kTacMul, {kCurrencyType, kCurrencyType}, kCurrencyType);
  auto m = reinterpret_cast<int64_t (*)(int64_t, int64_t)>(mul->Function("f"));
  EXPECT_EQ(37500, m(15000, 25000));  // 1.5 * 2.5
  auto add = OperationFunction(kTacAdd, {kCurrencyType, kCurrencyType}, kCurrencyType);
  EXPECT_EQ(40000, reinterpret_cast<int64_t (*)(int64_t, int64_t)>(add->Function("f"))(15000, 25000));
  auto div = OperationFunction(kTacDiv, {kCurrencyType, kCurrencyType}, kCurrencyType);
  EXPECT_EQ(6000, reinterpret_cast<int64_t (*)(int64_t, int64_t)>(div->Function("f"))(15000, 25000));
}

