// The running script's state and its lifecycle around a run and a yield.
#include "Compiler/BackEnds/Minilinker/QuorlScriptIntrinsics.h"

namespace {

// The script running now. Set by RunReadyCode::Run before the main body,
// cleared by InitQuorlScriptRuntime; saved and restored around a yield.
QuorlScriptCorrespondent* sCorrespondent;

// The classes the running program registered. Emptied by
// ExitQuorlScriptRuntime; saved and restored around a yield.
RuntimeClass* sClassListHead;

// Set by the script object before a run; saved and restored around a yield.
unsigned long sStackLimit;

}  // namespace

void SetRuntimeCorrespondent(QuorlScriptCorrespondent* correspondent) {
  sCorrespondent = correspondent;
}

QuorlScriptCorrespondent* GetRuntimeCorrespondent() { return sCorrespondent; }

RuntimeClass* GetClassListHead() { return sClassListHead; }

void SetClassListHead(RuntimeClass* head) { sClassListHead = head; }

void SetRuntimeStackLimit(unsigned long limit) { sStackLimit = limit; }

unsigned long GetRuntimeStackLimit() { return sStackLimit; }

void InitQuorlScriptRuntime() {
  sCorrespondent = nullptr;
  sClassListHead = nullptr;
}

// Class records are not part of the object model yet, so the list holds
// nothing to release: it is only emptied.
void ExitQuorlScriptRuntime() { sClassListHead = nullptr; }

// While the host has its turn it may run another script on another of its
// threads, which overwrites the state; this is what lets instances
// interleave.
void RuntimeYield() {
  QuorlScriptCorrespondent* correspondent = sCorrespondent;
  RuntimeClass* classes = sClassListHead;
  unsigned long limit = sStackLimit;
  if (correspondent) correspondent->ScriptYield();
  sCorrespondent = correspondent;
  sClassListHead = classes;
  sStackLimit = limit;
}

void RuntimeDebugEntry() {}

void RemoteDebuggerStartup() {}
