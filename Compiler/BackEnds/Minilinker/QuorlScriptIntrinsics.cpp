// The running script's state and its lifecycle around a run and a yield.
#include "Compiler/BackEnds/Minilinker/QuorlScriptIntrinsics.h"

#include "Common/ObjectModel/RuntimeExceptionFoundation.h"
#include "Common/RuntimeStringFoundation.h"

namespace {

// Each thread runs its own script, so the state of the one running is the
// thread's own.

// The script running now. Set by RunReadyCode::Run before the main body,
// cleared by InitQuorlScriptRuntime; saved and restored around a yield.
thread_local QuorlScriptCorrespondent* sCorrespondent;

// Set by the script object before a run; saved and restored around a yield.
thread_local unsigned long sStackLimit;

// The code of the running script, and its stop word.
thread_local RunReadyCode const* sCode;
thread_local volatile long* sStopWord;

}  // namespace

void SetRuntimeCode(RunReadyCode const* code) { sCode = code; }

RunReadyCode const* GetRuntimeCode() { return sCode; }

void SetRuntimeStopWord(volatile long* word) { sStopWord = word; }

void RaiseStopIfRequested() {
  volatile long* word = sStopWord;
  if (!word || *word != kStopRequested) return;
  *word = kStopUnwinding;
  RuntimeRaiseException(StopExceptionObject());
}

void RaiseStopNow() {
  volatile long* word = sStopWord;
  if (!word || *word == kStopUnwinding) return;
  *word = kStopRequested;
  RaiseStopIfRequested();
}

// A stop already unwinding (a Finally calling the library on the way out)
// is not this call's: its work is done as usual.
bool RuntimeYieldFromCall() {
  if (!sCorrespondent) return false;
  volatile long* word = sStopWord;
  bool unwinding = word && *word == kStopUnwinding;
  RuntimeYield();
  return !unwinding && word && *word == kStopUnwinding;
}

void RuntimePassStop() {
  volatile long* word = sStopWord;
  if (word && *word == kStopUnwinding)
    RuntimeReraiseException(StopExceptionObject());
}

void SetRuntimeCorrespondent(QuorlScriptCorrespondent* correspondent) {
  sCorrespondent = correspondent;
}

QuorlScriptCorrespondent* GetRuntimeCorrespondent() { return sCorrespondent; }

void SetRuntimeStackLimit(unsigned long limit) { sStackLimit = limit; }

unsigned long GetRuntimeStackLimit() { return sStackLimit; }

void InitQuorlScriptRuntime() {
  sCorrespondent = nullptr;
  SetClassListHead(nullptr);
}

// The list empties. Records the runtime made while the program ran (the
// exception classes it looked up, classes built by their initialisers) go
// with their names; records the program laid out in its static data and
// registered stay with the code, which may run again.
void ExitQuorlScriptRuntime() {
  while (RuntimeClass* record = GetClassListHead()) {
    SetClassListHead(record->next);
    if (!IsRuntimeMadeClassRecord(record)) {
      record->next = nullptr;
      continue;
    }
    RuntimeUnlockString(record->name);
    DisposeClassRecord(record);
  }
}

// While the host has its turn it may run another script on another of its
// threads, which overwrites the state; this is what lets instances
// interleave.
// A stop asked for meanwhile, from the host's turn or from another
// thread, is raised on the way back into the script.
void RuntimeYield() {
  QuorlScriptCorrespondent* correspondent = sCorrespondent;
  RuntimeClass* classes = GetClassListHead();
  unsigned long limit = sStackLimit;
  RunReadyCode const* code = sCode;
  volatile long* stopWord = sStopWord;
  if (correspondent) correspondent->ScriptYield();
  sCorrespondent = correspondent;
  SetClassListHead(classes);
  sStackLimit = limit;
  sCode = code;
  sStopWord = stopWord;
  RaiseStopIfRequested();
}

void RuntimeDebugEntry() {}

void RemoteDebuggerStartup() {}
