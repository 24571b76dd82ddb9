// The table from link names to addresses that the in-memory linker resolves
// generated code against.
#include "Common/ObjectModel/RuntimeExceptionFoundation.h"
#include "Compiler/BackEnds/Minilinker/QuorlScriptIntrinsics.h"
#include "Compiler/Intrinsics.h"

namespace {

struct OwnEntry {
  char const* mName;
  void* mAddress;
};

#define QUORL_OWN(name, function) {name, reinterpret_cast<void*>(&function)}
#define QUORL_NOT_YET(name) {name, nullptr}

// The plug-in serves these itself, in this order. Those the object model
// does not provide yet are left out of the table, so that a host that
// serves them is asked like for any intrinsic.
OwnEntry const kOwnEntries[] = {
    QUORL_OWN("Input", Input),
    QUORL_OWN("Print", Print),
    QUORL_OWN("RuntimeInit", RuntimeInit),
    QUORL_OWN("RuntimeExit", ExitQuorlScriptRuntime),
    QUORL_OWN("VELDYieldToQuorl", RuntimeYield),
    QUORL_OWN("RuntimeDebugEntry", RuntimeDebugEntry),
    QUORL_OWN("RemoteDebuggerStartup", RemoteDebuggerStartup),
    QUORL_OWN("RuntimeCheckStack", RuntimeCheckStack),
    QUORL_NOT_YET("RuntimeNewClass"),
    QUORL_NOT_YET("RuntimeNewObject"),
    QUORL_NOT_YET("RuntimeRegisterClass"),
    QUORL_NOT_YET("RuntimeNewVtable"),
    QUORL_OWN("RuntimeRaiseException", RuntimeRaiseException),
    QUORL_OWN("RuntimeReraiseException", RuntimeReraiseException),
    QUORL_NOT_YET("RaiseExceptionClass"),
    QUORL_OWN("RuntimeUnhandledException", RuntimeUnhandledException),
    QUORL_NOT_YET("RaiseNilObjectException"),
    QUORL_NOT_YET("RaiseIllegalCastException"),
    QUORL_NOT_YET("RaiseOutOfBoundsException"),
    QUORL_NOT_YET("RuntimeRaiseFunctionNotFoundException"),
};

#undef QUORL_OWN
#undef QUORL_NOT_YET

}  // namespace

StringMap<void*>* MakeQuorlScriptRuntimeFunctionTable(
    RuntimeNameResolver resolver) {
  StringMap<void*>* table = new StringMap<void*>;
  for (unsigned long i = 0; i < sizeof kOwnEntries / sizeof *kOwnEntries; i++)
    if (kOwnEntries[i].mAddress)
      table->AddEntry(kOwnEntries[i].mName, kOwnEntries[i].mAddress);
  SimpleVector<string> const& names = IntrinsicFunctionNames();
  for (unsigned long i = 0; i < names.size(); i++) {
    if (names[i].IsEmpty() || table->HasEntry(names[i])) continue;
    table->AddEntry(names[i], resolver ? resolver(names[i].CString()) : nullptr);
  }
  return table;
}
