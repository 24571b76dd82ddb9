// 32-bit and 64-bit integer operations, generated and run.
#include <stdint.h>

#include "tests/Compiler/BackEnds/GeneratedFunctions.h"

namespace {

// f(a, b) = a op b, both operands of `type`; 64-bit values pass and return
// whole, narrower ones as one word whose 32 bits are compared.
int64_t Operate(TacOpcode op, SimpleDataType type, SimpleDataType result, int64_t a, int64_t b) {
  auto code = BinaryFunction(op, type, type, result);
  void* f = code->Function("f");
  bool wideIn = IRDataType(type).StorageSize() == 8;
  bool wideOut = IRDataType(result).StorageSize() == 8;
  if (wideIn && wideOut) return reinterpret_cast<int64_t (*)(int64_t, int64_t)>(f)(a, b);
  if (wideIn) return reinterpret_cast<uint32_t (*)(int64_t, int64_t)>(f)(a, b);
  return reinterpret_cast<uint32_t (*)(int32_t, int32_t)>(f)(int32_t(a), int32_t(b));
}

}  // namespace

TEST(CGIA32IntegerTest, BinaryOperationsOfEveryWidthAndSignedness) {
  SimpleDataType const S = kSInt32Type, U = kUInt32Type, L = kSInt64Type, M = kUInt64Type,
                       B = kBooleanType;
  struct { TacOpcode op; SimpleDataType type, result; int64_t a, b, expected; } const rows[] = {
      {kTacAdd, S, S, 5, 7, 12},           {kTacSub, S, S, 5, 7, -2},
      {kTacMul, S, S, -5, 7, -35},         {kTacDiv, S, S, -7, 2, -3},
      {kTacMod, S, S, -7, 2, -1},          {kTacAdd, S, S, INT32_MAX, 1, INT32_MIN},
      // Division by zero is quiet: 7 / 0 = 0 and 7 Mod 0 = 7.
      {kTacDiv, S, S, 7, 0, 0},            {kTacMod, S, S, 7, 0, 7},
      {kTacDiv, U, U, 7, 0, 0},            {kTacMod, U, U, 7, 0, 7},
      {kTacDiv, L, L, 7, 0, 0},            {kTacMod, L, L, 7, 0, 7},
      {kTacDiv, U, U, 0xFFFFFFFF, 2, 0x7FFFFFFF},  {kTacMod, U, U, 0xFFFFFFFF, 2, 1},
      {kTacMul, U, U, 0x7FFFFFFF, 2, 0xFFFFFFFE},  {kTacSub, U, U, 0, 1, 0xFFFFFFFF},
      {kTacBitAnd, U, U, 0xFF, 0x0F, 0x0F},        {kTacBitOr, U, U, 0xF0, 0x0F, 0xFF},
      {kTacBitXor, U, U, 0xFF, 0x0F, 0xF0},
      // Shifts right are arithmetic for both signednesses.
      {kTacBitShiftRight, U, U, 0x80000000, 1, 0xC0000000},
      {kTacBitShiftRight, S, S, -16, 2, -4},
      {kTacBitShiftLeft, L, L, 1, 40, int64_t(1) << 40},  {kTacBitShiftRight, L, L, -8, 2, -2},
      {kTacLT, S, B, -1, 1, 1},  {kTacLT, U, B, -1, 1, 0},  {kTacLE, S, B, 3, 3, 1},
      {kTacLE, U, B, 4, 3, 0},   {kTacEQ, S, B, 3, 3, 1},   {kTacNE, S, B, 3, 4, 1},
      {kTacNE, S, B, 3, 3, 0},
      {kTacAdd, L, L, 0xFFFFFFFFLL, 1, 0x100000000LL},
      {kTacSub, L, L, 0x100000000LL, 1, 0xFFFFFFFFLL},
      {kTacSub, L, L, 0, 0x100000000LL, -0x100000000LL},
      {kTacBitAnd, L, L, 0x0F0FFFFF0F0FFFFFLL, 0x0000FFFF0000FFFFLL, 0x0000FFFF0000FFFFLL},
      {kTacBitOr, L, L, 0x1111111100000000LL, 0x22222222LL, 0x1111111122222222LL},
      {kTacMul, L, L, 3000000000LL, 2, 6000000000LL},  {kTacDiv, L, L, -7, 2, -3},
      {kTacMod, M, M, -1, 2, 1},
      {kTacLT, L, B, -1, 0x100000000LL, 1},  {kTacLT, M, B, -1, 0x100000000LL, 0},
      {kTacLT, L, B, 0x100000001LL, 0x200000000LL, 1},
      {kTacLT, M, B, 0x1FFFFFFFFLL, 0x200000000LL, 1},
      {kTacLE, L, B, 0x100000000LL, 0x100000000LL, 1},
      {kTacLE, L, B, 0x100000001LL, 0x100000000LL, 0},
      {kTacEQ, L, B, 0x100000000LL, 0x200000000LL, 0},  {kTacEQ, L, B, 1, 2, 0},
      {kTacEQ, L, B, 0x300000001LL, 0x300000001LL, 1},
      {kTacNE, L, B, 0x100000001LL, 0x200000001LL, 1},
      // A narrow result keeps the low bits; a narrow operand is widened by
      // its own signedness on every use.
      {kTacAdd, kUInt8Type, kUInt8Type, 200, 100, 44},
      {kTacAdd, kSInt8Type, S, 0x1FE, 0xFF, -3},
      {kTacSub, kSInt16Type, kSInt16Type, 32767, -1, -32768},
      {kTacAdd, kUInt16Type, U, 0x1FFFF, 0xFFFF, 0x1FFFE}};
  for (auto const& r : rows) {
    int64_t actual = Operate(r.op, r.type, r.result, r.a, r.b);
    if (IRDataType(r.result).StorageSize() == 8)
      EXPECT_EQ(r.expected, actual) << TacOpcodeName(r.op) << " " << r.a << ", " << r.b;
    else
      EXPECT_EQ(uint32_t(r.expected), uint32_t(actual)) << TacOpcodeName(r.op) << " " << r.a << ", " << r.b;
  }
}

TEST(CGIA32IntegerTest, UnaryOperationsAndAConstantShiftCount) {
  auto notCode = UnaryFunction(kTacBitNot, kUInt32Type, kUInt32Type);
  EXPECT_EQ(0xFFFFFF00u, reinterpret_cast<uint32_t (*)(uint32_t)>(notCode->Function("f"))(0xFF));
  auto neg = UnaryFunction(kTacNeg, kSInt32Type, kSInt32Type);
  EXPECT_EQ(-5, reinterpret_cast<int32_t (*)(int32_t)>(neg->Function("f"))(5));
  auto neg64 = UnaryFunction(kTacNeg, kSInt64Type, kSInt64Type);
  auto negate = reinterpret_cast<int64_t (*)(int64_t)>(neg64->Function("f"));
  for (int64_t v : {0x100000000LL, 1LL, 0LL}) EXPECT_EQ(-v, negate(v));
  TacProgram p;
  long f = p.Frame("f");
  TacAddr const* a = p.Local(f, "a", IRDataType(kSInt32Type));
  TacAddr const* r = p.Local(f, "r", IRDataType(kSInt32Type));
  p.Enter("f", f);
  p.Params({a});
  p.Line(kTacBitShiftRight, a, p.Int(4), r);
  p.Line(kTacLeave, r);
  LoadedCode code(GenerateIA32(p));
  EXPECT_EQ(0x123, reinterpret_cast<int32_t (*)(int32_t)>(code.Function("f"))(0x1234));
}

// if a < b (signed, then unsigned) return 1 else return 0, through labels.
TEST(CGIA32IntegerTest, ConditionalJumps) {
  struct { TacOpcode op; int32_t a, b, expected; } const cases[] = {
      {kTacIfLTI, -1, 1, 1}, {kTacIfLTU, -1, 1, 0}, {kTacIfEQI, 4, 4, 1},
      {kTacIfEQI, 4, 5, 0},  {kTacIfNEI, 4, 5, 1},  {kTacIfNEI, 5, 5, 0}};
  for (auto const& c : cases) {
    TacProgram p;
    long f = p.Frame("f");
    TacAddr const* a = p.Local(f, "a", IRDataType(kSInt32Type));
    TacAddr const* b = p.Local(f, "b", IRDataType(kSInt32Type));
    TacAddr const* r = p.Local(f, "r", IRDataType(kSInt32Type));
    p.Enter("f", f);
    p.Params({a, b});
    p.Line(c.op, a, b, p.Int(1));
    p.Line(kTacStore, p.Int(0), nilTacAddr, r);
    p.Line(kTacJump, nilTacAddr, nilTacAddr, p.Int(2));
    p.Line(kTacLabel, p.Int(1));
    p.Line(kTacStore, p.Int(1), nilTacAddr, r);
    p.Line(kTacLabel, p.Int(2));
    p.Line(kTacLeave, r);
    LoadedCode code(GenerateIA32(p));
    EXPECT_EQ(c.expected, reinterpret_cast<int32_t (*)(int32_t, int32_t)>(code.Function("f"))(c.a, c.b))
        << TacOpcodeName(c.op);
  }
}
