#include "tests/Compiler/BackEnds/Minilinker/MinilinkerTestSupport.h"

namespace {

// During its yield another script takes over the runtime's state.
class IntrudingCorrespondent : public TestCorrespondent {
 public:
  void ScriptYield() override {
    TestCorrespondent::ScriptYield();
    InitQuorlScriptRuntime();
    SetRuntimeCorrespondent(&mOther);
    SetRuntimeStackLimit(77);
  }
  TestCorrespondent mOther;
};

}  // namespace

TEST(RuntimeGlueTest, AYieldKeepsTheRunningScriptsState) {
  IntrudingCorrespondent corr;
  InitQuorlScriptRuntime();
  SetRuntimeCorrespondent(&corr);
  RuntimeClass* classes = reinterpret_cast<RuntimeClass*>(&corr);
  SetClassListHead(classes);
  SetRuntimeStackLimit(12);
  RuntimeYield();
  EXPECT_EQ(1, corr.mYields);
  EXPECT_EQ(&corr, GetRuntimeCorrespondent());
  EXPECT_EQ(classes, GetClassListHead());
  EXPECT_EQ(12u, GetRuntimeStackLimit());
  InitQuorlScriptRuntime();
  SetRuntimeStackLimit(0);
  RuntimeYield();
  EXPECT_EQ(1, corr.mYields);
  EXPECT_EQ(nullptr, GetClassListHead());
}
