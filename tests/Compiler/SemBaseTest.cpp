#include <gtest/gtest.h>

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

unsigned long CountLines(TacBlock const* block) {
  unsigned long count = 0;
  TacBlockIterator it(block);
  while (it.Next()) count++;
  return count;
}

}  // namespace

TEST_F(SemBaseTest, UnsupportedOperationsAreCompilerFaults) {
  SemBase* bare = SemBase::New();
  EXPECT_EQ("<null>", Std(bare->toString()));
  EXPECT_EQ(nullptr, bare->Code());
  EXPECT_EQ(nullptr, bare->GetAddr());
  EXPECT_EQ(kNoType, bare->GetType().GetMainType());
  EXPECT_ASSERTION(bare->Append(SemBase::New()), "Append called on invalid");
  EXPECT_ASSERTION(bare->Clone(), "Clone called on invalid");
  SemBase* value = SemValue::New(gTacOne, nullptr);
  EXPECT_ASSERTION(value->SetType(IRDataType(kSInt8Type)),
                   "SetType is prohibited on SemValue");
  SemBase* code = SemCode::New(IRDataType(), nullptr);
  EXPECT_ASSERTION(code->SetType(IRDataType(kSInt8Type)),
                   "SetType called on invalid");
}

TEST_F(SemBaseTest, TypedCodeGetsAHiddenTemporaryResult) {
  SemCode* code = SemCode::New(IRDataType(kReal64Type), nullptr);
  ASSERT_EQ(1u, code->Temporaries().size());
  VariableSymbol* temp = code->Temporaries()[0];
  EXPECT_FALSE(temp->UserVisible());
  EXPECT_EQ(temp->GetAddr(), code->GetAddr());
  EXPECT_EQ(kReal64Type, code->GetType().GetMainType());
  // Temporaries never share a name, not even across compilations.
  SemCode* other = SemCode::New(IRDataType(kReal64Type), nullptr);
  EXPECT_NE(Std(temp->Name()), Std(other->Temporaries()[0]->Name()));
  EXPECT_EQ(8u, temp->Name().Length());
}

TEST_F(SemBaseTest, AppendingCodeMovesLinesAndTemporaries) {
  SemCode* a = CodeWithNoops(1, 3);
  SemCode* b = CodeWithNoops(2, 9);
  b->NewTemp(IRDataType(kStringType), nullptr);
  EXPECT_EQ(a, ConcatCode(a, b));
  EXPECT_EQ(3u, CountLines(a->Code()));
  EXPECT_TRUE(b->Code()->IsEmpty());
  EXPECT_EQ(1u, a->Temporaries().size());
  EXPECT_EQ(9u, a->Location().mEndLine);
  EXPECT_EQ(nilTacAddr, a->GetAddr());  // the result stays a's
  EXPECT_ASSERTION(a->Append(a), "");
  EXPECT_ASSERTION(a->Append(SemIdentifier::New("x")), "");
}

TEST_F(SemBaseTest, CloneCopiesTheLines) {
  SemCode* code = CodeWithNoops(3, 1);
  SemBase* copy = code->Clone();
  EXPECT_EQ(3u, CountLines(copy->Code()));
  EXPECT_NE(code->Code()->mFirst, copy->Code()->mFirst);
  EXPECT_EQ(3u, CountLines(code->Code()));
}

TEST_F(SemBaseTest, ConcatListFlattensAndSpansBothLocations) {
  SemBase* a = ConcatList(SemIdentifier::New("a", SourceLocation(1, 4, 1, 5)),
                          SemIdentifier::New("b", SourceLocation(2)));
  SemBase* c = ConcatList(SemIdentifier::New("c", SourceLocation(3)),
                          SemIdentifier::New("d", SourceLocation(5, 0, 5, 9)));
  SemBase* all = ConcatList(a, c);
  EXPECT_EQ(a, all);
  EXPECT_TRUE(all->IsList());
  EXPECT_EQ("a, b, c, d", Std(all->toString()));
  EXPECT_EQ(1u, all->Location().mStartLine);
  EXPECT_EQ(4, all->Location().mStartOffset);
  EXPECT_EQ(5u, all->Location().mEndLine);
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

TEST_F(SemBaseTest, ConcatSemBaseAppendsToCodeWithoutWrapping) {
  SemCode* a = CodeWithNoops(1, 0);
  SemBase* joined = ConcatSemBase(a, CodeWithNoops(2, 0));
  EXPECT_EQ(a, joined);
  EXPECT_FALSE(joined->IsList());
  EXPECT_EQ(3u, CountLines(a->Code()));
  SemBase* wrapped = ConcatList(CodeWithNoops(1, 0), CodeWithNoops(1, 0));
  EXPECT_TRUE(wrapped->IsList());
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

TEST(SemBaseSweep, DeletingTwiceHitsTheDeadGuard) {
  EXPECT_ASSERTION(
      {
        SemBase* value = SemBase::New();
        value->~SemBase();
        value->~SemBase();
      },
      "");
}
