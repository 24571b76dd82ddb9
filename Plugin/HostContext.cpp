// The context object: a host object whose class's public methods and
// properties become callable from the script as if they were global.
#include <strings.h>

#include "Plugin/HostCalls.h"
#include "Plugin/QuorlInterpreter.h"
#include "Plugin/QuorlScriptClass.h"
#include "Plugin/ScriptRuntime.h"
#include "Universal/Assertion.h"

// A host declaration that starts with "Private " is not for scripts.
static bool IsPrivateDeclaration(VELDString declaration) {
  string text(declaration);
  return text.Length() >= 8 && strncasecmp(text.CString(), "Private ", 8) == 0;
}

static void RegisterContextMethods(QuorlScriptInterface* script, VELDClassRef cls) {
  int count = VELDCountClassMethods(cls);
  for (int i = 0; i < count; i++) {
    void* entry = nullptr;
    VELDString declaration = nullptr;
    if (!VELDGetClassMethod(cls, i, &entry, &declaration)) continue;
    if (!IsPrivateDeclaration(declaration))
      script->RegisterHostMethod(entry, true, string(declaration).CString());
    VELDUnlockString(declaration);
  }
}

static void RegisterContextProperties(QuorlScriptInterface* script,
                                      VELDClassRef cls) {
  int count = VELDCountClassProperties(cls);
  for (int i = 0; i < count; i++) {
    void* getter = nullptr;
    void* setter = nullptr;
    long parameter = 0;
    VELDString declaration = nullptr;
    if (!VELDGetClassProperty(cls, i, &getter, &setter, &parameter, &declaration))
      continue;
    if (!IsPrivateDeclaration(declaration))
      script->RegisterHostProperty(getter, setter, parameter,
                                   string(declaration).CString());
    VELDUnlockString(declaration);
  }
}

// Setting the same object again does nothing, not even a recompile. Unlike
// Source, a new context leaves the state as it was.
void QuorlScriptSetContext(VELDObject instance, long ignored, VELDObject object) {
  QuorlScriptData* me = QuorlScriptDataOf(instance);
  if (me->mState == kStateRunning) {
    ThrowScriptRunningException();
    return;
  }
  if (object == me->mContext) return;
  if (object) VELDLockObject(object);
  if (me->mContext) VELDUnlockObject(me->mContext);
  me->mContext = object;

  QuorlScriptInterface* script = me->mInterface;
  script->SetContext(object);
  script->ClearHostCallbacks();
  // The standard library is part of the same list of callbacks.
  QuorlScriptInstallRuntime(me);
  if (!object) return;

  VELDClassRef cls = object->mClass;
  QASSERT_TEXT(cls, "defn");
  RegisterContextMethods(script, cls);
  RegisterContextProperties(script, cls);
}
