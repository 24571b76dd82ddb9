#include <gtest/gtest.h>
#include <time.h>

#include "Compiler/InterRep.h"
#include "CompilerTestSupport.h"

namespace {

std::string ValueText(IRValue const& value, SimpleDataType type) {
  return Std(value.ToString(IRDataType(type)));
}

unsigned long CountLines(TacBlock const& block) {
  unsigned long count = 0;
  TacBlockIterator it(&block);
  while (it.Next()) count++;
  return count;
}

void AddNoop(TacBlock& block, unsigned long line) {
  block.AddLine(kTacNoop, nilTacAddr, nilTacAddr, nilTacAddr, line);
}

}  // namespace

TEST(TacBlock, AppendMovesTheLinesThemselves) {
  TacBlock a, b;
  AddNoop(a, 1);
  AddNoop(b, 2);
  AddNoop(b, 3);
  TacLine* moved = b.mFirst;
  TacLine* last = b.mLast;
  a.Append(b);
  EXPECT_TRUE(b.IsEmpty());
  EXPECT_EQ(nullptr, b.mLast);
  EXPECT_EQ(moved, a.mFirst->mNext);
  EXPECT_EQ(last, a.mLast);
  EXPECT_EQ(3u, CountLines(a));
  // A line added afterwards goes behind the moved ones.
  AddNoop(a, 4);
  EXPECT_EQ(4u, a.mLast->mLine);
  EXPECT_EQ(4u, CountLines(a));
}

TEST(TacBlock, AppendOfEmptyBlocks) {
  TacBlock a, empty, target;
  AddNoop(a, 1);
  TacLine* only = a.mFirst;
  a.Append(empty);
  EXPECT_EQ(only, a.mLast);
  target.Append(a);
  EXPECT_EQ(only, target.mFirst);
  EXPECT_EQ(only, target.mLast);
  EXPECT_ASSERTION(target.Append(target), "");
}

// A program is built by appending statement after statement to one block;
// a walk over the growing block per append would make this quadratic.
TEST(TacBlock, AppendTakesConstantTime) {
  TacBlock program;
  clock_t start = clock();
  for (unsigned long i = 0; i < 300000; i++) {
    TacBlock statement;
    AddNoop(statement, i);
    program.Append(statement);
  }
  double seconds = double(clock() - start) / CLOCKS_PER_SEC;
  EXPECT_LT(seconds, 5.0);
  EXPECT_EQ(299999u, program.mLast->mLine);
}

TEST(ConstantText, StringsQuoteOrEscape) {
  // Only quotes: doubled, backslashes as they are.
  EXPECT_EQ("\"say \"\"hi\"\" \\n\"",
            Std(FormatStringLiteral("say \"hi\" \\n")));
  // A control byte switches to the escaped form.
  EXPECT_EQ("\\\"\\\"a\\x0A\\\\\"", Std(FormatStringLiteral("\"a\n\\")));
  EXPECT_EQ("\"\"", Std(FormatStringLiteral("")));
}

TEST(ConstantText, FloatsAlwaysHaveAPoint) {
  EXPECT_EQ("1.5", ValueText(IRValue::Real64(1.5), kReal64Type));
  EXPECT_EQ("2.0", ValueText(IRValue::Real64(2.0), kReal64Type));
  EXPECT_EQ("-0.25", ValueText(IRValue::Real32(-0.25f), kReal32Type));
  EXPECT_EQ("1e+20.0", ValueText(IRValue::Real64(1e20), kReal64Type));
}

TEST(ConstantText, IntegersBooleansColoursAndNil) {
  EXPECT_EQ("-5", ValueText(IRValue::SInt32(-5), kSInt32Type));
  EXPECT_EQ("4294967295", ValueText(IRValue::SInt32(-1), kUInt32Type));
  EXPECT_EQ("-9000000000", ValueText(IRValue::SInt64(-9000000000LL), kSInt64Type));
  EXPECT_EQ("18446744073709551615", ValueText(IRValue::SInt64(-1), kUInt64Type));
  EXPECT_EQ("True", ValueText(IRValue::SInt32(1), kBooleanType));
  EXPECT_EQ("False", ValueText(IRValue::SInt32(2), kBooleanType));
  EXPECT_EQ("&cFF8800", ValueText(IRValue::SInt32(0x00FF8800), kColorType));
  EXPECT_EQ("&c000000", ValueText(IRValue::SInt32(0x7F000000), kColorType));
  EXPECT_EQ("Nil", ValueText(IRValue(), kObjectType));
  EXPECT_EQ("", ValueText(IRValue::SInt64(10000), kCurrencyType));
  EXPECT_ASSERTION(IRValue::SInt32(4).ToString(IRDataType(kObjectType)), "");
}
