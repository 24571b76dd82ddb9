// The per-function operand index of the code generator.
#include <gtest/gtest.h>

#include <memory>
#include <vector>

#include "Compiler/BackEnds/OperandIndex.h"

namespace {

std::vector<std::unique_ptr<ConstAddr>> MakeOperands(int count) {
  std::vector<std::unique_ptr<ConstAddr>> operands;
  for (int i = 0; i < count; i++) operands.emplace_back(new ConstAddr(long(i)));
  return operands;
}

}  // namespace

// Every operand added is found with its number through many growths; an
// operand never added is not.
TEST(OperandIndex, FindsEveryOperandAcrossGrowth) {
  auto operands = MakeOperands(5000);
  ConstAddr stranger(long(-1));
  OperandIndex index;
  long value = 0;
  EXPECT_FALSE(index.Find(operands[0].get(), &value));
  for (int i = 0; i < 5000; i++) index.Add(operands[i].get(), i * 3);
  for (int i = 0; i < 5000; i++) {
    ASSERT_TRUE(index.Find(operands[i].get(), &value)) << i;
    ASSERT_EQ(value, i * 3);
  }
  EXPECT_FALSE(index.Find(&stranger, &value));
}

// Clearing forgets every operand of the last function, and the next
// function's numbers are its own.
TEST(OperandIndex, ClearStartsTheNextFunctionEmpty) {
  auto operands = MakeOperands(300);
  OperandIndex index;
  long value = 0;
  for (int round = 0; round < 3; round++) {
    index.Clear();
    for (int i = 0; i < 300; i++) ASSERT_FALSE(index.Find(operands[i].get(), &value));
    for (int i = round; i < 300; i += 2) index.Add(operands[i].get(), i + round);
    for (int i = 0; i < 300; i++) {
      bool added = i >= round && (i - round) % 2 == 0;
      ASSERT_EQ(index.Find(operands[i].get(), &value), added) << round << " " << i;
      if (added) {
        ASSERT_EQ(value, i + round);
      }
    }
  }
}
