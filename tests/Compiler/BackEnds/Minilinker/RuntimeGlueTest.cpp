#include "tests/Compiler/BackEnds/Minilinker/MinilinkerTestSupport.h"

namespace {

int sMarker;

void* ResolveOnlyPow(char const* name) {
  return std::string(name) == "RuntimePow" ? &sMarker : nullptr;
}

std::vector<std::string> Keys(StringMap<void*>& table, unsigned count) {
  std::vector<std::string> keys;
  StringMapIterator<void*>* iter = table.NewIterator();
  while (keys.size() < count && iter->Next()) keys.push_back(Std(iter->Key()));
  delete iter;
  return keys;
}

void* Lookup(StringMap<void*>& table, char const* name) {
  void* address = reinterpret_cast<void*>(-1);
  table.GetEntry(name, address);
  return address;
}

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

TEST(RuntimeFunctionTableTest, OwnEntriesComeFirstThenTheResolvedIntrinsics) {
  std::unique_ptr<StringMap<void*>> table(
      MakeQuorlScriptRuntimeFunctionTable(ResolveOnlyPow));
  EXPECT_EQ((std::vector<std::string>{
                "Input", "Print", "RuntimeInit", "RuntimeExit", "VELDYieldToQuorl",
                "RuntimeDebugEntry", "RemoteDebuggerStartup", "RuntimeCheckStack",
                "RuntimeNewClass", "RuntimeNewObject", "RuntimeRegisterClass",
                "RuntimeNewVtable", "RuntimeRaiseException",
                "RuntimeReraiseException", "RaiseExceptionClass",
                "RuntimeUnhandledException", "RaiseNilObjectException",
                "RaiseIllegalCastException", "RaiseOutOfBoundsException"}),
            Keys(*table, 19));
  EXPECT_EQ(reinterpret_cast<void*>(&RuntimeYield),
            Lookup(*table, "VELDYieldToQuorl"));
  EXPECT_EQ(reinterpret_cast<void*>(&ExitQuorlScriptRuntime),
            Lookup(*table, "RuntimeExit"));
  EXPECT_EQ(&sMarker, Lookup(*table, "RuntimePow"));
  EXPECT_EQ(nullptr, Lookup(*table, "RuntimeMulSInt64"));
  // The object model and arrays are the plug-in's too: objects live on its
  // lists.
  EXPECT_EQ(reinterpret_cast<void*>(&RuntimeUnlockObject),
            Lookup(*table, "RuntimeUnlockObject"));
  EXPECT_NE(nullptr, Lookup(*table, "CreateArray"));
  // Every intrinsic has its row; 23 of the 30 own entries are intrinsics.
  EXPECT_EQ(30u + 136u - 23u, table->Count());
}

TEST(RuntimeGlueTest, PrintAndInputPassUTF8AndTakeNoAnswerAsNil) {
  TestCorrespondent corr;
  Print(&corr, nullptr);
  string latin;
  latin.ConstructFromBuffer("caf\xe9", 4);
  latin.SetEncoding(0x0201);  // ISO Latin 1
  Print(&corr, latin.GetStringStorage());
  EXPECT_EQ((std::vector<std::string>{"", "caf\xc3\xa9"}), corr.mPrinted);
  EXPECT_EQ(nullptr, Input(&corr, nullptr));
  corr.mAnswer = "yes";
  stringStorage* answer = Input(&corr, latin.GetStringStorage());
  ASSERT_NE(nullptr, answer);
  EXPECT_EQ(1, answer->mRefCount);
  EXPECT_EQ(kEncodingUTF8, answer->mEncoding);
  EXPECT_EQ("yes", std::string(answer->CString(), answer->mLength));
  EXPECT_EQ("caf\xc3\xa9", corr.mPrompts[1]);
  UnlockStringStorage(answer);
  EXPECT_ASSERTION(Print(nullptr, nullptr), "Assertion failed");
}

TEST(RuntimeGlueTest, UnhandledExceptionsReportToTheCorrespondentOnly) {
  TestCorrespondent corr;
  RuntimeObject exception = {};
  InitQuorlScriptRuntime();
  UnhandledException(&exception);
  SetRuntimeCorrespondent(&corr);
  UnhandledException(&exception);
  UnhandledException(StackOverflowExceptionObject());
  // A missing exception class is made once, and an uncaught exception of
  // one of the runtime's own classes keeps its kind for the host.
  RuntimeClass* outOfBounds = OutOfBoundsExceptionLookup();
  ASSERT_NE(nullptr, outOfBounds);
  EXPECT_EQ(outOfBounds, OutOfBoundsExceptionLookup());
  RuntimeObject raised = {};
  raised.mClass = outOfBounds;
  UnhandledException(&raised);
  EXPECT_EQ((std::vector<std::pair<int, unsigned long>>{{2, 0}, {6, 0}, {9, 0}}),
            corr.mErrors);
  ExitQuorlScriptRuntime();
  EXPECT_EQ(nullptr, GetClassListHead());
  InitQuorlScriptRuntime();
}

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
