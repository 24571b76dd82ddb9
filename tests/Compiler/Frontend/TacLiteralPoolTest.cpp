#include <gtest/gtest.h>

#include <string>

#include "Compiler/Frontend/TacLiteralPool.h"
#include "Compiler/SymbolTable/GlobalSymbolTable.h"
#include "../CompilerTestSupport.h"

TEST(TacLiteralPool, InterningRules) {
  TacLiteralPool pool;
  TacAddr const* a = pool.GetLiteral(string("a"));  // strings keep case
  EXPECT_EQ(a, pool.GetLiteral(string("a")));
  EXPECT_NE(a, pool.GetLiteral(string("A")));
  EXPECT_EQ(kStringType, a->mType.GetMainType());
  EXPECT_EQ("a", Std(a->GetValue()->mString));
  TacAddr const* five = pool.GetLiteral(5, kSInt32Type);  // one per 32-bit value
  EXPECT_EQ(five, pool.GetLiteral(5, kSInt32Type));
  EXPECT_EQ(five, pool.GetLiteral(0x100000005LL, kSInt32Type));  // low word key
  TacAddr const* unsignedFive = pool.GetLiteral(5, kUInt32Type);
  EXPECT_NE(five, unsignedFive);
  EXPECT_EQ(kUInt32Type, unsignedFive->mType.GetMainType());
  EXPECT_EQ(unsignedFive, pool.GetLiteral(5, kUInt32Type));
  TacAddr const* big = pool.GetLiteral(1LL << 40, kSInt64Type);  // never shared
  EXPECT_NE(big, pool.GetLiteral(1LL << 40, kSInt64Type));
  EXPECT_EQ(1LL << 40, big->GetValue()->uSInt64);
  EXPECT_NE(pool.GetLiteral(7, kUInt64Type), pool.GetLiteral(7, kUInt64Type));
  EXPECT_ASSERTION(pool.GetLiteral(7, kSInt16Type), "");
}

TEST(TacLiteralPool, GeneralFormRoutesPlainTypesAndKeepsTheRest) {
  TacLiteralPool pool;
  EXPECT_EQ(pool.GetLiteral(5, kSInt32Type),
            pool.GetLiteral(IRValue::SInt32(5), IRDataType(kSInt32Type)));
  EXPECT_EQ(gTacTrue, pool.GetLiteral(IRValue::SInt32(1), IRDataType(kBooleanType)));
  EXPECT_EQ(gTacFalse, pool.GetLiteral(IRValue::SInt32(0), IRDataType(kBooleanType)));
  EXPECT_EQ(pool.GetLiteral(string("x")),
            pool.GetLiteral(IRValue::String("x"), IRDataType(kStringType)));
  EnumSymbol level("Level", kSInt32Type);  // an enum 5 keeps its enum type
  IRDataType enumType(kSInt32Type, &level);
  TacAddr const* low = pool.GetLiteral(IRValue::SInt32(5), enumType);
  EXPECT_NE(pool.GetLiteral(5, kSInt32Type), low);
  EXPECT_EQ(enumType, low->mType);
  TacAddr const* half = pool.GetLiteral(IRValue::Real64(0.5), IRDataType(kReal64Type));
  EXPECT_NE(half, pool.GetLiteral(IRValue::Real64(0.5), IRDataType(kReal64Type)));
}

// Constants live in blocks: thousands of them, across many blocks, stay
// distinct and keep their values, strings included, until the pool goes.
TEST(TacLiteralPool, ConstantsSpanningManyBlocksKeepTheirValues) {
  TacLiteralPool pool;
  SimpleVector<TacAddr const*> numbers, texts;
  for (int i = 0; i < 3000; i++) {
    numbers.push_back(pool.GetLiteral(i, kSInt32Type));
    texts.push_back(pool.GetLiteral(string(("t" + std::to_string(i)).c_str())));
  }
  for (int i = 0; i < 3000; i++) {
    ASSERT_EQ(numbers[i], pool.GetLiteral(i, kSInt32Type));
    ASSERT_EQ(i, numbers[i]->GetValue()->uSInt32);
    ASSERT_EQ("t" + std::to_string(i), Std(texts[i]->GetValue()->mString));
  }
}
