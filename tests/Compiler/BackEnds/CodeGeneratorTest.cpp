#include <gtest/gtest.h>

#include <vector>

#include "tests/Compiler/BackEnds/GeneratedCode.h"

namespace {

TacLine Binary(TacAddr const* a, TacAddr const* b) {
  TacLine line = {kTacAdd, a, b, nilTacAddr, 0, nullptr};
  return line;
}

class CancellingDelegate : public RecordingDelegate {
 public:
  int CompilerBackendProgress(unsigned done, unsigned total) override {
    mTotal = total;
    return done >= 2;
  }
  unsigned mTotal = 0;
};

}  // namespace

TEST(CodeGeneratorTest, CategoriesOfTypes) {
  EXPECT_EQ(kCategoryUInt32, CodeGenerator::CategorizeType(IRDataType(kBooleanType)));
  EXPECT_EQ(kCategoryUInt32, CodeGenerator::CategorizeType(IRDataType(kStringType)));
  EXPECT_EQ(kCategorySInt32, CodeGenerator::CategorizeType(IRDataType(kSInt8Type)));
  EXPECT_EQ(kCategoryUInt64, CodeGenerator::CategorizeType(IRDataType(kUInt64Type)));
  EXPECT_EQ(kCategoryCurrency, CodeGenerator::CategorizeType(IRDataType(kCurrencyType)));
  EXPECT_EQ(kCategoryFloat, CodeGenerator::CategorizeType(IRDataType(kReal32Type)));
}

TEST(CodeGeneratorTest, MixedSignednessIsSignedAndMixedWidthsFail) {
  TacProgram p;
  long f = p.Frame("f");
  TacAddr const* u32 = p.Local(f, "u", IRDataType(kUInt32Type));
  TacAddr const* s32 = p.Local(f, "s", IRDataType(kSInt32Type));
  TacAddr const* s64 = p.Local(f, "l", IRDataType(kSInt64Type));
  TacAddr const* u64 = p.Local(f, "m", IRDataType(kUInt64Type));
  EXPECT_EQ(kCategorySInt32, CodeGenerator::CategorizeBinop(Binary(u32, s32)));
  EXPECT_EQ(kCategorySInt64, CodeGenerator::CategorizeBinop(Binary(u64, s64)));
  EXPECT_EQ(kCategoryUInt32, CodeGenerator::CategorizeBinop(Binary(u32, nilTacAddr)));
  EXPECT_ASSERTION(CodeGenerator::CategorizeBinop(Binary(s64, s32)),
                   "f.l As Int64 \\(stack 8\\) doesn't match f.s");
}

TEST(RegisterStateTest, AFullRecordOverwritesItsLastEntry) {
  RegisterState state;
  std::vector<ConstAddr> addrs;
  addrs.reserve(65);  // the record keeps addresses: no reallocation
  for (int i = 0; i < 65; i++) addrs.emplace_back(i);
  for (int i = 0; i < 65; i++) state.Record(&addrs[i]);
  EXPECT_EQ(63, state.Count());
  for (int i = 0; i < 62; i++) EXPECT_TRUE(state.Contains(&addrs[i])) << i;
  EXPECT_FALSE(state.Contains(&addrs[62]));
  EXPECT_FALSE(state.Contains(&addrs[63]));
  EXPECT_TRUE(state.Contains(&addrs[64]));
  state.Clear(&addrs[0]);
  EXPECT_FALSE(state.Contains(&addrs[0]));
  EXPECT_TRUE(state.Contains(&addrs[61]));
  state.mUsed = true;
  state.Clear();
  EXPECT_FALSE(state.Valid());
  EXPECT_TRUE(state.mUsed);
}

TEST(CodeGeneratorTest, AnEmptyBodyLeavesNoDanglingMainFunction) {
  TacProgram empty;
  Ref<CodeModule> nothing = GenerateIA32(empty);
  ASSERT_TRUE(nothing);
  EXPECT_EQ(0u, nothing->mFunctions.size());
  EXPECT_EQ(kProcessorFamilyIA32, nothing->mProcessorFamily);
  TacProgram main;
  main.Line(kTacStop);
  Ref<CodeModule> one = GenerateIA32(main);
  ASSERT_EQ(1u, one->mFunctions.size());
  EXPECT_EQ("% main", Std(one->mFunctions[0]->mName));
}

TEST(CodeGeneratorTest, TheDelegateCanCancel) {
  TacProgram p;
  for (int i = 0; i < 5; i++) p.Line(kTacNoop);
  p.Line(kTacStop);
  CancellingDelegate delegate;
  EXPECT_FALSE(GenerateIA32(p, CGIA32Options(), &delegate));
  EXPECT_EQ(6u, delegate.mTotal);
}

TEST(CodeGeneratorTest, TheImportThatOverflowsTheStagingListIsAnError) {
  TacProgram p;
  long f = p.Frame("f");
  TacAddr const* ptr = p.Local(f, "p", IRDataType(kPtrType));
  TacAddr const* name = p.Text("Target");
  p.Enter("f", f);
  for (int i = 0; i < 32767; i++) p.Line(kTacFuncPtr, name, nilTacAddr, ptr);
  p.Line(kTacLeave);
  RecordingDelegate fits;
  Ref<CodeModule> module = GenerateIA32(p, CGIA32Options(), &fits);
  ASSERT_TRUE(module);
  EXPECT_EQ(32767u, module->mFunctions[0]->mImports.size());
  TacProgram over;
  long g = over.Frame("g");
  ptr = over.Local(g, "p", IRDataType(kPtrType));
  name = over.Text("Target");
  over.Enter("g", g);
  for (int i = 0; i < 32768; i++) over.Line(kTacFuncPtr, name, nilTacAddr, ptr);
  over.Line(kTacLeave);
  RecordingDelegate overflows;
  EXPECT_FALSE(GenerateIA32(over, CGIA32Options(), &overflows));
  ASSERT_EQ(1u, overflows.mErrors.size());
  EXPECT_EQ(kErrorImportLimit, overflows.mErrors[0].Type());
}

TEST(CodeGeneratorTest, AJumpToALabelNeverPlacedIsAnError) {
  TacProgram p;
  p.Enter("f", -1);
  p.Line(kTacJump, nilTacAddr, nilTacAddr, p.Int(7));
  p.Line(kTacLeave);
  RecordingDelegate delegate;
  EXPECT_FALSE(GenerateIA32(p, CGIA32Options(), &delegate));
  ASSERT_EQ(1u, delegate.mErrors.size());
  EXPECT_EQ(kErrorUnresolvedForwardReference, delegate.mErrors[0].Type());
}
