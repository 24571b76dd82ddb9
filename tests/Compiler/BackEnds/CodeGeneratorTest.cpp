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

// f() takes the address of Target `imports` times.
Ref<CodeModule> ManyImports(int imports, RecordingDelegate* delegate) {
  TacProgram p;
  long f = p.Frame("f");
  TacAddr const* ptr = p.Local(f, "p", IRDataType(kPtrType));
  TacAddr const* name = p.Text("Target");
  p.Enter("f", f);
  for (int i = 0; i < imports; i++) p.Line(kTacFuncPtr, name, nilTacAddr, ptr);
  p.Line(kTacLeave);
  return GenerateIA32(p, CGIA32Options(), delegate);
}

}  // namespace

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

TEST(CodeGeneratorTest, TheDelegateCanCancel) {
  TacProgram p;
  for (int i = 0; i < 5; i++) p.Line(kTacNoop);
  p.Line(kTacStop);
  CancellingDelegate delegate;
  EXPECT_FALSE(GenerateIA32(p, CGIA32Options(), &delegate));
  EXPECT_EQ(6u, delegate.mTotal);
}

// The staging list grows: a function's imports are limited by memory, not
// by a fixed list (a main body of many statements has many).
TEST(CodeGeneratorTest, TheStagingListGrowsPastItsFirstSize) {
  RecordingDelegate fits;
  unsigned const kImports = 100000;
  Ref<CodeModule> module = ManyImports(kImports, &fits);
  ASSERT_TRUE(module);
  EXPECT_TRUE(fits.mErrors.size() == 0);
  ASSERT_EQ(kImports, module->mFunctions[0]->mImports.size());
  SimpleVector<Import> const& imports = module->mFunctions[0]->mImports;
  EXPECT_EQ("Target", Std(imports[kImports - 1].mName));
  EXPECT_LT(imports[kImports - 2].mOffset, imports[kImports - 1].mOffset);
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
