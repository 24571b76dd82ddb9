// The exception markers: records behind skipping branches that the
// runtime's raiser finds by scanning forward, word by word, from a return
// address. A region's marker is "b 8" and the marker word; a landing pad is
// a branch (past the record, or to the label), the marker word, the frame
// offset of the exception variable (0 for none) and the instruction where
// a raise resumes, which reloads the base register.
#include "Compiler/BackEnds/PowerPC/CGPPC.h"

#include "Universal/Assertion.h"

namespace {

enum {
  kHandlerBlockMarker = 1041,
  kTryBeginMarker = 1042,
  kTryEndMarker = 1043,
  kTryRecordLength = 8,
  kHandlerRecordLength = 16,
};

}  // namespace

void CGPPC::EmitExceptionMarker(unsigned int marker) {
  ppc_b(kTryRecordLength);
  ppc_Write32(marker);
}

void CGPPC::tac_BeginTry(TacLine const& line) {
  EmitExceptionMarker(kTryBeginMarker);
}

void CGPPC::tac_EndTry(TacLine const& line) {
  EmitExceptionMarker(kTryEndMarker);
}

// The frame offset is a local's displacement like any other, completed at
// Leave.
void CGPPC::tac_HandleException(TacLine const& line) {
  unsigned int start = CodeBufferLength();
  if (line.result != nilTacAddr)
    EmitJump(line.result->GetValue()->uSInt32);
  else
    ppc_b(kHandlerRecordLength);
  ppc_Write32(kHandlerBlockMarker);
  if (line.opA != nilTacAddr) {
    QASSERT_TEXT(!line.opA->IsConstant(), "!line.opA->IsConstant()");
    QASSERT_TEXT(kStackDataStorage == line.opA->GetStorageClass(),
                 "kStackDataStorage == line.opA->GetStorageClass()");
    NoteLocalReference();
    ppc_Write32(static_cast<unsigned long>(StackDisplacement(line.opA)));
  } else {
    ppc_Write32(0);
  }
  ppc_lwz(kBaseRegister, kSavedBaseOffset, kStackPointer);
  QASSERT_TEXT(CodeBufferLength() == start + kHandlerRecordLength,
               "CodeBufferLength() == expectedCodeLength");
  InvalidateRegisters();
}
