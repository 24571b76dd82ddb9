#include "Plugin/ScriptRuntime.h"

#include "Plugin/HostCalls.h"
#include "Plugin/QuorlInterpreter.h"
#include "Plugin/QuorlScriptClass.h"
#include "Plugin/RuntimeLibraryTable.h"
#include "Universal/Assertion.h"

void* Resolver(char const* name) { return CallResolver(name); }

// Registers each library function the host serves. A function the host does
// not serve is left out rather than registered without an entry point: a
// script that calls it gets a compile error for an unknown name instead of
// the host going down.
static void RegisterRuntimeLibrary(QuorlScriptInterface* script) {
  unsigned long count = 0;
  RuntimeLibraryEntry const* entries = RuntimeLibraryEntries(&count);
  for (unsigned long i = 0; i < count; i++) {
    void* address = Resolver(entries[i].mRuntimeName);
    if (address) script->RegisterHostMethod(address, false, entries[i].mDeclaration);
  }
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
