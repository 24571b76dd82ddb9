// The exception markers: records behind skipping jumps that the runtime's
// raiser finds by scanning forward from a return address.
#include "Common/ObjectModel/ExceptionMarkerLayout.h"
#include "Compiler/BackEnds/IA-32/CGIA32.h"
#include "Universal/Assertion.h"
#include "Universal/ByteHelpers.h"

namespace {

int const kLowestRecordFrameOffset = -32768;

}  // namespace

void CGIA32::EmitExceptionMarker(unsigned int marker) {
  unsigned int start = CodeBufferLength();
  long over = NewLocalLabel();
  EmitBranch(&IA32OpWriter::ia32_jmp_rel, 1, over);
  QASSERT(CodeBufferLength() == start + kMarkerValueOffset);
  ia32_Write32(marker);
  PlaceLabel(over);
  unsigned int expectedCodeLength = start + kTryMarkerLength;
  QASSERT_TEXT(CodeBufferLength() == expectedCodeLength,
               "CodeBufferLength() == expectedCodeLength");
}

void CGIA32::tac_BeginTry(TacLine const& line) {
  EmitExceptionMarker(kTryBeginMarker);
}

void CGIA32::tac_EndTry(TacLine const& line) {
  EmitExceptionMarker(kTryEndMarker);
}

// Normal flow jumps to the label, or without one past the record and the
// emptying of the x87 stack that follows it. A raise resumes at the stack
// reset, which drops whatever the failed expression had pushed, and then
// empties the x87 stack, where a runtime function that raised may have
// left its floating result; what follows is the handler, reached from
// elsewhere, so nothing the registers held before is known there.
// The record keeps the exception variable's frame offset in 16 bits: a
// variable farther down the frame makes the function's storage too large.
void CGIA32::tac_HandleException(TacLine const& line) {
  int frameOffset = 0;
  if (line.opA != nilTacAddr) {
    QASSERT_TEXT(!line.opA->IsConstant(), "!line.opA->IsConstant()");
    QASSERT_TEXT(kStackDataStorage == line.opA->GetStorageClass(),
                 "kStackDataStorage == line.opA->GetStorageClass()");
    frameOffset = -static_cast<int>(line.opA->StorageOffset() +
                                    line.opA->mType.StorageSize());
    if (frameOffset < kLowestRecordFrameOffset) {
      SimpleVector<string> arguments;
      arguments.push_back(ultoa(-frameOffset / 1024));
      arguments.push_back(ultoa(-kLowestRecordFrameOffset / 1024));
      Error(kErrorLocalStorageTooLarge, arguments);
      frameOffset = 0;
    }
  }
  unsigned int start = CodeBufferLength();
  long over = NewLocalLabel();
  bool hasLabel = line.result != nilTacAddr;
  EmitBranch(&IA32OpWriter::ia32_jmp_rel, 1,
             hasLabel ? line.result->GetValue()->uSInt32 : over);
  QASSERT(CodeBufferLength() == start + kMarkerValueOffset);
  ia32_Write32(kHandlerBlockMarker);
  ia32_Write16(0);
  QASSERT(CodeBufferLength() == start + kMarkerFrameOffset);
  ia32_Write16(frameOffset);
  QASSERT(CodeBufferLength() == start + kMarkerResumeOffset);
  ia32_mov(kModDisplacement32, kESP, kEBP,
           -static_cast<int>(StoredESPOffset()));
  unsigned int expectedCodeLength = start + kHandlerRecordLength;
  QASSERT_TEXT(CodeBufferLength() == expectedCodeLength,
               "CodeBufferLength() == expectedCodeLength");
  ia32_emms();
  if (!hasLabel) PlaceLabel(over);
  InvalidateRegisters();
  ReloadHomeRegisters(kReloadAllHomes);
}
