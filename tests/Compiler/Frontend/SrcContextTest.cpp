#include <gtest/gtest.h>

#include "Compiler/BackEnds/codestorage.h"
#include "Compiler/Frontend/SrcContext.h"
#include "Compiler/SemBase.h"
#include "Compiler/SymbolTable/LocalSymbolTable.h"
#include "Compiler/SymbolTable/SymbolTable.h"
#include "../CompilerTestSupport.h"

namespace {

class SrcContextTest : public testing::Test {
 protected:
  void SetUp() override { mContext = new SrcContext; }
  void TearDown() override { delete mContext; }
  SrcContext* mContext;
};

long LabelNumber(TacAddr const* label) { return label->GetValue()->uSInt32; }

}  // namespace

TEST(SrcContextLifetime, InstallsItselfAndOnlyOneMayLive) {
  EXPECT_EQ(nullptr, gContext);
  SrcContext* context = new SrcContext;
  EXPECT_EQ(context, gContext);
  EXPECT_ASSERTION(new SrcContext, "");
  delete context;
  EXPECT_EQ(nullptr, gContext);
  SrcContext* next = new SrcContext;  // one after the other is fine
  delete next;
}

TEST_F(SrcContextTest, StartsWithAnUnnamedStaticTableAndEmptyProgram) {
  ASSERT_NE(nullptr, mContext->mSymbols);
  EXPECT_EQ(0u, mContext->mSymbols->mName.Length());
  EXPECT_EQ(kGlobalDataStorage, mContext->mSymbols->mStorageMode);
  EXPECT_EQ(mContext->mSymbols, mContext->mTables->GetGlobalTable());
  ASSERT_NE(nullptr, mContext->mProgramCode);
  EXPECT_TRUE(mContext->mProgramCode->Code()->IsEmpty());
  EXPECT_EQ(0, mContext->mErrorFlag);
  EXPECT_EQ(1, mContext->mOptions.mBoundsChecking);
  EXPECT_EQ(0, mContext->mOptions.mDebug);
}

TEST_F(SrcContextTest, LabelsCountUpFromOne) {
  EXPECT_EQ(1, mContext->NewLabel());
  EXPECT_EQ(2, mContext->NewLabel());
  TacAddr const* label = NewLabel();
  EXPECT_EQ(3, LabelNumber(label));
  EXPECT_EQ(kSInt32Type, label->mType.GetMainType());
}

TEST_F(SrcContextTest, NamedLabelsIgnoreCase) {
  TacAddr const* a = mContext->NamedLabel("again");
  EXPECT_EQ(a, mContext->NamedLabel("AGAIN"));
  TacAddr const* b = mContext->NamedLabel("done");
  EXPECT_NE(a, b);
  EXPECT_NE(LabelNumber(a), LabelNumber(b));
}

TEST_F(SrcContextTest, SymbolAddressesAreCachedByName) {
  IRDataType integer(kSInt32Type);
  TacAddr const* count = mContext->GetStaticSymbolAddr(integer, "App.count");
  EXPECT_EQ(count, mContext->GetStaticSymbolAddr(integer, "app.COUNT"));
  EXPECT_EQ(kGlobalDataStorage, count->GetStorageClass());
  EXPECT_EQ("App.count", Std(count->LinkID()));
  TacAddr const* x = mContext->GetObjectSymbolAddr(integer, "Point.x", 24);
  EXPECT_EQ(x, mContext->GetObjectSymbolAddr(integer, "Point.x", 24));
  EXPECT_EQ(kBaseRelativeDataStorage, x->GetStorageClass());
  EXPECT_EQ(24u, x->StorageOffset());
  // The two caches are separate.
  EXPECT_NE(mContext->GetStaticSymbolAddr(integer, "Point.x"), x);
}

TEST_F(SrcContextTest, StaticDataBlocksAreHandedOverOnce) {
  mContext->mBigEndian = 1;
  StaticDataBlock* block = mContext->MakeStaticDataBlock("Widget.__vtable");
  EXPECT_TRUE(block->IsBigEndian());
  EXPECT_EQ("Widget.__vtable", Std(block->mName));
  EXPECT_ASSERTION(mContext->MakeStaticDataBlock(""), "");
  SimpleVector<StaticDataBlock*> target;
  mContext->MoveStaticDataBlocks(&target);
  ASSERT_EQ(1u, target.size());
  EXPECT_EQ(block, target[0]);
  mContext->MoveStaticDataBlocks(&target);
  EXPECT_EQ(1u, target.size());
  delete block;
  EXPECT_ASSERTION(mContext->MoveStaticDataBlocks(nullptr), "");
}

TEST_F(SrcContextTest, RecordDependencyTouchesTheUnit) {
  SourceUnitDependencyLink link("Shapes", "", nullptr);
  EXPECT_FALSE(link.Touched());
  mContext->RecordDependency(&link);
  EXPECT_TRUE(link.Touched());
  mContext->RecordDependency(nullptr);
}
