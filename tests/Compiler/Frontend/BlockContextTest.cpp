#include <gtest/gtest.h>

#include "Compiler/Frontend/SrcContext.h"
#include "Compiler/SemBase.h"
#include "Compiler/SymbolTable/GlobalSymbolTable.h"
#include "../CompilerTestSupport.h"

namespace {

typedef BlockContext B;

class BlockContextTest : public testing::Test {
 protected:
  void SetUp() override {
    mContext = new SrcContext;
    mContext->mDelegate = &mDelegate;
  }
  void TearDown() override { delete mContext; }
  BlockContextList& Blocks() { return mContext->blocks; }
  SemBase* Name(char const* name) { return SemIdentifier::New(name); }
  void ExpectOneError(CompileErrorCode code, char const* block = nullptr,
                      char const* verb = nullptr) {
    ASSERT_EQ(1u, mDelegate.mErrors.size());
    EXPECT_EQ(code, mDelegate.mErrors[0].Type());
    EXPECT_EQ(1, mContext->mErrorFlag);
    if (!block) return;
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
    B::Type type;
    bool hasExit;
  } cases[] = {{&mGlobal, B::kModule, true},     {&shapes, B::kModule, false},
               {&widget, B::kClass, false},      {&point, B::kStructure, false},
               {&level, B::kEnum, false},        {&width, B::kProperty, false},
               {&mSub, B::kSub, true},           {&mFunction, B::kFunction, true}};
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
  Symbol plain("x");  // what is no block is a fault
  EXPECT_ASSERTION(Blocks().Enter(&plain), "");
  EXPECT_ASSERTION(Blocks().Enter(nullptr), "");
  EXPECT_ASSERTION(Blocks().Enter(B::kClass, nullptr), "");
  EXPECT_ASSERTION(Blocks().Enter(B::kSelectCase, nullptr), "");
  EXPECT_ASSERTION(Blocks().Enter(B::kWhile, Name("i")), "");
  EXPECT_ASSERTION(Blocks().Leave(B::kSub), "");
}

TEST_F(BlockContextTest, FlowBlocksGetFreshLabels) {
  Blocks().Enter(B::kIf, nullptr);
  EXPECT_FALSE(Blocks().Top().HasContinueAddr());
  TacAddr const* ifExit = Blocks().Top().GetExitAddr();
  EXPECT_ASSERTION(Blocks().Top().GetContinueAddr(), "");
  Blocks().Enter(B::kDo, nullptr);
  TacAddr const* doExit = Blocks().Top().GetExitAddr();
  EXPECT_NE(ifExit, doExit);
  EXPECT_NE(doExit, Blocks().Top().GetContinueAddr());
  Blocks().Leave(B::kDo);
  Blocks().Leave(B::kIf);
  EXPECT_EQ(0u, Blocks().Depth());
  EXPECT_EQ(0u, mDelegate.mErrors.size());
  Blocks().Enter(B::kFor, Name("i"));  // leaving another flow type
  Blocks().Leave(B::kWhile);
  ExpectOneError(kErrorSyntax);
  EXPECT_EQ(0u, Blocks().Depth());
}

TEST_F(BlockContextTest, MethodEndRecoversBlocksLeftOpen) {
  Blocks().Enter(&mGlobal);
  Blocks().Enter(&mSub);
  Blocks().Enter(B::kIf, nullptr);
  Blocks().Enter(B::kWhile, nullptr);
  Blocks().Leave(&mSub);
  ExpectOneError(kErrorSyntax);
  EXPECT_EQ(1u, Blocks().Depth());
  EXPECT_EQ(&mGlobal, Blocks().Top().GetSymbol());
  Blocks().Leave(&mFunction);  // not open: the stack stays
  EXPECT_EQ(1u, Blocks().Depth());
}

TEST_F(BlockContextTest, ExitAndContinueFindTheirBlock) {
  Blocks().Enter(&mSub);
  TacAddr const* subExit = Blocks().Top().GetExitAddr();
  Blocks().Enter(B::kIf, nullptr);
  EXPECT_EQ(subExit, Blocks().FindExitAddr(B::kAnyBlock, nullptr));
  Blocks().Enter(B::kWhile, nullptr);
  TacAddr const* loop = Blocks().Top().GetContinueAddr();
  Blocks().Enter(B::kFor, Name("i"));
  TacAddr const* outer = Blocks().Top().GetExitAddr();
  Blocks().Enter(B::kFor, Name("j"));
  TacAddr const* inner = Blocks().Top().GetExitAddr();
  Blocks().Enter(B::kSelectCase, Name("choice"));
  EXPECT_EQ(inner, Blocks().FindExitAddr(B::kAnyBlock, nullptr));
  EXPECT_EQ(subExit, Blocks().FindExitAddr(B::kSub, nullptr));
  EXPECT_EQ(outer, Blocks().FindExitAddr(B::kFor, Name("I")));
  EXPECT_EQ(inner, Blocks().FindExitAddr(B::kFor, Name("j")));
  EXPECT_EQ(inner, Blocks().FindExitAddr(B::kFor, nullptr));
  EXPECT_EQ(loop, Blocks().FindContinueAddr(B::kWhile, nullptr));
  EXPECT_EQ(0u, mDelegate.mErrors.size());
}

TEST_F(BlockContextTest, BlocksNotFoundAreReportedWithTheirNames) {
  auto fresh = [this] { TearDown(); mDelegate.mErrors.deleteAll(); SetUp(); };
  Blocks().Enter(B::kFor, Name("i"));  // Exit For j with only i open
  EXPECT_EQ(nullptr, Blocks().FindExitAddr(B::kFor, Name("j")));
  ExpectOneError(kErrorNoEnclosingBlock, "For j", "exit");
  fresh();
  Blocks().Enter(&mGlobal);
  Blocks().Enter(B::kIf, nullptr);
  EXPECT_EQ(nullptr, Blocks().FindExitAddr(B::kAnyBlock, nullptr));
  ExpectOneError(kErrorNoEnclosingBlock, "", "exit");
  fresh();
  Blocks().Enter(B::kWhile, nullptr);
  EXPECT_EQ(nullptr, Blocks().FindExitAddr(B::kFunction, nullptr));
  EXPECT_EQ(nullptr, Blocks().FindContinueAddr(B::kDo, nullptr));
  ASSERT_EQ(2u, mDelegate.mErrors.size());
  EXPECT_EQ("Function", Std(mDelegate.mErrors[0].Arguments()[0]));
  EXPECT_EQ("Do", Std(mDelegate.mErrors[1].Arguments()[0]));
  EXPECT_EQ("continue", Std(mDelegate.mErrors[1].Arguments()[1]));
  fresh();
  Blocks().Enter(&mSub);
  Blocks().Enter(B::kIf, nullptr);
  EXPECT_EQ(nullptr, Blocks().FindContinueAddr(B::kAnyBlock, nullptr));
  ExpectOneError(kErrorNoEnclosingBlock, "loop", "continue");
  fresh();
  Blocks().Enter(B::kIf, nullptr);
  EXPECT_EQ(nullptr, Blocks().FindContinueAddr(B::kIf, nullptr));
  ExpectOneError(kErrorBadContinue);
}

TEST_F(BlockContextTest, SelectExpressionOfTheInnermostSelect) {
  SemBase* outer = Name("a");
  SemBase* inner = Name("b");
  Blocks().Enter(B::kSelectCase, outer);
  Blocks().Enter(B::kSelectCase, inner);
  Blocks().Enter(B::kIf, nullptr);
  EXPECT_EQ(inner, Blocks().TopSelectExpr());
  Blocks().ClearTopSelectExpr();
  EXPECT_EQ(nullptr, Blocks().TopSelectExpr());
  Blocks().Leave(B::kIf);
  Blocks().Leave(B::kSelectCase);
  EXPECT_EQ(outer, Blocks().TopSelectExpr());
  Blocks().Leave(B::kSelectCase);
  EXPECT_ASSERTION(Blocks().TopSelectExpr(), "");
}
