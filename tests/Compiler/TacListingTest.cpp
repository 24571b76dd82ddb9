#include <gtest/gtest.h>

#include "Compiler/InterRep.h"
#include "Compiler/TacListing.h"
#include "CompilerTestSupport.h"

namespace {

// "While n > 0: total = total + 2: n = n - 1: Wend: Return total" by hand.
struct TwiceFunction {
  ConstAddr name{string("Twice")};
  ConstAddr table{1L};
  ConstAddr loop{1L}, done{2L};
  ConstAddr zero{0L}, one{1L}, two{2L};
  ConstAddr no{IRValue::SInt32(0), IRDataType(kBooleanType)};
  SymbolAddr n{kStackDataStorage, IRDataType(kSInt32Type), "Twice.n", 4};
  SymbolAddr total{kStackDataStorage, IRDataType(kSInt32Type), "Twice.total", 8};
  SymbolAddr more{kStackDataStorage, IRDataType(kBooleanType), "Twice.00000001", 9};
  TacBlock code;

  TwiceFunction() {
    Add(0, kTacEnter, &name, &table, nilTacAddr);
    Add(0, kTacGetParam, nilTacAddr, nilTacAddr, &n);
    Add(2, kTacLabel, &loop, nilTacAddr, nilTacAddr);
    Add(2, kTacLT, &zero, &n, &more);
    Add(2, kTacIfEQI, &more, &no, &done);
    Add(3, kTacAdd, &total, &two, &total);
    Add(4, kTacSub, &n, &one, &n);
    Add(5, kTacJump, nilTacAddr, nilTacAddr, &loop);
    Add(5, kTacLabel, &done, nilTacAddr, nilTacAddr);
    Add(6, kTacLeave, &total, nilTacAddr, nilTacAddr);
  }
  void Add(unsigned long line, TacOpcode op, TacAddr const* a,
           TacAddr const* b, TacAddr const* r) {
    code.AddLine(op, a, b, r, line);
  }
};

}  // namespace

TEST(TacListing, HandBuiltFunctionReadsLikeAnAssemblerListing) {
  TwiceFunction twice;
  EXPECT_EQ(
      "     0      Enter           \"Twice\" As String, table 1\n"
      "     0      GetParam        -> Twice.n As Int32 (stack 4)\n"
      "     2  L1:\n"
      "     2      LT              0 As Int32, Twice.n As Int32 (stack 4) -> Twice.00000001 As Boolean (stack 9)\n"
      "     2      IfEQI           Twice.00000001 As Boolean (stack 9), False As Boolean -> L2\n"
      "     3      Add             Twice.total As Int32 (stack 8), 2 As Int32 -> Twice.total As Int32 (stack 8)\n"
      "     4      Sub             Twice.n As Int32 (stack 4), 1 As Int32 -> Twice.n As Int32 (stack 4)\n"
      "     5      Jump            -> L1\n"
      "     5  L2:\n"
      "     6      Leave           Twice.total As Int32 (stack 8)\n",
      Std(ListTacBlock(twice.code)));
}

TEST(TacListing, AbsentOperandsShowOnlyBeforeAPresentOne) {
  ConstAddr name(string("Beep"));
  TacLine call = {kTacCall, &name, nilTacAddr, nilTacAddr, 0, nullptr};
  EXPECT_EQ("Call            \"Beep\" As String", Std(TacLineText(call)));
  ConstAddr offset(4L);
  TacLine poke = {kTacBaseref, nilTacAddr, &offset, nilTacAddr, 0, nullptr};
  EXPECT_EQ("Baseref         nil, 4 As Int32", Std(TacLineText(poke)));
}
