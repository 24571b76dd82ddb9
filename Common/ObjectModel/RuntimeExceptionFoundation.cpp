#include "Common/ObjectModel/RuntimeExceptionFoundation.h"

#include <stdint.h>
#include <stdio.h>
#include <string.h>

#include <atomic>

#include "Common/ObjectModel/ExceptionMarkerLayout.h"
#include "Common/ObjectModel/RuntimeThread.h"
#include "Universal/Assertion.h"

namespace {

// Set once when the script runtime is installed (the monitor and hook may
// change at any time). The classes are those of the script running on the
// thread, so each thread keeps its own.
thread_local RuntimeExceptionHook sExceptionMonitor;
thread_local RuntimeExceptionHook sUnhandledExceptionHook;
thread_local RuntimeClass* sNilObjectExceptionClass;
thread_local RuntimeClass* sFunctionNotFoundClass;
thread_local RuntimeClass* sExceptionClass;
thread_local RuntimeClass* sIllegalCastExceptionClass;
thread_local RuntimeClass* sOutOfBoundsExceptionClass;
thread_local RuntimeClass* sOutOfMemoryExceptionClass;
thread_local RuntimeClass* sTypeMismatchExceptionClass;

int32_t Read32(unsigned char const* p) {
  int32_t value;
  memcpy(&value, p, sizeof value);
  return value;
}

int16_t Read16(unsigned char const* p) {
  int16_t value;
  memcpy(&value, p, sizeof value);
  return value;
}

// A function's code ends in `pop ebp; ret` or `leave; ret`.
bool AtFunctionEnd(unsigned char const* p) {
  return (p[0] == 0x5D || p[0] == 0xC9) && p[1] == 0xC3;
}

ScriptCodeBounds sScriptCodeBounds;

// What FindHandlerSwitchBlock answered for recent return addresses. An
// exception that unwinds a deep recursion asks again for the same few
// addresses at every frame, and each search scans the rest of a function.
// Code never changes once it runs; when code memory is given back, the
// generation moves on and every thread's answers are forgotten.
std::atomic<unsigned> sCodeGeneration{1};
enum { kHandlerSearchSlots = 64 };
struct HandlerSearch {
  unsigned char* returnAddress;
  unsigned char* pad;
};
thread_local HandlerSearch sHandlerSearches[kHandlerSearchSlots];
thread_local unsigned sHandlerSearchGeneration;

// The marker of the record at `p`, or 0 when the bytes there only look
// like the start of one. Besides the jump and a marker value, a record
// has a jump that skips at least its own fields: a region marker's jumps
// over the marker alone, a pad's past its stack reset, and a pad's
// half-word after the marker is zero. Machine code whose operands happen
// to hold a marker value after an E9 byte (a script constant 1041, an
// address) is thus not taken for a record.
int32_t RecordMarkerAt(unsigned char const* p) {
  if (*p != kMarkerJumpOpcode) return 0;
  int32_t marker = Read32(p + kMarkerValueOffset);
  int32_t skip = Read32(p + 1);
  if (marker == kTryBeginMarker || marker == kTryEndMarker)
    return skip == kTryMarkerLength - kMarkerValueOffset ? marker : 0;
  if (marker == kHandlerBlockMarker && Read16(p + kMarkerReservedOffset) == 0 &&
      skip >= kMarkerResumeOffset - kMarkerValueOffset)
    return marker;
  return 0;
}

// Every record starts with a jump and carries its marker at a fixed
// distance. A region that begins after the starting point is passed by
// the depth counter together with its pads; a pad at depth 0 is the one.
// The scan moves one byte at a time, so that a stray jump opcode inside
// another instruction cannot make it step over a record. It stops at
// `end` when the function's end is known, else at the first `pop ebp;
// ret` or `leave; ret`, which bytes inside an operand may also spell.
unsigned char* ScanForHandler(unsigned char* code, unsigned char const* end) {
  int depth = 0;
  for (unsigned char* p = code; end ? p < end : !AtFunctionEnd(p); p++) {
    int32_t marker = RecordMarkerAt(p);
    if (marker == kTryBeginMarker) {
      depth++;
    } else if (marker == kTryEndMarker) {
      if (depth > 0) depth--;
    } else if (marker == kHandlerBlockMarker && depth == 0) {
      return p;
    }
  }
  return nullptr;
}

// The pad for a return address: within the function's known extent for
// script code, by the end pattern elsewhere (host code that calls scripts
// and keeps a record of its own).
unsigned char* HandlerSwitchBlockOf(unsigned char* returnAddress) {
  unsigned char* end = nullptr;
  if (sScriptCodeBounds && sScriptCodeBounds(returnAddress, &end))
    return end ? FindHandlerSwitchBlockBefore(returnAddress, end) : nullptr;
  return FindHandlerSwitchBlock(returnAddress);
}

unsigned char* CachedHandlerSwitchBlock(unsigned char* returnAddress) {
  unsigned generation = sCodeGeneration.load(std::memory_order_acquire);
  if (sHandlerSearchGeneration != generation) {
    memset(sHandlerSearches, 0, sizeof sHandlerSearches);
    sHandlerSearchGeneration = generation;
  }
  HandlerSearch& slot = sHandlerSearches[(reinterpret_cast<uintptr_t>(
                                              returnAddress) >> 2) %
                                          kHandlerSearchSlots];
  if (slot.returnAddress != returnAddress) {
    slot.returnAddress = returnAddress;
    slot.pad = HandlerSwitchBlockOf(returnAddress);
  }
  return slot.pad;
}


}  // namespace

void SetExceptionMonitor(RuntimeExceptionHook monitor) {
  sExceptionMonitor = monitor;
}

void SetUnhandledExceptionHook(RuntimeExceptionHook hook) {
  sUnhandledExceptionHook = hook;
}

void SetNilObjectExceptionClass(RuntimeClass* exc) {
  QASSERT_TEXT(exc, "exc");
  sNilObjectExceptionClass = exc;
}

void SetFunctionNotFoundClass(RuntimeClass* exc) { sFunctionNotFoundClass = exc; }
void SetExceptionClass(RuntimeClass* exc) { sExceptionClass = exc; }
RuntimeClass* GetExceptionClass() { return sExceptionClass; }
void SetIllegalCastExceptionClass(RuntimeClass* exc) {
  sIllegalCastExceptionClass = exc;
}
void SetOutOfBoundsExceptionClass(RuntimeClass* exc) {
  sOutOfBoundsExceptionClass = exc;
}
RuntimeClass* GetNilObjectExceptionClass() { return sNilObjectExceptionClass; }
RuntimeClass* GetIllegalCastExceptionClass() {
  return sIllegalCastExceptionClass;
}
RuntimeClass* GetOutOfBoundsExceptionClass() {
  return sOutOfBoundsExceptionClass;
}

void SetOutOfMemoryExceptionClass(RuntimeClass* exc) {
  sOutOfMemoryExceptionClass = exc;
}

RuntimeClass* GetOutOfMemoryExceptionClass() {
  return sOutOfMemoryExceptionClass;
}

void SetTypeMismatchExceptionClass(RuntimeClass* exc) {
  sTypeMismatchExceptionClass = exc;
}

RuntimeClass* GetTypeMismatchExceptionClass() {
  return sTypeMismatchExceptionClass;
}
RuntimeExceptionHook GetUnhandledExceptionHook() {
  return sUnhandledExceptionHook;
}

void RuntimeRaiseException(RuntimeObject* exception) {
  if (!exception) return;
  if (sExceptionMonitor) sExceptionMonitor(exception);
  ActivateNextExceptionHandler(exception);
}

void RuntimeNoteRaise(RuntimeObject* exception) {
  if (exception && sExceptionMonitor) sExceptionMonitor(exception);
}

void RuntimeReraiseException(RuntimeObject* exception) {
  if (!exception) return;
  ActivateNextExceptionHandler(exception);
}

void RuntimeUnhandledException(RuntimeObject* exception) {
  QASSERT_TEXT(sUnhandledExceptionHook, "0");
  sUnhandledExceptionHook(exception);
}

unsigned char* FindHandlerSwitchBlock(unsigned char* code) {
  QASSERT_TEXT(code, "p");
  return ScanForHandler(code, nullptr);
}

unsigned char* FindHandlerSwitchBlockBefore(unsigned char* code,
                                            unsigned char const* end) {
  QASSERT_TEXT(code && end, "code && end");
  return ScanForHandler(code, end);
}

void SetScriptCodeBounds(ScriptCodeBounds bounds) { sScriptCodeBounds = bounds; }

void ForgetHandlerSearches() {
  sCodeGeneration.fetch_add(1, std::memory_order_acq_rel);
}

// Kept out of line with its own frame: the walk starts at this very frame.
__attribute__((noinline)) void ActivateNextExceptionHandler(
    RuntimeObject* exception) {
  void** limit = static_cast<void**>(GetCurrentRuntimeThread()->StackBase());
  void** frame = static_cast<void**>(__builtin_frame_address(0));
  while (frame && frame <= static_cast<void**>(*frame) &&
         static_cast<void**>(*frame) <= limit) {
    char* caller = static_cast<char*>(*frame);
    unsigned char* returnAddress = static_cast<unsigned char*>(frame[1]);
    unsigned char* pad =
        returnAddress ? CachedHandlerSwitchBlock(returnAddress) : nullptr;
    if (pad) {
      int16_t offset = Read16(pad + kMarkerFrameOffset);
      if (offset != 0) {
        memcpy(caller + offset, &exception, sizeof exception);
        RuntimeLockObject(exception);
      }
      frame[1] = pad + kMarkerResumeOffset;
      return;
    }
    frame = static_cast<void**>(*frame);
  }
  RuntimeUnhandledException(exception);
}

void* CrawlStack(void* start, void* limit, StackCrawlCallback callback,
                 void* data) {
  void** frame = static_cast<void**>(start);
  while (frame && frame <= static_cast<void**>(limit) && frame >= start) {
    if (!*frame) break;
    if (callback(frame, data)) break;
    frame = static_cast<void**>(*frame);
  }
  return frame;
}

char const* FailureMode(short code) {
  static char const* const kModes[] = {
      "Plugin TOC Load Failure",       "Invalid Class Definition",
      "Unknown Class",                 "Failed Assertion",
      "Unable to Write to Handle",     "CarbonLib 1.1 or Later Required",
      "Cannot Connect to Debugger",    "Unhandled Exception"};
  if (code < 1 || code > 8) return nullptr;
  return kModes[code - 1];
}

void DisplayRuntimeErrorAlert(short unused, short code, char const* file,
                              int line, char const* condition,
                              char const* text) {
  printf(
      "Runtime Error %d:%s\n\nPlease report what caused this error\nalong "
      "with the information below.\n\n%s: %d\nFailure Condition: %s\n%s\n\n",
      code, FailureMode(code), file, line, condition, text);
}
