#include <gtest/gtest.h>

#include "Compiler/Frontend/SrcContext.h"
#include "Compiler/SemBase.h"
#include "Compiler/SymbolTable/GlobalSymbolTable.h"
#include "../CompilerTestSupport.h"

namespace {

class BlockContextTest : public testing::Test {
 protected:
  void SetUp() override {
    mContext = new SrcContext;
    mContext->mDelegate = &mDelegate;
  }
  void TearDown() override { delete mContext; }

  BlockContextList& Blocks() { return mContext->blocks; }
  SemBase* Name(char const* name) { return SemIdentifier::New(name); }

  void ExpectOneError(CompileErrorCode code) {
    ASSERT_EQ(1u, mDelegate.mErrors.size());
    EXPECT_EQ(code, mDelegate.mErrors[0].Type());
    EXPECT_EQ(1, mContext->mErrorFlag);
  }
  void ExpectArguments(char const* block, char const* verb) {
    ASSERT_EQ(1u, mDelegate.mErrors.size());
    SimpleVector<string> const& args = mDelegate.mErrors[0].Arguments();
    ASSERT_EQ(2u, args.size());
    EXPECT_EQ(block, Std(args[0]));
    EXPECT_EQ(verb, Std(args[1]));
  }

  RecordingDelegate mDelegate;
  SrcContext* mContext;
  GlobalSymbolTable mGlobal;
  MethodSymbol mSub{"Tick", IRDataType()};
  MethodSymbol mFunction{"Twice", IRDataType(kSInt32Type)};
};

}  // namespace

TEST_F(BlockContextTest, DeclarationKindsChooseTheBlockType) {
  ClassSymbol widget("Widget");
  EnumSymbol level("Level", kSInt32Type);
  StructureSymbol point("Point");
  PropertySymbol width("Width");
  ModuleSymbol shapes("Shapes");
  struct Case {
    Symbol* symbol;
    BlockContext::Type type;
    bool hasExit;
  } cases[] = {
      {&mGlobal, BlockContext::kModule, true},
      {&shapes, BlockContext::kModule, false},
      {&widget, BlockContext::kClass, false},
      {&point, BlockContext::kStructure, false},
      {&level, BlockContext::kEnum, false},
      {&width, BlockContext::kProperty, false},
      {&mSub, BlockContext::kSub, true},
      {&mFunction, BlockContext::kFunction, true},
  };
  for (Case const& c : cases) {
    Blocks().Enter(c.symbol);
    EXPECT_EQ(c.type, Blocks().Top().GetType()) << Std(c.symbol->Name());
    EXPECT_EQ(c.hasExit, Blocks().Top().HasExitAddr()) << Std(c.symbol->Name());
    EXPECT_FALSE(Blocks().Top().HasContinueAddr());
  }
  EXPECT_EQ(&mGlobal, Blocks().Root());
  EXPECT_EQ(&shapes, Blocks().CurrentModule());
  EXPECT_EQ(&widget, Blocks().CurrentClass());
  EXPECT_EQ(&mFunction, Blocks().CurrentMethod());
  EXPECT_EQ(&width, Blocks().CurrentProperty());
  EXPECT_TRUE(Blocks().Contains(&point));
  EXPECT_EQ(0u, mDelegate.mErrors.size());
}

TEST_F(BlockContextTest, EnteringWhatIsNoBlockIsAFault) {
  Symbol plain("x");
  EXPECT_ASSERTION(Blocks().Enter(&plain), "");
  EXPECT_ASSERTION(Blocks().Enter(nullptr), "");
  EXPECT_ASSERTION(Blocks().Enter(BlockContext::kClass, nullptr), "");
  EXPECT_ASSERTION(Blocks().Enter(BlockContext::kSelectCase, nullptr), "");
  EXPECT_ASSERTION(Blocks().Enter(BlockContext::kWhile, Name("i")), "");
  EXPECT_ASSERTION(Blocks().Leave(BlockContext::kSub), "");
}

TEST_F(BlockContextTest, FlowBlocksGetFreshLabels) {
  Blocks().Enter(BlockContext::kIf, nullptr);
  EXPECT_TRUE(Blocks().Top().HasExitAddr());
  EXPECT_FALSE(Blocks().Top().HasContinueAddr());
  TacAddr const* ifExit = Blocks().Top().GetExitAddr();
  EXPECT_ASSERTION(Blocks().Top().GetContinueAddr(), "");
  Blocks().Enter(BlockContext::kDo, nullptr);
  TacAddr const* doExit = Blocks().Top().GetExitAddr();
  TacAddr const* doContinue = Blocks().Top().GetContinueAddr();
  EXPECT_NE(ifExit, doExit);
  EXPECT_NE(doExit, doContinue);
  Blocks().Leave(BlockContext::kDo);
  Blocks().Leave(BlockContext::kIf);
  EXPECT_EQ(0u, Blocks().Depth());
  EXPECT_EQ(0u, mDelegate.mErrors.size());
}

TEST_F(BlockContextTest, LeavingAnotherFlowTypeIsASyntaxError) {
  Blocks().Enter(BlockContext::kFor, Name("i"));
  Blocks().Leave(BlockContext::kWhile);
  ExpectOneError(kErrorSyntax);
  EXPECT_EQ(0u, Blocks().Depth());
}

TEST_F(BlockContextTest, MethodEndRecoversBlocksLeftOpen) {
  Blocks().Enter(&mGlobal);
  Blocks().Enter(&mSub);
  Blocks().Enter(BlockContext::kIf, nullptr);
  Blocks().Enter(BlockContext::kWhile, nullptr);
  Blocks().Leave(&mSub);
  ExpectOneError(kErrorSyntax);
  EXPECT_EQ(1u, Blocks().Depth());
  EXPECT_EQ(&mGlobal, Blocks().Top().GetSymbol());
  // A symbol that is not open leaves the stack alone.
  Blocks().Leave(&mFunction);
  EXPECT_EQ(1u, Blocks().Depth());
}

TEST_F(BlockContextTest, BareExitLeavesTheInnermostLoopOrMethod) {
  Blocks().Enter(&mSub);
  TacAddr const* subExit = Blocks().Top().GetExitAddr();
  Blocks().Enter(BlockContext::kIf, nullptr);
  EXPECT_EQ(subExit, Blocks().FindExitAddr(BlockContext::kAnyBlock, nullptr));
  Blocks().Enter(BlockContext::kFor, Name("i"));
  TacAddr const* forExit = Blocks().Top().GetExitAddr();
  Blocks().Enter(BlockContext::kSelectCase, Name("choice"));
  EXPECT_EQ(forExit, Blocks().FindExitAddr(BlockContext::kAnyBlock, nullptr));
  EXPECT_EQ(subExit, Blocks().FindExitAddr(BlockContext::kSub, nullptr));
  EXPECT_EQ(0u, mDelegate.mErrors.size());
}

TEST_F(BlockContextTest, ExitForNamesTheLoopVariable) {
  Blocks().Enter(BlockContext::kFor, Name("i"));
  TacAddr const* outer = Blocks().Top().GetExitAddr();
  Blocks().Enter(BlockContext::kFor, Name("j"));
  TacAddr const* inner = Blocks().Top().GetExitAddr();
  EXPECT_EQ(outer, Blocks().FindExitAddr(BlockContext::kFor, Name("I")));
  EXPECT_EQ(inner, Blocks().FindExitAddr(BlockContext::kFor, Name("j")));
  EXPECT_EQ(inner, Blocks().FindExitAddr(BlockContext::kFor, nullptr));
  EXPECT_EQ(0u, mDelegate.mErrors.size());
}

TEST_F(BlockContextTest, ExitForAnotherVariableReportsNoEnclosingBlock) {
  Blocks().Enter(BlockContext::kFor, Name("i"));
  EXPECT_EQ(nullptr, Blocks().FindExitAddr(BlockContext::kFor, Name("j")));
  ExpectOneError(kErrorNoEnclosingBlock);
  ExpectArguments("For j", "exit");
}

TEST_F(BlockContextTest, ExitWithNothingOpenNamesNoBlock) {
  Blocks().Enter(&mGlobal);
  Blocks().Enter(BlockContext::kIf, nullptr);
  EXPECT_EQ(nullptr, Blocks().FindExitAddr(BlockContext::kAnyBlock, nullptr));
  ExpectArguments("", "exit");
}

TEST_F(BlockContextTest, ExitOfATypeThatIsNotOpen) {
  Blocks().Enter(BlockContext::kWhile, nullptr);
  EXPECT_EQ(nullptr, Blocks().FindExitAddr(BlockContext::kFunction, nullptr));
  ExpectArguments("Function", "exit");
}

TEST_F(BlockContextTest, BareContinueFindsTheInnermostLoop) {
  Blocks().Enter(&mSub);
  Blocks().Enter(BlockContext::kWhile, nullptr);
  TacAddr const* loop = Blocks().Top().GetContinueAddr();
  Blocks().Enter(BlockContext::kIf, nullptr);
  Blocks().Enter(BlockContext::kSelectCase, Name("k"));
  EXPECT_EQ(loop, Blocks().FindContinueAddr(BlockContext::kAnyBlock, nullptr));
  EXPECT_EQ(loop, Blocks().FindContinueAddr(BlockContext::kWhile, nullptr));
  EXPECT_EQ(0u, mDelegate.mErrors.size());
}

TEST_F(BlockContextTest, ContinueWithoutALoop) {
  Blocks().Enter(&mSub);
  Blocks().Enter(BlockContext::kIf, nullptr);
  EXPECT_EQ(nullptr, Blocks().FindContinueAddr(BlockContext::kAnyBlock, nullptr));
  ExpectArguments("loop", "continue");
}

TEST_F(BlockContextTest, ContinueDoInsideAWhileOnly) {
  Blocks().Enter(BlockContext::kWhile, nullptr);
  EXPECT_EQ(nullptr, Blocks().FindContinueAddr(BlockContext::kDo, nullptr));
  ExpectArguments("Do", "continue");
}

TEST_F(BlockContextTest, ContinueOfABlockThatDoesNotLoop) {
  Blocks().Enter(BlockContext::kIf, nullptr);
  EXPECT_EQ(nullptr, Blocks().FindContinueAddr(BlockContext::kIf, nullptr));
  ExpectOneError(kErrorBadContinue);
}

TEST_F(BlockContextTest, SelectExpressionOfTheInnermostSelect) {
  SemBase* outer = Name("a");
  SemBase* inner = Name("b");
  Blocks().Enter(BlockContext::kSelectCase, outer);
  Blocks().Enter(BlockContext::kSelectCase, inner);
  Blocks().Enter(BlockContext::kIf, nullptr);
  EXPECT_EQ(inner, Blocks().TopSelectExpr());
  Blocks().ClearTopSelectExpr();
  EXPECT_EQ(nullptr, Blocks().TopSelectExpr());
  Blocks().Leave(BlockContext::kIf);
  Blocks().Leave(BlockContext::kSelectCase);
  EXPECT_EQ(outer, Blocks().TopSelectExpr());
  Blocks().Leave(BlockContext::kSelectCase);
  EXPECT_ASSERTION(Blocks().TopSelectExpr(), "");
}
