#include "Plugin/ScriptRuntime.h"

#include <string.h>

#include "Common/Arrays/ArrayLibrary.h"
#include "Common/Variants/RuntimeVariants.h"

#include "Plugin/HostCalls.h"
#include "Plugin/QuorlInterpreter.h"
#include "Plugin/QuorlScriptClass.h"
#include "Plugin/RuntimeLibraryTable.h"
#include "Universal/Assertion.h"

void* Resolver(char const* name) { return CallResolver(name); }

namespace {

struct OwnLibraryFunction {
  char const* mName;
  void* mAddress;
};

// The library functions that make or read arrays or variants are served by
// the plug-in: those belong to its copy of the runtime, whatever the host
// serves.
OwnLibraryFunction const kOwnLibraryFunctions[] = {
    {"StringSplit", reinterpret_cast<void*>(&StringSplit)},
    {"StringJoin", reinterpret_cast<void*>(&StringJoin)},
    {"RuntimeMax", reinterpret_cast<void*>(&RuntimeMax)},
    {"RuntimeMin", reinterpret_cast<void*>(&RuntimeMin)},
    {"VarType", reinterpret_cast<void*>(&VarType)},
};

// Registers each library function that is served. A function nobody serves
// is left out rather than registered without an entry point: a script that
// calls it gets a compile error for an unknown name instead of the host
// going down.
void RegisterRuntimeLibrary(QuorlScriptInterface* script) {
  unsigned long count = 0;
  RuntimeLibraryEntry const* entries = RuntimeLibraryEntries(&count);
  for (unsigned long i = 0; i < count; i++) {
    void* address = LibraryFunctionAddress(entries[i].mRuntimeName);
    if (address) script->RegisterHostMethod(address, false, entries[i].mDeclaration);
  }
}

}  // namespace

void* LibraryFunctionAddress(char const* name) {
  for (OwnLibraryFunction const& own : kOwnLibraryFunctions)
    if (!strcmp(own.mName, name)) return own.mAddress;
  return Resolver(name);
}

void QuorlScriptInstallRuntime(QuorlScriptData* me) {
  QASSERT(kStateRunning != me->mState);
  QuorlScriptInterface* runtime = me->mInterface;
  runtime->mRuntimeStringCompare = Resolver("RuntimeStringCompare");
  runtime->mRuntimeAddString = Resolver("RuntimeAddString");
  runtime->mRuntimeLockString = Resolver("RuntimeLockString");
  runtime->mRuntimeUnlockString = Resolver("RuntimeUnlockString");
  runtime->mRuntimeLockUnlockStrings = Resolver("RuntimeLockUnlockStrings");
  runtime->mRuntimeNewObject = Resolver("RuntimeNewObject");
  runtime->mRuntimeLockObject = Resolver("RuntimeLockObject");
  runtime->mRuntimeUnlockObject = Resolver("RuntimeUnlockObject");
  runtime->mRuntimeLockUnlockObjects = Resolver("RuntimeLockUnlockObjects");
  runtime->mCreateArray = Resolver("CreateArray");
  runtime->mRuntimeCreateArrayCastWrapper = Resolver("RuntimeCreateArrayCastWrapper");
  runtime->mRuntimeLockArray = Resolver("RuntimeLockArray");
  runtime->mRuntimeUnlockArray = Resolver("RuntimeUnlockArray");
  runtime->mRuntimeLockUnlockArrays = Resolver("RuntimeLockUnlockArrays");
  RegisterRuntimeLibrary(runtime);
}
