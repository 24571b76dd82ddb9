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

// The records on the list are those the runtime made while the program ran
// (the exception classes it looked up): each goes with its name. Records a
// program lays out in its own static data must not be freed here, once
// compiled classes register any.
void ExitQuorlScriptRuntime() {
  while (RuntimeClass* record = GetClassListHead()) {
    SetClassListHead(record->next);
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
