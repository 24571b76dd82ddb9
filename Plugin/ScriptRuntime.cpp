#include "Plugin/ScriptRuntime.h"

#include "Plugin/HostCalls.h"
#include "Plugin/QuorlInterpreter.h"
#include "Plugin/QuorlScriptClass.h"
#include "Universal/Assertion.h"

void* Resolver(char const* name) { return CallResolver(name); }

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
}
