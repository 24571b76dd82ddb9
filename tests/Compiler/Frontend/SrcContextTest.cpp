#include <gtest/gtest.h>

#include <memory>

#include "Compiler/BackEnds/codestorage.h"
#include "Compiler/Frontend/SrcContext.h"
#include "Compiler/SemBase.h"
#include "Compiler/SymbolTable/SymbolTable.h"
#include "../CompilerTestSupport.h"

TEST(SrcContextLifetime, InstallsItselfAndOnlyOneMayLive) {
  EXPECT_EQ(nullptr, gContext);
  SrcContext* context = new SrcContext;
  EXPECT_EQ(context, gContext);
  EXPECT_ASSERTION(new SrcContext, "");
  delete context;
  EXPECT_EQ(nullptr, gContext);
  delete new SrcContext;  // one after the other is fine
}

TEST(SrcContextTest, StaticDataBlocksAndDependencies) {
  std::unique_ptr<SrcContext> context(new SrcContext);
  context->mBigEndian = 1;
  StaticDataBlock* block = context->MakeStaticDataBlock("Widget.__vtable");
  EXPECT_TRUE(block->IsBigEndian());
  EXPECT_EQ("Widget.__vtable", Std(block->mName));
  EXPECT_ASSERTION(context->MakeStaticDataBlock(""), "");
  SimpleVector<StaticDataBlock*> target;
  context->MoveStaticDataBlocks(&target);
  context->MoveStaticDataBlocks(&target);  // handed over once
  ASSERT_EQ(1u, target.size());
  EXPECT_EQ(block, target[0]);
  delete block;
  EXPECT_ASSERTION(context->MoveStaticDataBlocks(nullptr), "");
  SourceUnitDependencyLink link("Shapes", "", nullptr);
  EXPECT_FALSE(link.Touched());
  context->RecordDependency(&link);
  EXPECT_TRUE(link.Touched());
  context->RecordDependency(nullptr);
}
