// The in-line records that generated code leaves for the exception raiser.
// There are no tables: each record sits behind a jump that normal flow
// takes, and the raiser finds it by scanning the machine code after a
// return address. The code generator writes these records and the runtime
// reads them, both through the offsets below, so the two cannot disagree.
//
// Every record starts with E9 and a 32-bit displacement. At
// kMarkerValueOffset lies the 32-bit marker. A handler record goes on with
// a 16-bit zero, the 16-bit signed frame offset of the exception variable
// (0 for none) at kMarkerFrameOffset, and at kMarkerResumeOffset the
// instruction where a raise resumes: `mov esp, [ebp - stored ESP offset]`
// with a 32-bit displacement, six bytes, so the record's length is fixed.
// All fields are little-endian.
#ifndef COMMON_OBJECTMODEL_EXCEPTIONMARKERLAYOUT_H
#define COMMON_OBJECTMODEL_EXCEPTIONMARKERLAYOUT_H

enum {
  kHandlerBlockMarker = 1041,  // a landing pad
  kTryBeginMarker = 1042,      // a protected region starts
  kTryEndMarker = 1043,        // it ends; its landing pads follow

  kMarkerJumpOpcode = 0xE9,
  kMarkerValueOffset = 5,
  kMarkerReservedOffset = 9,   // a handler record's zero half-word
  kMarkerFrameOffset = 11,
  kMarkerResumeOffset = 13,
  kTryMarkerLength = 9,        // jump and marker
  kHandlerRecordLength = 19,   // through the six-byte stack reset
};

#endif
