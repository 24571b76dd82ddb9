// Floating point, conversions and Currency, generated and run, on the x87
// stack and with SSE.
#include <math.h>
#include <stdint.h>

#include "tests/Compiler/BackEnds/GeneratedFunctions.h"

namespace {

typedef double (*DoubleFn)(double, double);
typedef float (*SingleFn)(float, float);

double Double(TacOpcode op, double a, double b, bool sse = false) {
  CGIA32Options options;
  options.mUseSSE2FloatingPointMath = sse;
  auto code = BinaryFunction(op, kReal64Type, kReal64Type, kReal64Type, options);
  return code->Fn<DoubleFn>("f")(a, b);
}

float Single(TacOpcode op, float a, float b, bool sse = false) {
  CGIA32Options options;
  options.mUseSSE2FloatingPointMath = sse;
  auto code = BinaryFunction(op, kReal32Type, kReal32Type, kReal32Type, options);
  return code->Fn<SingleFn>("f")(a, b);
}

int Compare(TacOpcode op, double a, double b) {
  auto code = BinaryFunction(op, kReal64Type, kReal64Type, kBooleanType);
  return reinterpret_cast<int (*)(double, double)>(code->Function("f"))(a, b);
}

}  // namespace

TEST(CGIA32FloatTest, DoubleAndSingleArithmeticOnBothUnits) {
  for (bool sse : {false, true}) {
    EXPECT_EQ(3.75, Double(kTacAdd, 1.5, 2.25, sse));
    EXPECT_EQ(-0.75, Double(kTacSub, 1.5, 2.25, sse));
    EXPECT_EQ(3.375, Double(kTacMul, 1.5, 2.25, sse));
    EXPECT_EQ(0.5, Double(kTacDiv, 1.0, 2.0, sse));
    EXPECT_TRUE(isinf(Double(kTacDiv, 1.0, 0.0, sse)));
    EXPECT_EQ(3.75f, Single(kTacAdd, 1.5f, 2.25f, sse));
    EXPECT_EQ(-0.75f, Single(kTacSub, 1.5f, 2.25f, sse));
    EXPECT_EQ(0.25f, Single(kTacDiv, 1.0f, 4.0f, sse));
    EXPECT_EQ(6.0f, Single(kTacMul, 1.5f, 4.0f, sse));
  }
  EXPECT_EQ(1024.0, Double(kTacPow, 2.0, 10.0));
  auto neg = UnaryFunction(kTacNeg, kReal64Type, kReal64Type);
  EXPECT_EQ(-2.5, reinterpret_cast<double (*)(double)>(neg->Function("f"))(2.5));
}

TEST(CGIA32FloatTest, ComparisonsWithNaN) {
  double nan = NAN;
  EXPECT_EQ(0, Compare(kTacEQ, nan, 1.0));
  EXPECT_EQ(0, Compare(kTacLT, nan, 1.0));
  EXPECT_EQ(0, Compare(kTacLT, 1.0, nan));
  EXPECT_EQ(1, Compare(kTacNE, nan, 1.0));
  EXPECT_EQ(1, Compare(kTacLE, nan, 1.0));
  EXPECT_EQ(1, Compare(kTacEQ, 2.0, 2.0));
  EXPECT_EQ(1, Compare(kTacLT, 1.0, 2.0));
  EXPECT_EQ(0, Compare(kTacLT, 2.0, 1.0));
  EXPECT_EQ(0, Compare(kTacLT, 2.0, 2.0));
  EXPECT_EQ(1, Compare(kTacLE, 2.0, 2.0));
  EXPECT_EQ(0, Compare(kTacLE, 3.0, 2.0));
  EXPECT_EQ(0, Compare(kTacNE, 2.0, 2.0));
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

// Every pair of the conversion table, through f(a) = Cvt a.
TEST(CGIA32FloatTest, EveryConversionPair) {
  auto cvt = [](SimpleDataType from, SimpleDataType to) {
    return UnaryFunction(kTacCvt, from, to);
  };
  auto i32 = [](std::unique_ptr<LoadedCode> const& c, int32_t v) {
    return reinterpret_cast<int64_t (*)(int32_t)>(c->Function("f"))(v);
  };
  auto i64 = [](std::unique_ptr<LoadedCode> const& c, int64_t v) {
    return reinterpret_cast<int64_t (*)(int64_t)>(c->Function("f"))(v);
  };
  // Integer to integer: moves, widening by the source's signedness.
  EXPECT_EQ(-5, (int32_t)i32(cvt(kSInt32Type, kUInt32Type), -5));
  EXPECT_EQ(-5, i32(cvt(kSInt32Type, kSInt64Type), -5));
  EXPECT_EQ(0xFFFFFFFBLL, i32(cvt(kUInt32Type, kSInt64Type), -5));
  EXPECT_EQ(0xFFFFFFFBLL, i32(cvt(kUInt32Type, kUInt64Type), -5));
  EXPECT_EQ(-5, (int32_t)i32(cvt(kUInt32Type, kSInt32Type), -5));
  EXPECT_EQ(7, (int32_t)i64(cvt(kSInt64Type, kSInt32Type), 0x500000007LL));
  EXPECT_EQ(7, (int32_t)i64(cvt(kUInt64Type, kUInt32Type), 0x500000007LL));
  EXPECT_EQ(-1, i64(cvt(kUInt64Type, kSInt64Type), -1));
  EXPECT_EQ(-1, i64(cvt(kSInt64Type, kUInt64Type), -1));
  EXPECT_EQ(-2, i32(cvt(kSInt8Type, kSInt64Type), 0x1FE));
  EXPECT_EQ(0xFE, (int32_t)i32(cvt(kSInt32Type, kUInt8Type), 0x1FE));
  // To Double and Single.
  auto toDouble32 = [&](SimpleDataType from, int32_t v) {
    return reinterpret_cast<double (*)(int32_t)>(cvt(from, kReal64Type)->Function("f"))(v);
  };
  EXPECT_EQ(-3.0, toDouble32(kSInt32Type, -3));
  EXPECT_EQ(4294967293.0, toDouble32(kUInt32Type, -3));
  auto d64 = cvt(kSInt64Type, kReal64Type);
  EXPECT_EQ(-3e12, reinterpret_cast<double (*)(int64_t)>(d64->Function("f"))(-3000000000000LL));
  auto du64 = cvt(kUInt64Type, kReal64Type);
  EXPECT_EQ(18446744073709551615.0,
            reinterpret_cast<double (*)(uint64_t)>(du64->Function("f"))(~0ull));
  auto toSingle = cvt(kSInt32Type, kReal32Type);
  EXPECT_EQ(-3.0f, reinterpret_cast<float (*)(int32_t)>(toSingle->Function("f"))(-3));
  auto widen = cvt(kReal32Type, kReal64Type);
  EXPECT_EQ(1.5, reinterpret_cast<double (*)(float)>(widen->Function("f"))(1.5f));
  auto narrow = cvt(kReal64Type, kReal32Type);
  EXPECT_EQ(1.5f, reinterpret_cast<float (*)(double)>(narrow->Function("f"))(1.5));
  // From Double and Single: truncation toward zero.
  auto fromDouble = [&](SimpleDataType to, double v) {
    return reinterpret_cast<int64_t (*)(double)>(cvt(kReal64Type, to)->Function("f"))(v);
  };
  EXPECT_EQ(-2, (int32_t)fromDouble(kSInt32Type, -2.9));
  EXPECT_EQ(3000000000u, (uint32_t)fromDouble(kUInt32Type, 3000000000.7));
  EXPECT_EQ(-5000000000LL, fromDouble(kSInt64Type, -5000000000.5));
  EXPECT_EQ(int64_t(10000000000000000000ull), fromDouble(kUInt64Type, 1e19));
  EXPECT_EQ(12346, fromDouble(kCurrencyType, 1.23456));
  auto fromSingle = [&](SimpleDataType to, float v) {
    return reinterpret_cast<int64_t (*)(float)>(cvt(kReal32Type, to)->Function("f"))(v);
  };
  EXPECT_EQ(-2, (int32_t)fromSingle(kSInt32Type, -2.5f));
  EXPECT_EQ(7u, (uint32_t)fromSingle(kUInt32Type, 7.9f));
  EXPECT_EQ(-4, fromSingle(kSInt64Type, -4.5f));
  EXPECT_EQ(9, fromSingle(kUInt64Type, 9.5f));
  EXPECT_EQ(15000, fromSingle(kCurrencyType, 1.5f));
  // Currency: scaled by 10,000.
  EXPECT_EQ(-70000, i32(cvt(kSInt32Type, kCurrencyType), -7));
  EXPECT_EQ(42949672950000LL, i32(cvt(kUInt32Type, kCurrencyType), -1));
  EXPECT_EQ(50000, i64(cvt(kSInt64Type, kCurrencyType), 5));
  EXPECT_EQ(50000, i64(cvt(kUInt64Type, kCurrencyType), 5));
  EXPECT_EQ(-1, (int32_t)i64(cvt(kCurrencyType, kSInt32Type), -19999));
  EXPECT_EQ(2u, (uint32_t)i64(cvt(kCurrencyType, kUInt32Type), 29999));
  EXPECT_EQ(300000, i64(cvt(kCurrencyType, kSInt64Type), 3000000000LL));
  EXPECT_EQ(3, i64(cvt(kCurrencyType, kUInt64Type), 30000));
  auto money = cvt(kCurrencyType, kReal64Type);
  EXPECT_EQ(1.2345, reinterpret_cast<double (*)(int64_t)>(money->Function("f"))(12345));
}

TEST(CGIA32FloatTest, CurrencyArithmetic) {
  auto mul = BinaryFunction(kTacMul, kCurrencyType, kCurrencyType, kCurrencyType);
  auto m = reinterpret_cast<int64_t (*)(int64_t, int64_t)>(mul->Function("f"));
  EXPECT_EQ(37500, m(15000, 25000));  // 1.5 * 2.5
  auto add = BinaryFunction(kTacAdd, kCurrencyType, kCurrencyType, kCurrencyType);
  EXPECT_EQ(40000, reinterpret_cast<int64_t (*)(int64_t, int64_t)>(add->Function("f"))(15000, 25000));
  auto div = BinaryFunction(kTacDiv, kCurrencyType, kCurrencyType, kCurrencyType);
  EXPECT_EQ(6000, reinterpret_cast<int64_t (*)(int64_t, int64_t)>(div->Function("f"))(15000, 25000));
}

TEST(CGIA32FloatTest, ZeroOfEveryKind) {
  for (bool sse : {false, true}) {
    TacProgram p;
    long f = p.Frame("f");
    TacAddr const* s = p.Local(f, "s", IRDataType(kReal32Type));
    TacAddr const* d = p.Local(f, "d", IRDataType(kReal64Type));
    TacAddr const* q = p.Local(f, "q", IRDataType(kSInt64Type));
    TacAddr const* sum = p.Local(f, "sum", IRDataType(kReal64Type));
    p.Enter("f", f);
    p.Params({s, d, q});
    p.Line(kTacZero, nilTacAddr, nilTacAddr, s);
    p.Line(kTacZero, nilTacAddr, nilTacAddr, d);
    p.Line(kTacZero, nilTacAddr, nilTacAddr, q);
    p.Line(kTacCvt, s, nilTacAddr, sum);
    p.Line(kTacAdd, sum, d, sum);
    p.Line(kTacCvt, q, nilTacAddr, d);
    p.Line(kTacAdd, sum, d, sum);
    p.Line(kTacLeave, sum);
    CGIA32Options options;
    options.mUseSSE2FloatingPointMath = sse;
    LoadedCode code(GenerateIA32(p, options));
    EXPECT_EQ(0.0, reinterpret_cast<double (*)(float, double, int64_t)>(
                       code.Function("f"))(NAN, 5.0, 7))
        << (sse ? "SSE" : "x87");
  }
}
