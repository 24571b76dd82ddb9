#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "Compiler/Intrinsics.h"
#include "Compiler/Optimizer/optimizer.h"
#include "Compiler/SymbolTable/LocalSymbolTable.h"
#include "Compiler/TacListing.h"
#include "tests/Compiler/CompilerTestSupport.h"

namespace {

SymbolAddr Stack(SimpleDataType type, unsigned int offset) {
  return SymbolAddr(kStackDataStorage, IRDataType(type), string("local"), offset);
}

SymbolAddr Global(SimpleDataType type, char const* name) {
  return SymbolAddr(kGlobalDataStorage, IRDataType(type), string(name), 0);
}

void Add(TacBlock& block, TacOpcode opcode, TacAddr const* a, TacAddr const* b,
         TacAddr const* result) {
  block.AddLine(opcode, a, b, result, 0);
}

void Zero(TacBlock& block, TacAddr const* place) {
  Add(block, kTacZero, nilTacAddr, nilTacAddr, place);
}

// The places whose zeroing survived, in order.
std::vector<TacAddr const*> Zeroed(TacBlock const& block) {
  std::vector<TacAddr const*> places;
  for (TacLine const* line = block.mFirst; line; line = line->mNext)
    if (line->opcode == kTacZero) places.push_back(line->result);
  return places;
}

}  // namespace

// What each zeroing meets first decides: a whole write of its home drops
// it; a read, a reference-counted value, a call or a label keeps it. A
// block's variable and its shadow are two operands for one home.
TEST(RemoveDeadZeroing, DropsOnlyZeroingThatNothingCanRead) {
  MakeSharedOperands();
  SymbolAddr overwritten = Stack(kSInt32Type, 0);
  SymbolAddr text = Stack(kStringType, 4);
  SymbolAddr acrossCall = Global(kSInt32Type, "g");
  SymbolAddr readFirst = Stack(kSInt32Type, 8);
  SymbolAddr shadowRead = Stack(kSInt32Type, 12);
  SymbolAddr shadowOfRead = Stack(kSInt32Type, 12);
  SymbolAddr global = Global(kSInt32Type, "h");
  SymbolAddr sameGlobal = Global(kSInt32Type, "h");
  SymbolAddr partWritten = Stack(kSInt32Type, 16);
  SymbolAddr lowHalf = Stack(kSInt16Type, 16);
  SymbolAddr other = Stack(kSInt32Type, 20);
  ConstAddr one(1);
  TacBlock block;
  Zero(block, &overwritten);
  Zero(block, &text);
  Zero(block, &acrossCall);
  Zero(block, &readFirst);
  Zero(block, &shadowRead);
  Zero(block, &global);
  Zero(block, &partWritten);
  Add(block, kTacAdd, &other, &one, &overwritten);
  Add(block, kTacAdd, &readFirst, &one, &readFirst);
  Add(block, kTacStore, &shadowOfRead, nilTacAddr, &other);
  Add(block, kTacStore, &one, nilTacAddr, &sameGlobal);
  Add(block, kTacStore, &one, nilTacAddr, &lowHalf);
  Add(block, kTacStore, &one, nilTacAddr, &text);
  Add(block, kTacCall, nilTacAddr, nilTacAddr, nilTacAddr);
  Add(block, kTacStore, &one, nilTacAddr, &acrossCall);
  ImproveProgram(&block);
  std::vector<TacAddr const*> kept = {&text, &acrossCall, &readFirst,
                                      &shadowRead, &partWritten};
  EXPECT_EQ(kept, Zeroed(block));
}

TEST(RemoveDeadZeroing, KeepsTheBlockWholeWhenItRemovesTheLastLine) {
  MakeSharedOperands();
  SymbolAddr place = Stack(kSInt32Type, 0);
  ConstAddr two(2);
  TacBlock block;
  Add(block, kTacStore, &two, nilTacAddr, &place);
  Zero(block, &place);
  Add(block, kTacStore, &two, nilTacAddr, &place);
  ImproveProgram(&block);
  ASSERT_NE(nullptr, block.mFirst->mNext);
  EXPECT_EQ(block.mLast, block.mFirst->mNext);
  EXPECT_TRUE(Zeroed(block).empty());
}

// Overhead lines (parameters, bases, the stack check) against body lines;
// calls count for neither, and the main body has no verdict.
TEST(AnalyzeProcedureIntegration, WeighsOverheadAgainstBody) {
  MakeSharedOperands();
  ConstAddr small(string("Small")), large(string("Large")), main(string("% main"));
  SymbolAddr n = Stack(kSInt32Type, 0);
  TacBlock block;
  Add(block, kTacEnter, &main, nilTacAddr, nilTacAddr);
  Add(block, kTacCall, &small, nilTacAddr, nilTacAddr);
  Add(block, kTacStop, nilTacAddr, nilTacAddr, nilTacAddr);
  Add(block, kTacEnter, &small, nilTacAddr, nilTacAddr);
  Add(block, kTacGetParam, nilTacAddr, nilTacAddr, &n);
  Add(block, kTacIntrinsic, IntrinsicTacAddr(kIntrinsicRuntimeCheckStack), nilTacAddr,
      nilTacAddr);
  Add(block, kTacAdd, &n, &n, &n);
  Add(block, kTacLeave, &n, nilTacAddr, nilTacAddr);
  Add(block, kTacEnter, &large, nilTacAddr, nilTacAddr);
  Add(block, kTacGetParam, nilTacAddr, nilTacAddr, &n);
  Add(block, kTacAdd, &n, &n, &n);
  Add(block, kTacCall, &small, nilTacAddr, nilTacAddr);
  Add(block, kTacAdd, &n, &n, &n);
  Add(block, kTacAdd, &n, &n, &n);
  Add(block, kTacLeave, &n, nilTacAddr, nilTacAddr);
  StringMap<unsigned char> verdicts =
      AnalyzeProcedureIntegration(&block, StringMap<unsigned char>());
  unsigned char verdict = 9;
  EXPECT_TRUE(verdicts.GetEntry(string("Small"), verdict) && verdict);
  EXPECT_TRUE(verdicts.GetEntry(string("Large"), verdict) && !verdict);
  EXPECT_FALSE(verdicts.HasEntry(string("% main")));

  Ref<LocalSymbolTableList> tables;
  tables.BindNewObject(new LocalSymbolTableList);
  TacLine const* first = block.mFirst;
  string before = ListTacBlock(block);
  Optimizer optimizer;
  EXPECT_EQ(&block, optimizer.Optimize(&block, tables));
  EXPECT_EQ(first, block.mFirst);
  EXPECT_EQ(std::string(before.CString()), std::string(ListTacBlock(block).CString()));
  EXPECT_ASSERTION(optimizer.Optimize(nullptr, tables), "");
  EXPECT_ASSERTION(optimizer.Optimize(&block, Ref<LocalSymbolTableList>()), "");
}

// Parameters in and a result out, nothing between: no body at all, so the
// call costs more than the work.
TEST(AnalyzeProcedureIntegration, NothingButParametersAndReturnIsWorthIntegrating) {
  MakeSharedOperands();
  ConstAddr pass(string("Pass"));
  SymbolAddr a = Stack(kSInt32Type, 0), b = Stack(kSInt32Type, 4);
  TacBlock block;
  Add(block, kTacEnter, &pass, nilTacAddr, nilTacAddr);
  Add(block, kTacGetParam, nilTacAddr, nilTacAddr, &a);
  Add(block, kTacGetParam, nilTacAddr, nilTacAddr, &b);
  Add(block, kTacLeave, &a, nilTacAddr, nilTacAddr);
  StringMap<unsigned char> verdicts =
      AnalyzeProcedureIntegration(&block, StringMap<unsigned char>());
  unsigned char verdict = 0;
  EXPECT_TRUE(verdicts.GetEntry(string("Pass"), verdict) && verdict);
  EXPECT_EQ(1u, verdicts.Count());
}
