// The table from link names to addresses that the in-memory linker resolves
// generated code against.
#include "Common/Arrays/RuntimeArrays.h"
#include "Common/ObjectModel/RuntimeExceptionFoundation.h"
#include "Common/RuntimeExternalFunctions.h"
#include "Compiler/BackEnds/Minilinker/QuorlScriptIntrinsics.h"
#include "Compiler/Intrinsics.h"

namespace {

struct OwnEntry {
  char const* mName;
  void* mAddress;
};

#define QUORL_OWN(name, function) {name, reinterpret_cast<void*>(&function)}

// The plug-in serves these itself, in this order.
OwnEntry const kOwnEntries[] = {
    QUORL_OWN("Input", Input),
    QUORL_OWN("Print", Print),
    QUORL_OWN("RuntimeInit", RuntimeInit),
    QUORL_OWN("RuntimeExit", ExitQuorlScriptRuntime),
    QUORL_OWN("VELDYieldToQuorl", RuntimeYield),
    QUORL_OWN("RuntimePassStop", RuntimePassStop),
    QUORL_OWN("RuntimeDebugEntry", RuntimeDebugEntry),
    QUORL_OWN("RemoteDebuggerStartup", RemoteDebuggerStartup),
    QUORL_OWN("RuntimeCheckStack", RuntimeCheckStack),
    // Optimized code keeps the limit at hand and asks for it here.
    QUORL_OWN("RuntimeStackLimit", GetRuntimeStackLimit),
    QUORL_OWN("RuntimeNewClass", RuntimeNewClass),
    QUORL_OWN("RuntimeNewObject", RuntimeNewObject),
    QUORL_OWN("RuntimeRegisterClass", RuntimeRegisterClass),
    QUORL_OWN("RuntimeNewVtable", RuntimeNewVtable),
    QUORL_OWN("RuntimeRaiseException", RuntimeRaiseException),
    QUORL_OWN("RuntimeReraiseException", RuntimeReraiseException),
    QUORL_OWN("RaiseExceptionClass", RaiseExceptionClass),
    QUORL_OWN("RuntimeUnhandledException", RuntimeUnhandledException),
    QUORL_OWN("RaiseNilObjectException", RaiseNilObjectException),
    QUORL_OWN("RaiseIllegalCastException", RaiseIllegalCastException),
    QUORL_OWN("RaiseOutOfBoundsException", RaiseOutOfBoundsException),
    QUORL_OWN("RuntimeRaiseFunctionNotFoundException",
              RuntimeRaiseFunctionNotFoundException),
    QUORL_OWN("LoadFunctionPointerFromLibrary", LoadFunctionPointerFromLibrary),
    // The object model and the arrays too: objects live on this copy's
    // lists and raise through this copy's exception state, so a host's
    // own copy of them must not serve a script.
    QUORL_OWN("RuntimeNilObject", RaiseNilObjectException),
    QUORL_OWN("RuntimeLockObject", RuntimeLockObject),
    QUORL_OWN("RuntimeUnlockObject", RuntimeUnlockObject),
    QUORL_OWN("RuntimeLockUnlockObjects", RuntimeLockUnlockObjects),
    QUORL_OWN("RuntimeObjectIsa", RuntimeObjectIsa),
    QUORL_OWN("RuntimeCheckCast", RuntimeCheckCast),
    QUORL_OWN("RuntimeLookupInterfaceVtable", RuntimeLookupInterfaceVtable),
    QUORL_OWN("CreateArray", CreateArray),
    QUORL_OWN("RuntimeCreateStructureArray", RuntimeCreateStructureArray),
    QUORL_OWN("RuntimeCreateArrayCastWrapper", RuntimeCreateArrayCastWrapper),
};

#undef QUORL_OWN

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
