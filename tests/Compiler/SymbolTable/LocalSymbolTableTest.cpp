// Local scopes: frame offsets and the hidden shadows of block variables.
#include <gtest/gtest.h>

#include "../CompilerTestSupport.h"
#include "Compiler/Frontend/SrcContext.h"
#include "Compiler/Frontend/SymbolUtilities.h"
#include "Compiler/SemBase.h"
#include "Compiler/SymbolTable/LocalSymbolTable.h"

namespace {

class LocalSymbolsTest : public testing::Test {
 protected:
  void SetUp() override {
    mContext = new SrcContext;
    mContext->mDelegate = &mDelegate;
  }
  void TearDown() override { delete mContext; }

  SemBase* Ident(char const* name, SimpleDataType type = kSInt32Type) {
    SemBase* ident = SemIdentifier::New(name, SourceLocation(7));
    ident->SetType(IRDataType(type));
    return ident;
  }

  SrcContext* mContext;
  RecordingDelegate mDelegate;
};

TEST_F(LocalSymbolsTest, StackVariablesAllocateTwice) {
  MethodSymbolTable* method = new MethodSymbolTable("F");
  PushSymTable(method);
  VariableSymbol* x = method->AddVariable("x", IRDataType(kSInt8Type));
  VariableSymbol* y = method->AddVariable("y", IRDataType(kSInt8Type));
  EXPECT_EQ(1u, x->StorageOffset());
  EXPECT_EQ(3u, y->StorageOffset());
  EXPECT_EQ(4u, method->GetTotalStorage());
  VariableSymbol* d = method->AddVariable("d", IRDataType(kReal64Type));
  EXPECT_EQ(16u, d->StorageOffset());  // 8 aligned, then 16 after the gap
  EXPECT_EQ("F.x", Std(x->LinkID()));
  EXPECT_EQ(kStackDataStorage, x->GetStorageClass());
}

TEST_F(LocalSymbolsTest, SiblingBlocksGetDistinctHiddenShadows) {
  MethodSymbolTable* method = new MethodSymbolTable("M");
  PushSymTable(method);
  BlockSymbolTable* first = new BlockSymbolTable;
  PushSymTable(first);
  AddDeclaredName(Ident("x"));
  VariableSymbol* x1 = nullptr;
  ASSERT_TRUE(first->LookupVariable("x", nullptr, &x1));
  PopSymTable();
  BlockSymbolTable* second = new BlockSymbolTable;
  PushSymTable(second);
  AddDeclaredName(Ident("x"));
  VariableSymbol* x2 = nullptr;
  ASSERT_TRUE(second->LookupVariable("x", nullptr, &x2));
  PopSymTable();
  EXPECT_NE(x1->StorageOffset(), x2->StorageOffset());
  EXPECT_EQ(x1->StorageOffset(), x1->GetAddr()->StorageOffset());
  EXPECT_FALSE(method->LookupVariable("x", nullptr, nullptr));
}

}  // namespace
