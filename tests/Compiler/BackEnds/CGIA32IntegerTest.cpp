// 32-bit and 64-bit integer operations, generated and run: the cases that
// scripts do not reach (quiet division by zero, unsigned and 64-bit
// comparisons across the word boundary, narrow operands).
#include <stdint.h>

#include "tests/Compiler/BackEnds/GeneratedCode.h"

namespace {

// f(a, b) = a op b, both operands of `type`; 64-bit values pass and return
// whole, narrower ones as one word whose 32 bits are compared.
int64_t Operate(TacOpcode op, SimpleDataType type, SimpleDataType result, int64_t a, int64_t b) {
  auto code = OperationFunction(op, {type, type}, result);
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
      // Division by zero is quiet: 7 / 0 = 0 and 7 Mod 0 = 7.
      {kTacDiv, S, S, 7, 0, 0},            {kTacMod, S, S, 7, 0, 7},
      {kTacDiv, U, U, 7, 0, 0},            {kTacMod, U, U, 7, 0, 7},
      {kTacDiv, L, L, 7, 0, 0},            {kTacMod, L, L, 7, 0, 7},
      {kTacDiv, U, U, 0xFFFFFFFF, 2, 0x7FFFFFFF},  {kTacMod, U, U, 0xFFFFFFFF, 2, 1},
      {kTacMul, U, U, 0x7FFFFFFF, 2, 0xFFFFFFFE},  {kTacMod, M, M, -1, 2, 1},
      {kTacBitXor, U, U, 0xFF, 0x0F, 0xF0},
      // Shifts right are arithmetic for both signednesses.
      {kTacBitShiftRight, U, U, 0x80000000, 1, 0xC0000000},
      {kTacBitShiftLeft, L, L, 1, 40, int64_t(1) << 40},  {kTacBitShiftRight, L, L, -8, 2, -2},
      {kTacLT, U, B, -1, 1, 0},  {kTacLE, U, B, 4, 3, 0},
      {kTacSub, L, L, 0, 0x100000000LL, -0x100000000LL},
      {kTacBitOr, L, L, 0x1111111100000000LL, 0x22222222LL, 0x1111111122222222LL},
      {kTacLT, L, B, -1, 0x100000000LL, 1},  {kTacLT, M, B, -1, 0x100000000LL, 0},
      {kTacLT, L, B, 0x100000001LL, 0x200000000LL, 1},
      {kTacLT, M, B, 0x1FFFFFFFFLL, 0x200000000LL, 1},
      {kTacLE, L, B, 0x100000000LL, 0x100000000LL, 1},
      {kTacLE, L, B, 0x100000001LL, 0x100000000LL, 0},
      {kTacEQ, L, B, 0x100000000LL, 0x200000000LL, 0},
      {kTacNE, L, B, 0x100000001LL, 0x200000001LL, 1},
      // A narrow result keeps the low bits; a narrow operand is widened by
      // its own signedness on every use.
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
