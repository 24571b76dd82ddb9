#include <gtest/gtest.h>
#include <time.h>

#include "Compiler/InterRep.h"
#include "CompilerTestSupport.h"

namespace {

std::string ValueText(IRValue const& value, SimpleDataType type) {
  return Std(value.ToString(IRDataType(type)));
}

void AddNoop(TacBlock& block, unsigned long line) {
  block.AddLine(kTacNoop, nilTacAddr, nilTacAddr, nilTacAddr, line);
}

}  // namespace

TEST(TacBlock, AppendMovesTheLinesThemselvesAndEmptiesTheSource) {
  TacBlock a, b, empty;
  AddNoop(a, 1);
  AddNoop(b, 2);
  TacLine* moved = b.mFirst;
  a.Append(empty);
  a.Append(b);
  EXPECT_TRUE(b.IsEmpty());
  EXPECT_EQ(nullptr, b.mLast);
  EXPECT_EQ(moved, a.mFirst->mNext);
  AddNoop(a, 3);  // goes behind the moved line
  EXPECT_EQ(a.mLast, moved->mNext);
  EXPECT_ASSERTION(a.Append(a), "");
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
  EXPECT_LT(double(clock() - start) / CLOCKS_PER_SEC, 5.0);
  EXPECT_EQ(299999u, program.mLast->mLine);
}

TEST(ConstantText, StringsQuoteOrEscape) {
  // Only quotes: doubled, backslashes as they are.
  EXPECT_EQ("\"say \"\"hi\"\" \\n\"",
            Std(FormatStringLiteral("say \"hi\" \\n")));
  // A control byte switches to the escaped form.
  EXPECT_EQ("\\\"\\\"a\\x0A\\\\\"", Std(FormatStringLiteral("\"a\n\\")));
}

TEST(ConstantText, NumbersBooleansColoursAndNil) {
  struct { IRValue value; SimpleDataType type; char const* text; } rows[] = {
      {IRValue::Real64(2.0), kReal64Type, "2.0"},
      {IRValue::Real64(1e20), kReal64Type, "1e+20.0"},
      {IRValue::SInt32(-1), kUInt32Type, "4294967295"},
      {IRValue::SInt64(-1), kUInt64Type, "18446744073709551615"},
      {IRValue::SInt32(2), kBooleanType, "False"},
      {IRValue::SInt32(0x7F000000), kColorType, "&c000000"},
      {IRValue(), kObjectType, "Nil"},
      {IRValue::SInt64(10000), kCurrencyType, ""}};
  for (auto const& r : rows) EXPECT_EQ(r.text, ValueText(r.value, r.type));
  EXPECT_ASSERTION(IRValue::SInt32(4).ToString(IRDataType(kObjectType)), "");
}
