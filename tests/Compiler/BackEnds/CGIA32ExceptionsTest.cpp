// Raising inside generated code: the records the generator leaves, and the
// frame walk that finds no handler.
#include <stdlib.h>

#include "Common/ObjectModel/ExceptionMarkerLayout.h"
#include "Common/ObjectModel/RuntimeExceptionFoundation.h"
#include "tests/Compiler/BackEnds/GeneratedCode.h"

namespace {

RuntimeObject* sUnhandled;
void RecordUnhandled(RuntimeObject* exception) { sUnhandled = exception; }

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
  // Normal flow jumps over the record and the raise path's emms.
  EXPECT_EQ("10 00 00 00", HexBytes(Bytes(code.begin() + pad + 1, code.begin() + pad + 5)));
  EXPECT_EQ("11 04 00 00 00 00 fc ff",
            HexBytes(Bytes(code.begin() + pad + kMarkerValueOffset,
                           code.begin() + pad + kMarkerResumeOffset)));
  EXPECT_EQ(pad + 1 + 4, pad + kMarkerValueOffset);
  Bytes resume(code.begin() + pad + kMarkerResumeOffset,
               code.begin() + pad + kHandlerRecordLength);
  EXPECT_EQ(std::vector<std::string>{"mov esp,DWORD PTR [ebp-0x8]"}, Disassemble(resume));
  Bytes emptying(code.begin() + pad + kHandlerRecordLength,
                 code.begin() + pad + kHandlerRecordLength + 2);
  EXPECT_EQ(std::vector<std::string>{"emms"}, Disassemble(emptying));
  // From inside the region its pad is found; from before it, the region
  // is skipped whole.
  EXPECT_EQ(code.data() + pad, FindHandlerSwitchBlock(code.data() + pad));
  EXPECT_EQ(nullptr, FindHandlerSwitchBlock(code.data() + begin));
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
