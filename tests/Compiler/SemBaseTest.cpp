#include <gtest/gtest.h>

#include <vector>

#include "Compiler/Frontend/SrcContext.h"
#include "Compiler/SemBase.h"
#include "Compiler/SymbolTable/GlobalSymbolTable.h"
#include "Compiler/SymbolTable/LocalSymbolTable.h"
#include "CompilerTestSupport.h"

namespace {

class SemBaseTest : public testing::Test {
 protected:
  void SetUp() override { mContext = new SrcContext; }
  void TearDown() override { delete mContext; }

  SemCode* CodeWithNoops(unsigned count, unsigned line) {
    SourceLocation where(line);
    SemCode* code = SemCode::New(IRDataType(), &where);
    for (unsigned i = 0; i < count; i++)
      code->AddLine(kTacNoop, nilTacAddr, nilTacAddr, nilTacAddr);
    return code;
  }

  SrcContext* mContext;
};

}  // namespace

TEST_F(SemBaseTest, UnsupportedOperationsAreCompilerFaults) {
  SemBase* bare = SemBase::New();
  EXPECT_ASSERTION(bare->Append(SemBase::New()), "Append called on invalid");
  SemBase* value = SemValue::New(gTacOne, nullptr);
  EXPECT_ASSERTION(value->SetType(IRDataType(kSInt8Type)),
                   "SetType is prohibited on SemValue");
}

TEST_F(SemBaseTest, TypedCodeGetsAHiddenTemporaryResult) {
  SemCode* code = SemCode::New(IRDataType(kReal64Type), nullptr);
  ASSERT_EQ(1u, code->Temporaries().size());
  VariableSymbol* temp = code->Temporaries()[0];
  EXPECT_FALSE(temp->UserVisible());
  EXPECT_EQ(temp->GetAddr(), code->GetAddr());
  // Temporaries never share a name, not even across compilations.
  SemCode* other = SemCode::New(IRDataType(kReal64Type), nullptr);
  EXPECT_NE(Std(temp->Name()), Std(other->Temporaries()[0]->Name()));
  EXPECT_EQ(8u, temp->Name().Length());
}

TEST_F(SemBaseTest, AppendingCodeMovesLinesAndTemporaries) {
  SemCode* a = CodeWithNoops(1, 3);
  SemCode* b = CodeWithNoops(2, 9);
  b->NewTemp(IRDataType(kStringType), nullptr);
  ConcatCode(a, b);
  EXPECT_EQ(a->Code()->mLast, a->Code()->mFirst->mNext->mNext);  // three lines
  EXPECT_EQ(1u, a->Temporaries().size());
  EXPECT_EQ(9u, a->Location().mEndLine);
  EXPECT_EQ(nilTacAddr, a->GetAddr());  // the result stays a's
  EXPECT_ASSERTION(a->Append(a), "");
  EXPECT_ASSERTION(a->Append(SemIdentifier::New("x")), "");
}

// The epilog releases temporaries in the order they were made, whichever
// side of an append held more of them.
TEST_F(SemBaseTest, AppendedTemporariesKeepTheirOrderEitherWay) {
  auto withTemps = [this](unsigned count, std::vector<VariableSymbol*>* made) {
    SemCode* code = CodeWithNoops(0, 1);
    for (unsigned i = 0; i < count; i++) {
      code->NewTemp(IRDataType(kSInt32Type), nullptr);
      made->push_back(code->Temporaries().peek_back());
    }
    return code;
  };
  for (unsigned shortSide : {1u, 2u, 40u}) {
    for (unsigned longSide : {0u, 3u, 50u}) {
      std::vector<VariableSymbol*> order;
      SemCode* a = withTemps(shortSide, &order);
      SemCode* b = withTemps(longSide, &order);
      a->Append(b);
      ASSERT_EQ(order.size(), a->Temporaries().size());
      for (unsigned i = 0; i < order.size(); i++) EXPECT_EQ(order[i], a->Temporaries()[i]);
      EXPECT_EQ(0u, b->Temporaries().size());
      a->Temporaries().deleteIdx(0);
      a->Append(withTemps(1, &order));
      EXPECT_EQ(order.back(), a->Temporaries().peek_back());
      EXPECT_EQ(order.size() - 1, a->Temporaries().size());
    }
  }
}

TEST_F(SemBaseTest, ConcatListFlattensAndSpansBothLocations) {
  SemBase* a = ConcatList(SemIdentifier::New("a", SourceLocation(1, 4, 1, 5)),
                          SemIdentifier::New("b", SourceLocation(2)));
  SemBase* c = ConcatList(SemIdentifier::New("c", SourceLocation(3)),
                          SemIdentifier::New("d", SourceLocation(5, 0, 5, 9)));
  SemBase* all = ConcatList(a, c);
  EXPECT_EQ(a, all);
  EXPECT_EQ("a, b, c, d", Std(all->toString()));
  EXPECT_EQ(1u, all->Location().mStartLine);
  EXPECT_EQ(4, all->Location().mStartOffset);
  EXPECT_EQ(9, all->Location().mEndOffset);
  // Appending after a chain lands behind its last element.
  ConcatList(all, SemIdentifier::New("e"));
  EXPECT_EQ("a, b, c, d, e", Std(all->toString()));
}

TEST_F(SemBaseTest, ListSetTypeAndClone) {
  SemBase* list = ConcatList(SemIdentifier::New("i"), SemIdentifier::New("j"));
  list->SetType(IRDataType(kUInt16Type));
  SemBase* j = list->GetContents()->GetNext();
  EXPECT_EQ(kUInt16Type, j->GetType().GetMainType());
  SemBase* copy = list->Clone();
  EXPECT_EQ("i, j", Std(copy->toString()));
  EXPECT_NE(list->GetContents(), copy->GetContents());
  EXPECT_ASSERTION(SemList::New(nullptr), "");
}

TEST(SemBaseSweep, DeletingTheContextLeavesNoValueAlive) {
  unsigned long before = SemBase::LiveCount();
  SrcContext* context = new SrcContext;
  SemBase::New();
  SemIdentifier::New("x");
  SemCode* code = SemCode::New(IRDataType(kSInt32Type), nullptr);
  ConcatList(code, SemValue::New(gTacOne, nullptr));
  EXPECT_GT(SemBase::LiveCount(), before + 4);
  delete context;
  EXPECT_EQ(0u, SemBase::LiveCount());
}
