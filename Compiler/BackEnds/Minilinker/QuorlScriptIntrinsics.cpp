// The running script's state and its lifecycle around a run and a yield.
#include "Compiler/BackEnds/Minilinker/QuorlScriptIntrinsics.h"

#include "Common/RuntimeStringFoundation.h"

namespace {

// The script running now. Set by RunReadyCode::Run before the main body,
// cleared by InitQuorlScriptRuntime; saved and restored around a yield.
QuorlScriptCorrespondent* sCorrespondent;

// Set by the script object before a run; saved and restored around a yield.
unsigned long sStackLimit;

}  // namespace

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
void RuntimeYield() {
  QuorlScriptCorrespondent* correspondent = sCorrespondent;
  RuntimeClass* classes = GetClassListHead();
  unsigned long limit = sStackLimit;
  if (correspondent) correspondent->ScriptYield();
  sCorrespondent = correspondent;
  SetClassListHead(classes);
  sStackLimit = limit;
}

void RuntimeDebugEntry() {}

void RemoteDebuggerStartup() {}
