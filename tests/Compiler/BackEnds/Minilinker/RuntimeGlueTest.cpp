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

// A record laid out in static data and registered outlives the run; the
// ones the runtime made go, with their names and interface vtables (the
// leak check sees any that stays behind).
TEST(RuntimeGlueTest, TheEndOfARunFreesOnlyTheRecordsTheRuntimeMade) {
  InitQuorlScriptRuntime();
  RuntimeClass registered[2] = {};
  RuntimeRegisterClass(registered);
  RuntimeClass* made = RuntimeNewClass(nullptr, 0, 1, 0, 0, 0);
  made->name = NewStringStorage("Made", 4, kEncodingASCII);
  made->InterfaceEntries()[0].vtable = RuntimeNewVtable(2);
  RuntimeClass* child = RuntimeNewClass(made, 0, 1, 0, 0, 0);
  EXPECT_TRUE(IsRuntimeMadeClassRecord(made));
  EXPECT_FALSE(IsRuntimeMadeClassRecord(registered));
  ExitQuorlScriptRuntime();
  EXPECT_EQ(nullptr, GetClassListHead());
  EXPECT_FALSE(IsRuntimeMadeClassRecord(made));
  EXPECT_FALSE(IsRuntimeMadeClassRecord(child));
  EXPECT_EQ(nullptr, registered[0].next);
}
