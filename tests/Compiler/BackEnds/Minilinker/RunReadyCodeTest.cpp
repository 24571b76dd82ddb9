#include "Common/ObjectModel/RuntimeExceptionFoundation.h"
#include "tests/Compiler/BackEnds/Minilinker/MinilinkerTestSupport.h"

namespace {

typedef std::vector<std::pair<int, unsigned long>> Errors;

}  // namespace

// Print and Input through the correspondent; each yield reaches it too.
TEST(RunReadyCodeTest, PrintInputAndYieldGoThroughTheCorrespondent) {
  TestCorrespondent corr;
  corr.mAnswer = "Ann";
  ScriptProgram s;
  TacAddr const* answer = s.p.Global("Module.answer", IRDataType(kStringType));
  s.CallGlue("Print", &corr, s.p.Text("Hello, world"));
  s.CallGlue("Input", &corr, s.p.Text("Name?"), answer);
  s.CallGlue("Print", &corr, answer);
  s.p.Line(kTacUnlock, answer);
  s.p.Intrinsic(kIntrinsicVELDYieldToQuorl);
  s.p.Intrinsic(kIntrinsicVELDYieldToQuorl);
  s.Finish();
  std::unique_ptr<RunReadyCode> code = s.Link();
  ASSERT_TRUE(code);
  code->Run(&corr);
  EXPECT_EQ((std::vector<std::string>{"Hello, world", "Ann"}), corr.mPrinted);
  EXPECT_EQ(std::vector<std::string>{"Name?"}, corr.mPrompts);
  EXPECT_TRUE(corr.mErrors.empty());
  EXPECT_EQ(2, corr.mYields);
}

// count := count + 1 and big := big + 2^32 + 1 each run; both are recorded.
TEST(RunReadyCodeTest, EveryRunStartsFromTheLinkedGlobals) {
  TestCorrespondent corr;
  ScriptProgram s;
  TacAddr const* count = s.p.Global("Module.count", IRDataType(kSInt32Type));
  TacAddr const* big = s.p.Global("Module.big", IRDataType(kSInt64Type));
  TacAddr const* high = s.p.Global("Module.high", IRDataType(kSInt64Type));
  s.p.Line(kTacAdd, count, s.p.Int(1), count);
  s.p.Line(kTacAdd, big, s.p.Int64(0x100000001LL), big);
  s.p.Line(kTacBitShiftRight, big, s.p.Int(32), high);
  s.p.Line(kTacCvt, high, nilTacAddr, count);
  s.Record(count);
  s.p.Line(kTacCvt, big, nilTacAddr, count);
  s.Record(count);
  s.Finish();
  std::unique_ptr<RunReadyCode> code = s.Link();
  ASSERT_TRUE(code);
  RecordedValues().clear();
  code->Run(&corr);
  code->Run(&corr);
  EXPECT_EQ((std::vector<long>{1, 1, 1, 1}), RecordedValues());
  for (unsigned i = 0; i < code->Globals()->Length(); i++)
    EXPECT_EQ(0u, code->Globals()->Get8(i)) << "byte " << i;
}

// Initialisers run in registration order before the body, finalisers
// after it; twice(a) = a * 2 is called from two sites in main.
TEST(RunReadyCodeTest, FunctionsCallEachOtherInitializersFirstFinalizersLast) {
  TestCorrespondent corr;
  ScriptProgram s;
  TacAddr const* r = s.p.Global("Module.r", IRDataType(kSInt32Type));
  s.Call("% initialize", {});
  s.Call("twice", {s.p.Int(21)}, r);
  s.Record(r);
  s.Call("twice", {r}, r);
  s.Record(r);
  s.Call("% finalize", {});
  s.Finish();
  long f = s.p.Frame("twice");
  TacAddr const* a = s.p.Local(f, "a", IRDataType(kSInt32Type));
  s.p.Enter("twice", f);
  s.p.Params({a});
  s.p.Line(kTacMul, a, s.p.Int(2), a);
  s.p.Line(kTacLeave, a);
  char const* functions[] = {"B.init", "A.init", "A.exit"};
  for (int i = 0; i < 3; i++) {
    s.p.Enter(functions[i], -1);
    s.Record(s.p.Int(i + 1));
    s.p.Line(kTacLeave);
  }
  Ref<CodeModule> module = s.Generate();
  module->mInitializers.AddEntry("B", "B.init");
  module->mInitializers.AddEntry("A", "A.init");
  module->mFinalizers.AddEntry("A", "A.exit");
  std::unique_ptr<RunReadyCode> code = LinkModule(module);
  ASSERT_TRUE(code);
  RecordedValues().clear();
  code->Run(&corr);
  EXPECT_EQ((std::vector<long>{1, 2, 42, 84, 3}), RecordedValues());
}

TEST(RunReadyCodeTest, AnUncaughtRaiseIsReportedAsRuntimeErrorTwo) {
  TestCorrespondent corr;
  RuntimeObject exception = {};
  exception.refCount = 1;
  ScriptProgram s;
  s.p.Line(kTacPutParam, s.p.Int(reinterpret_cast<long>(&exception)));
  s.p.Intrinsic(kIntrinsicRuntimeRaiseException);
  s.Record(s.p.Int(5));
  s.Finish();
  std::unique_ptr<RunReadyCode> code = s.Link();
  ASSERT_TRUE(code);
  RecordedValues().clear();
  code->Run(&corr);
  EXPECT_EQ((Errors{{2, 0}}), corr.mErrors);
  // Like every raise from the runtime, the run goes on after it.
  EXPECT_EQ(std::vector<long>{5}, RecordedValues());
  EXPECT_EQ(1, exception.refCount);
}

// deep() checks the stack on entry; guarded() calls it inside a Try and
// sets Module.caught in its handler.
class StackCheckingProgram {
 public:
  StackCheckingProgram() {
    caught = s.p.Global("Module.caught", IRDataType(kSInt32Type));
    s.Call("deep", {});
    s.Call("guarded", {});
    s.Record(caught);
    s.Finish();
    s.p.Enter("deep", -1);
    s.p.Intrinsic(kIntrinsicRuntimeCheckStack);
    s.p.Line(kTacLeave);
    long g = s.p.Frame("guarded");
    TacAddr const* e = s.p.Local(g, "e", IRDataType(kObjectType));
    s.p.Enter("guarded", g);
    s.p.Line(kTacBeginTry);
    s.Call("deep", {});
    s.p.Line(kTacHandleException, e, nilTacAddr, s.p.Int(1));
    s.p.Line(kTacStore, s.p.Int(7), nilTacAddr, caught);
    s.p.Line(kTacLabel, s.p.Int(1));
    s.p.Line(kTacEndTry);
    s.p.Line(kTacLeave);
  }
  ScriptProgram s;
  TacAddr const* caught;
};

// Below the limit the unguarded call is reported and the guarded one lands
// in its handler; above it everything runs unhindered.
TEST(RunReadyCodeTest, TheStackLimitRaisesTheOverflow) {
  struct { unsigned long limit; Errors errors; long caught; } const rows[] = {
      {0xFFFFFFF0UL, {{6, 0}}, 7}, {0x1000, {}, 0}};
  for (auto const& r : rows) {
    TestCorrespondent corr;
    StackCheckingProgram program;
    std::unique_ptr<RunReadyCode> code = program.s.Link();
    ASSERT_TRUE(code);
    RecordedValues().clear();
    SetRuntimeStackLimit(r.limit);
    code->Run(&corr);
    SetRuntimeStackLimit(0);
    EXPECT_EQ(r.errors, corr.mErrors) << r.limit;
    EXPECT_EQ(std::vector<long>{r.caught}, RecordedValues()) << r.limit;
  }
}
