#include <gtest/gtest.h>

#include "Compiler/BackEnds/codestorage.h"
#include "Compiler/Frontend/SrcContext.h"
#include "Compiler/SemBase.h"
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
  delete new SrcContext;  // one after the other is fine
}

TEST_F(SrcContextTest, Labels) {
  EXPECT_EQ(1, mContext->NewLabel());  // count up from one
  EXPECT_EQ(2, mContext->NewLabel());
  TacAddr const* label = NewLabel();
  EXPECT_EQ(3, LabelNumber(label));
  EXPECT_EQ(kSInt32Type, label->mType.GetMainType());
  TacAddr const* a = mContext->NamedLabel("again");  // names ignore case
  EXPECT_EQ(a, mContext->NamedLabel("AGAIN"));
  EXPECT_NE(LabelNumber(a), LabelNumber(mContext->NamedLabel("done")));
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
  EXPECT_NE(mContext->GetStaticSymbolAddr(integer, "Point.x"), x);  // two caches
}

TEST_F(SrcContextTest, StaticDataBlocksAndDependencies) {
  mContext->mBigEndian = 1;
  StaticDataBlock* block = mContext->MakeStaticDataBlock("Widget.__vtable");
  EXPECT_TRUE(block->IsBigEndian());
  EXPECT_EQ("Widget.__vtable", Std(block->mName));
  EXPECT_ASSERTION(mContext->MakeStaticDataBlock(""), "");
  SimpleVector<StaticDataBlock*> target;
  mContext->MoveStaticDataBlocks(&target);
  mContext->MoveStaticDataBlocks(&target);  // handed over once
  ASSERT_EQ(1u, target.size());
  EXPECT_EQ(block, target[0]);
  delete block;
  EXPECT_ASSERTION(mContext->MoveStaticDataBlocks(nullptr), "");
  SourceUnitDependencyLink link("Shapes", "", nullptr);
  EXPECT_FALSE(link.Touched());
  mContext->RecordDependency(&link);
  EXPECT_TRUE(link.Touched());
  mContext->RecordDependency(nullptr);
}
