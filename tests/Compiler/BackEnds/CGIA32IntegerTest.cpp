// 32-bit and 64-bit integer operations, generated and run.
#include <stdint.h>

#include "tests/Compiler/BackEnds/GeneratedFunctions.h"

namespace {

typedef int32_t (*I32Fn)(int32_t, int32_t);
typedef uint32_t (*U32Fn)(uint32_t, uint32_t);
typedef int64_t (*I64Fn)(int64_t, int64_t);
typedef uint64_t (*U64Fn)(uint64_t, uint64_t);

int32_t S32(TacOpcode op, int32_t a, int32_t b) {
  auto code = BinaryFunction(op, kSInt32Type, kSInt32Type, kSInt32Type);
  return code->Fn<I32Fn>("f")(a, b);
}

uint32_t U32(TacOpcode op, uint32_t a, uint32_t b) {
  auto code = BinaryFunction(op, kUInt32Type, kUInt32Type, kUInt32Type);
  return code->Fn<U32Fn>("f")(a, b);
}

int64_t S64(TacOpcode op, int64_t a, int64_t b) {
  auto code = BinaryFunction(op, kSInt64Type, kSInt64Type, kSInt64Type);
  return code->Fn<I64Fn>("f")(a, b);
}

uint64_t U64(TacOpcode op, uint64_t a, uint64_t b) {
  auto code = BinaryFunction(op, kUInt64Type, kUInt64Type, kUInt64Type);
  return code->Fn<U64Fn>("f")(a, b);
}

int32_t Compare(TacOpcode op, SimpleDataType type, int64_t a, int64_t b) {
  auto code = BinaryFunction(op, type, type, kBooleanType);
  if (IRDataType(type).StorageSize() == 8)
    return reinterpret_cast<int32_t (*)(int64_t, int64_t)>(code->Function("f"))(a, b);
  return code->Fn<I32Fn>("f")(static_cast<int32_t>(a), static_cast<int32_t>(b));
}

}  // namespace

TEST(CGIA32IntegerTest, SignedArithmetic) {
  EXPECT_EQ(12, S32(kTacAdd, 5, 7));
  EXPECT_EQ(-2, S32(kTacSub, 5, 7));
  EXPECT_EQ(-35, S32(kTacMul, -5, 7));
  EXPECT_EQ(-3, S32(kTacDiv, -7, 2));
  EXPECT_EQ(-1, S32(kTacMod, -7, 2));
  EXPECT_EQ(INT32_MIN, S32(kTacAdd, INT32_MAX, 1));
}

TEST(CGIA32IntegerTest, DivisionByZeroIsQuiet) {
  EXPECT_EQ(0, S32(kTacDiv, 7, 0));
  EXPECT_EQ(7, S32(kTacMod, 7, 0));
  EXPECT_EQ(0u, U32(kTacDiv, 7, 0));
  EXPECT_EQ(7u, U32(kTacMod, 7, 0));
  EXPECT_EQ(0, S64(kTacDiv, 7, 0));
  EXPECT_EQ(7, S64(kTacMod, 7, 0));
}

TEST(CGIA32IntegerTest, UnsignedArithmetic) {
  EXPECT_EQ(0x7FFFFFFFu, U32(kTacDiv, 0xFFFFFFFFu, 2));
  EXPECT_EQ(1u, U32(kTacMod, 0xFFFFFFFFu, 2));
  EXPECT_EQ(0xFFFFFFFEu, U32(kTacMul, 0x7FFFFFFFu, 2));
  EXPECT_EQ(0xFFFFFFFFu, U32(kTacSub, 0, 1));
}

TEST(CGIA32IntegerTest, BitwiseOperations) {
  EXPECT_EQ(0x0Fu, U32(kTacBitAnd, 0xFF, 0x0F));
  EXPECT_EQ(0xFFu, U32(kTacBitOr, 0xF0, 0x0F));
  EXPECT_EQ(0xF0u, U32(kTacBitXor, 0xFF, 0x0F));
  auto notCode = UnaryFunction(kTacBitNot, kUInt32Type, kUInt32Type);
  EXPECT_EQ(0xFFFFFF00u, reinterpret_cast<uint32_t (*)(uint32_t)>(notCode->Function("f"))(0xFF));
  auto neg = UnaryFunction(kTacNeg, kSInt32Type, kSInt32Type);
  EXPECT_EQ(-5, reinterpret_cast<int32_t (*)(int32_t)>(neg->Function("f"))(5));
}

TEST(CGIA32IntegerTest, ShiftsRightAreArithmeticForBothSignednesses) {
  EXPECT_EQ(0xC0000000u, U32(kTacBitShiftRight, 0x80000000u, 1));
  EXPECT_EQ(-4, S32(kTacBitShiftRight, -16, 2));
  TacProgram p;  // a constant count
  long f = p.Frame("f");
  TacAddr const* a = p.Local(f, "a", IRDataType(kSInt32Type));
  TacAddr const* r = p.Local(f, "r", IRDataType(kSInt32Type));
  p.Enter("f", f);
  p.Params({a});
  p.Line(kTacBitShiftRight, a, p.Int(4), r);
  p.Line(kTacLeave, r);
  LoadedCode code(GenerateIA32(p));
  EXPECT_EQ(0x123, reinterpret_cast<int32_t (*)(int32_t)>(code.Function("f"))(0x1234));
  EXPECT_EQ(int64_t(1) << 40, S64(kTacBitShiftLeft, 1, 40));
  EXPECT_EQ(-2, S64(kTacBitShiftRight, -8, 2));
}

TEST(CGIA32IntegerTest, ComparisonsBySignedness) {
  EXPECT_EQ(1, Compare(kTacLT, kSInt32Type, -1, 1));
  EXPECT_EQ(0, Compare(kTacLT, kUInt32Type, -1, 1));
  EXPECT_EQ(1, Compare(kTacLE, kSInt32Type, 3, 3));
  EXPECT_EQ(0, Compare(kTacLE, kUInt32Type, 4, 3));
  EXPECT_EQ(1, Compare(kTacEQ, kSInt32Type, 3, 3));
  EXPECT_EQ(1, Compare(kTacNE, kSInt32Type, 3, 4));
  EXPECT_EQ(0, Compare(kTacNE, kSInt32Type, 3, 3));
}

TEST(CGIA32IntegerTest, SixtyFourBitArithmetic) {
  EXPECT_EQ(0x100000000LL, S64(kTacAdd, 0xFFFFFFFFLL, 1));
  EXPECT_EQ(0xFFFFFFFFLL, S64(kTacSub, 0x100000000LL, 1));
  EXPECT_EQ(-0x100000000LL, S64(kTacSub, 0, 0x100000000LL));
  EXPECT_EQ(0x0000FFFF0000FFFFLL, S64(kTacBitAnd, 0x0F0FFFFF0F0FFFFFLL, 0x0000FFFF0000FFFFLL));
  EXPECT_EQ(0x1111111122222222LL, S64(kTacBitOr, 0x1111111100000000LL, 0x22222222LL));
  EXPECT_EQ(6000000000LL, S64(kTacMul, 3000000000LL, 2));
  EXPECT_EQ(-3, S64(kTacDiv, -7, 2));
  EXPECT_EQ(1u, U64(kTacMod, 0xFFFFFFFFFFFFFFFFull, 2));
  auto neg = UnaryFunction(kTacNeg, kSInt64Type, kSInt64Type);
  auto negate = reinterpret_cast<int64_t (*)(int64_t)>(neg->Function("f"));
  EXPECT_EQ(-0x100000000LL, negate(0x100000000LL));
  EXPECT_EQ(-1, negate(1));
  EXPECT_EQ(0, negate(0));
}

TEST(CGIA32IntegerTest, SixtyFourBitComparisons) {
  EXPECT_EQ(1, Compare(kTacLT, kSInt64Type, -1, 0x100000000LL));
  EXPECT_EQ(0, Compare(kTacLT, kUInt64Type, -1, 0x100000000LL));
  EXPECT_EQ(1, Compare(kTacLT, kSInt64Type, 0x100000001LL, 0x200000000LL));
  EXPECT_EQ(1, Compare(kTacLT, kUInt64Type, 0x1FFFFFFFFLL, 0x100000000LL + 0xFFFFFFFFLL + 1));
  EXPECT_EQ(1, Compare(kTacLE, kSInt64Type, 0x100000000LL, 0x100000000LL));
  EXPECT_EQ(0, Compare(kTacLE, kSInt64Type, 0x100000001LL, 0x100000000LL));
  EXPECT_EQ(0, Compare(kTacEQ, kSInt64Type, 0x100000000LL, 0x200000000LL));
  EXPECT_EQ(0, Compare(kTacEQ, kSInt64Type, 1, 2));
  EXPECT_EQ(1, Compare(kTacEQ, kSInt64Type, 0x300000001LL, 0x300000001LL));
  EXPECT_EQ(1, Compare(kTacNE, kSInt64Type, 0x100000001LL, 0x200000001LL));
}

// A narrow result keeps the low bits; a narrow operand is widened by its
// own signedness on every use.
TEST(CGIA32IntegerTest, NarrowTypesWrapAndExtend) {
  auto bytes = BinaryFunction(kTacAdd, kUInt8Type, kUInt8Type, kUInt8Type);
  EXPECT_EQ(44u, bytes->Fn<U32Fn>("f")(200, 100));
  auto signedBytes = BinaryFunction(kTacAdd, kSInt8Type, kSInt8Type, kSInt32Type);
  EXPECT_EQ(-3, signedBytes->Fn<I32Fn>("f")(0x1FE, 0xFF));
  auto words = BinaryFunction(kTacSub, kSInt16Type, kSInt16Type, kSInt16Type);
  EXPECT_EQ(-32768, words->Fn<I32Fn>("f")(32767, -1));
  auto unsignedWords = BinaryFunction(kTacAdd, kUInt16Type, kUInt16Type, kUInt32Type);
  EXPECT_EQ(0x1FFFEu, unsignedWords->Fn<U32Fn>("f")(0x1FFFF, 0xFFFF));
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
    EXPECT_EQ(c.expected, code.Fn<I32Fn>("f")(c.a, c.b)) << TacOpcodeName(c.op);
  }
}
