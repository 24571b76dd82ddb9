// Local scopes: frame offsets, block shadows, statics, the name rules of
// VerifyUniqueName, and the front-door helpers.
#include <gtest/gtest.h>
#include <string.h>

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
  std::vector<int> Codes() const {
    std::vector<int> codes;
    for (unsigned long i = 0; i < mDelegate.mErrors.size(); i++)
      codes.push_back(mDelegate.mErrors[i].Type());
    return codes;
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

TEST_F(LocalSymbolsTest, StaticsInAMethodLiveInStaticDataUntouched) {
  MethodSymbolTable* method = new MethodSymbolTable("F");
  PushSymTable(method);
  method->StaticStorageMode();
  VariableSymbol* s = method->AddVariable("s", IRDataType(kStringType));
  method->NormalStorageMode();
  EXPECT_EQ(kGlobalDataStorage, s->GetStorageClass());
  EXPECT_FALSE(s->InitializationAllowed());
  EXPECT_FALSE(s->FinalizationAllowed());
  EXPECT_EQ(0u, method->GetTotalStorage());
  EXPECT_EQ(kStackDataStorage, method->mStorageMode);
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
  EXPECT_TRUE(mDelegate.mErrors.size() == 0);
  EXPECT_NE(x1->StorageOffset(), x2->StorageOffset());
  EXPECT_EQ(x1->StorageOffset(), x1->GetAddr()->StorageOffset());
  EXPECT_FALSE(method->LookupVariable("x", nullptr, nullptr));
  // The shadows stand in the method, hidden, with the method's qualifier.
  int shadows = 0;
  LocalVariableIterator it(method);
  while (it.Next()) {
    EXPECT_FALSE(it.Value()->UserVisible());
    EXPECT_EQ(0, strncmp(it.Value()->LinkID().CString(), "M.x ", 4));
    shadows++;
  }
  EXPECT_EQ(2, shadows);
  PopSymTable();
  EXPECT_EQ(mContext->mSymbols, mContext->mTables->GetGlobalTable());
  EXPECT_EQ(4u, mContext->mTables->Count());
}

TEST_F(LocalSymbolsTest, ABlockCannotShadowItsMethodsVariable) {
  PushSymTable(new MethodSymbolTable("M"));
  AddDeclaredName(Ident("x"));
  PushSymTable(new BlockSymbolTable);
  AddDeclaredName(Ident("X"));
  EXPECT_EQ(std::vector<int>{22}, Codes());
  EXPECT_EQ(7u, mDelegate.mErrors[0].Location().mStartLine);
}

TEST_F(LocalSymbolsTest, ALocalMayShadowAStaticBeyondTheMethod) {
  mContext->mSymbols->AddVariable("g", IRDataType(kSInt32Type));
  PushSymTable(new MethodSymbolTable("M"));
  AddDeclaredName(Ident("g"));
  EXPECT_TRUE(Codes().empty());
}

TEST_F(LocalSymbolsTest, FindLocalSymbolSeesOnlyMethodVariables) {
  ObjectSymbolTable* object = new ObjectSymbolTable("Widget");
  PushSymTable(object);
  VariableSymbol* width = object->AddVariable("width", IRDataType(kSInt32Type));
  EXPECT_EQ(kBaseRelativeDataStorage, width->GetStorageClass());
  MethodSymbolTable* method = new MethodSymbolTable("Draw");
  PushSymTable(method);
  method->AddVariable("n", IRDataType(kSInt32Type));
  EXPECT_TRUE(method->LookupVariable("width", nullptr, nullptr));
  EXPECT_EQ(nullptr, FindLocalSymbol(Ident("width")));
  SemBase* n = FindLocalSymbol(Ident("n"));
  ASSERT_NE(nullptr, n);
  EXPECT_EQ("Widget.Draw.n", Std(n->GetAddr()->LinkID()));
}

TEST_F(LocalSymbolsTest, MethodLookupPutsOuterTablesFirst) {
  LocalSymbolTable* outer = mContext->mSymbols;
  MethodSymbol* outerF = new MethodSymbol("F");
  outer->AddMethod(outerF);
  MethodSymbolTable* method = new MethodSymbolTable("M");
  PushSymTable(method);
  method->WeakDeclarationMode();
  MethodSymbol* innerF = new MethodSymbol("f");
  method->AddMethod(innerF);
  PushSymTable(new BlockSymbolTable);
  MethodList found = mContext->mSymbols->LookupMethods("F", kAllMethods);
  ASSERT_TRUE(found);
  ASSERT_EQ(2u, found->size());
  EXPECT_EQ(outerF, (*found)[0]);
  EXPECT_EQ(innerF, (*found)[1]);
  EXPECT_EQ(MethodSymbol::WeakLinked, innerF->GetDispatchMethod());
  EXPECT_FALSE(mContext->mSymbols->LookupMethods("G", kAllMethods));
}

TEST_F(LocalSymbolsTest, ProhibitedParametersPassTheirFlagsToBlockVariables) {
  MethodSymbolTable* method = new MethodSymbolTable("M");
  PushSymTable(method);
  SemBase* p = AddDeclaredName(Ident("p"));
  ProhibitSymbolInitialization(p);
  ProhibitSymbolFinalization(p);
  VariableSymbol* var = nullptr;
  ASSERT_TRUE(method->LookupVariable("p", nullptr, &var));
  EXPECT_FALSE(var->InitializationAllowed());
  EXPECT_FALSE(var->FinalizationAllowed());
  EXPECT_TRUE(var->UserVisible());
}

TEST_F(LocalSymbolsTest, FlattenExpressionMovesCodeAndKeepsPlainValues) {
  SemBase* plain = SemValue::New(gTacOne, nullptr);
  SemBase* code = SemCode::New(IRDataType(), nullptr);
  EXPECT_EQ(plain, FlattenExpression(plain, code));
  PushSymTable(new MethodSymbolTable("M"));
  SemBase* expr = SemCode::New(IRDataType(kSInt32Type), nullptr);
  expr->AddLine(kTacStore, gTacOne, nilTacAddr, expr->GetAddr());
  SemBase* value = FlattenExpression(expr, code);
  EXPECT_TRUE(value->IsValue());
  EXPECT_EQ(expr->GetAddr(), value->GetAddr());
  EXPECT_FALSE(code->Code()->IsEmpty());
  EXPECT_TRUE(expr->Code()->IsEmpty());
}

}  // namespace
