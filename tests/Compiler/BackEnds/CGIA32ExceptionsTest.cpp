// Raising inside generated code: the runtime's scanner finds the records
// the generator left, and the raise lands in the right handler.
#include <stdint.h>
#include <stdlib.h>

#include "Common/ObjectModel/ExceptionMarkerLayout.h"
#include "Common/ObjectModel/RuntimeExceptionFoundation.h"
#include "tests/Compiler/BackEnds/GeneratedFunctions.h"

namespace {

RuntimeObject* sUnhandled;
void RecordUnhandled(RuntimeObject* exception) { sUnhandled = exception; }

// f(): r := 0; Try [before] Raise exc [after] Catch e: r := handled; End;
// the caught object goes to Module.caught. `nested` wraps the raise in an
// inner region whose handler sets 10; `raiseFirst` raises in the outer body
// before the inner region instead.
class RaisingProgram {
 public:
  RaisingProgram(bool nested, bool raiseFirst, bool withLabel = true) {
    long f = p.Frame("f");
    TacAddr const* e = p.Local(f, "e", IRDataType(kObjectType));
    TacAddr const* inner = p.Local(f, "inner", IRDataType(kObjectType));
    r = p.Local(f, "r", IRDataType(kSInt32Type));
    exc = p.Global("Module.exc", IRDataType(kObjectType));
    caught = p.Global("Module.caught", IRDataType(kObjectType));
    p.Enter("f", f);
    p.Line(kTacStore, p.Int(0), nilTacAddr, r);
    p.Line(kTacBeginTry);
    if (raiseFirst) Raise();
    if (nested) {
      p.Line(kTacBeginTry);
      if (!raiseFirst) Raise();
      p.Line(kTacStore, p.Int(1), nilTacAddr, r);
      p.Line(kTacHandleException, inner, nilTacAddr, p.Int(3));
      p.Line(kTacStore, inner, nilTacAddr, caught);
      p.Line(kTacStore, p.Int(10), nilTacAddr, r);
      p.Line(kTacLabel, p.Int(3));
      p.Line(kTacEndTry);
    } else if (!raiseFirst) {
      Raise();
    }
    p.Line(kTacStore, p.Int(1), nilTacAddr, r);
    if (withLabel) {
      p.Line(kTacHandleException, e, nilTacAddr, p.Int(1));
    } else {
      p.Line(kTacAdd, r, p.Int(100), r);  // normal flow only
      p.Line(kTacHandleException, e, nilTacAddr, nilTacAddr);
      p.Line(kTacAdd, r, p.Int(20), r);   // both flows
      p.Line(kTacJump, nilTacAddr, nilTacAddr, p.Int(1));
    }
    p.Line(kTacStore, e, nilTacAddr, caught);
    p.Line(kTacStore, p.Int(20), nilTacAddr, r);
    p.Line(kTacLabel, p.Int(1));
    p.Line(kTacEndTry);
    p.Line(kTacLeave, r);
  }

  void Raise() {
    p.Line(kTacPutParam, exc);
    p.Intrinsic(kIntrinsicRuntimeRaiseException);
  }

  // Runs f with `exception` in Module.exc and the frame chain ending at
  // `frameBase`; answers r.
  int Run(RuntimeObject* exception, void* frameBase = nullptr) {
    if (!code) code.reset(new LoadedCode(GenerateIA32(p)));
    *static_cast<RuntimeObject**>(code->Global("Module.exc")) = exception;
    sUnhandled = nullptr;
    SetUnhandledExceptionHook(RecordUnhandled);
    return CallWithFrameBase(code->Function("f"), frameBase);
  }
  RuntimeObject* Caught() {
    return *static_cast<RuntimeObject**>(code->Global("Module.caught"));
  }

  TacProgram p;
  TacAddr const* r;
  TacAddr const* exc;
  TacAddr const* caught;
  std::unique_ptr<LoadedCode> code;
};

}  // namespace

TEST(CGIA32ExceptionsTest, TheRecordsHaveTheSharedLayout) {
  TacProgram p;
  long f = p.Frame("f");
  TacAddr const* e = p.Local(f, "e", IRDataType(kObjectType));
  p.Enter("f", f);
  p.Line(kTacBeginTry);
  p.Line(kTacHandleException, e, nilTacAddr, nilTacAddr);
  p.Line(kTacEndTry);
  p.Line(kTacLeave);
  Bytes code = FunctionBytes(GenerateIA32(p), "f");
  // push ebp, mov ebp, sub esp, mov [ebp-8], esp, then the Try marker.
  size_t begin = 1 + 2 + 6 + 6;
  EXPECT_EQ("e9 04 00 00 00 12 04 00 00",
            HexBytes(Bytes(code.begin() + begin, code.begin() + begin + 9)));
  size_t pad = begin + kTryMarkerLength;
  EXPECT_EQ(kMarkerJumpOpcode, code[pad]);
  EXPECT_EQ("0e 00 00 00", HexBytes(Bytes(code.begin() + pad + 1, code.begin() + pad + 5)));
  EXPECT_EQ("11 04 00 00 00 00 fc ff",
            HexBytes(Bytes(code.begin() + pad + kMarkerValueOffset,
                           code.begin() + pad + kMarkerResumeOffset)));
  EXPECT_EQ(pad + 1 + 4, pad + kMarkerValueOffset);
  Bytes resume(code.begin() + pad + kMarkerResumeOffset,
               code.begin() + pad + kHandlerRecordLength);
  EXPECT_EQ(std::vector<std::string>{"mov esp,DWORD PTR [ebp-0x8]"}, Disassemble(resume));
  // From inside the region its pad is found; from before it, the region
  // is skipped whole.
  EXPECT_EQ(code.data() + pad, FindHandlerSwitchBlock(code.data() + pad));
  EXPECT_EQ(nullptr, FindHandlerSwitchBlock(code.data() + begin));
}

TEST(CGIA32ExceptionsTest, ARaiseLandsInItsHandlerWithTheObject) {
  RaisingProgram program(false, false);
  RuntimeObject exception = {};
  exception.refCount = 1;
  EXPECT_EQ(20, program.Run(&exception));
  EXPECT_EQ(&exception, program.Caught());
  EXPECT_EQ(2, exception.refCount);  // the handler's variable holds one
  EXPECT_EQ(nullptr, sUnhandled);
  EXPECT_EQ(1, program.Run(nullptr));  // raising nil does nothing
}

TEST(CGIA32ExceptionsTest, NestedRegionsPickTheInnerHandler) {
  RaisingProgram inner(true, false);
  RuntimeObject exception = {};
  exception.refCount = 1;
  EXPECT_EQ(1, inner.Run(&exception));  // inner handler: 10, then r := 1
  EXPECT_EQ(&exception, inner.Caught());
  RaisingProgram outer(true, true);
  RuntimeObject other = {};
  other.refCount = 1;
  EXPECT_EQ(20, outer.Run(&other));  // the inner region is passed whole
  EXPECT_EQ(&other, outer.Caught());
}

TEST(CGIA32ExceptionsTest, AHandlerWithoutLabelFollowsItsRecord) {
  RaisingProgram program(false, false, false);
  RuntimeObject exception = {};
  exception.refCount = 1;
  EXPECT_EQ(20, program.Run(&exception));
}

TEST(CGIA32ExceptionsTest, WithoutAHandlerTheHookIsCalled) {
  TacProgram p;
  TacAddr const* exc = p.Global("Module.exc", IRDataType(kObjectType));
  p.Enter("f", -1);
  p.Line(kTacPutParam, exc);
  p.Intrinsic(kIntrinsicRuntimeRaiseException);
  p.Line(kTacLeave, p.Int(5));
  LoadedCode code(GenerateIA32(p));
  RuntimeObject exception = {};
  exception.refCount = 1;
  *static_cast<RuntimeObject**>(code.Global("Module.exc")) = &exception;
  SetUnhandledExceptionHook(RecordUnhandled);
  sUnhandled = nullptr;
  EXPECT_EQ(5, CallWithFrameBase(code.Function("f"), nullptr));
  EXPECT_EQ(&exception, sUnhandled);
  // A chain that runs backward (a frame below the current one) or past the
  // stack's end stops the walk the same way.
  void** lowFrame = static_cast<void**>(calloc(4, sizeof(void*)));
  sUnhandled = nullptr;
  EXPECT_EQ(5, CallWithFrameBase(code.Function("f"), lowFrame));
  EXPECT_EQ(&exception, sUnhandled);
  sUnhandled = nullptr;
  EXPECT_EQ(5, CallWithFrameBase(code.Function("f"), reinterpret_cast<void*>(0xFFFFFFF0u)));
  EXPECT_EQ(&exception, sUnhandled);
  free(lowFrame);
  EXPECT_EQ(1, exception.refCount);
}
