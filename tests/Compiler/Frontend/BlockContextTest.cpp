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

TEST_F(BlockContextTest, EnclosingDeclarationsAndWhatIsNoBlock) {
  ClassSymbol widget("Widget");
  PropertySymbol width("Width");
  ModuleSymbol shapes("Shapes");
  for (Symbol* s : std::initializer_list<Symbol*>{&mGlobal, &shapes, &widget, &mFunction, &width})
    Blocks().Enter(s);
  EXPECT_EQ(&mGlobal, Blocks().Root());
  EXPECT_EQ(&shapes, Blocks().CurrentModule());
  EXPECT_EQ(&widget, Blocks().CurrentClass());
  EXPECT_EQ(&mFunction, Blocks().CurrentMethod());
  EXPECT_EQ(&width, Blocks().CurrentProperty());
  EXPECT_EQ(B::kProperty, Blocks().Top().GetType());
  EXPECT_EQ(0u, mDelegate.mErrors.size());
  Symbol plain("x");  // what is no block is a fault
  EXPECT_ASSERTION(Blocks().Enter(&plain), "");
  EXPECT_ASSERTION(Blocks().Enter(nullptr), "");
  EXPECT_ASSERTION(Blocks().Enter(B::kClass, nullptr), "");
  EXPECT_ASSERTION(Blocks().Enter(B::kSelectCase, nullptr), "");
  EXPECT_ASSERTION(Blocks().Enter(B::kWhile, Name("i")), "");
  EXPECT_ASSERTION(Blocks().Leave(B::kSub), "");
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
