#include "Plugin/QuorlScriptClass.h"

#include "Plugin/HostCalls.h"
#include "Plugin/QuorlInterpreter.h"
#include "Plugin/ScriptRuntime.h"
#include "Universal/Assertion.h"

// --- The class records ------------------------------------------------------

// Flag 4 is the console-safe bit; "State" and "Context" carry one more bit
// that the host gives its own meaning to and that is kept as it is.
static VELDProperty sQuorlScriptProperties[] = {
    {nullptr, "State", "Integer", 6, kVELDDirectAccess, kVELDDirectAccess, 0, {}},
    {nullptr, "Source", "String", 4, kVELDDirectAccess,
     (void*)&QuorlScriptSetSource, 4, {}},
    {nullptr, "Context", "Object", 6, kVELDDirectAccess,
     (void*)&QuorlScriptSetContext, 12, {}},
};

static VELDMethodDefinition sQuorlScriptMethods[] = {
    {(void*)&QuorlScriptRun, nullptr, "Run()", kVELDConsoleSafe},
    {(void*)&QuorlScriptReset, nullptr, "Reset()", kVELDConsoleSafe},
    {(void*)&QuorlScriptPrecompile, nullptr, "Precompile()", kVELDConsoleSafe},
};

VELDEvent gQuorlScriptEvents[4] = {
    {"Input(prompt As String) As String", 0},
    {"Print(msg As String)", 0},
    {"CompilerError(line As Integer, errorNumber As Integer, errorMsg As String)", 0},
    {"RuntimeError(line As Integer, error As RuntimeException)", 0},
};

// A class record with the given name, superclass and instance data size; the
// rest is zero.
static VELDClassDefinition ClassRecord(char const* name, char const* superName,
                                       uint32_t dataSize) {
  VELDClassDefinition record = {};
  record.mVersion = kVELDPluginVersion;
  record.mName = name;
  record.mSuperName = superName;
  record.mDataSize = dataSize;
  return record;
}

static VELDClassDefinition QuorlScriptRecord() {
  VELDClassDefinition record =
      ClassRecord("QuorlScript", nullptr, sizeof(QuorlScriptData));
  record.mConstructor = (void*)&QuorlScriptInitializer;
  record.mDestructor = (void*)&QuorlScriptFinalizer;
  record.mProperties = sQuorlScriptProperties;
  record.mPropertyCount = 3;
  record.mMethods = sQuorlScriptMethods;
  record.mMethodCount = 3;
  record.mEvents = gQuorlScriptEvents;
  record.mEventCount = 4;
  return record;
}

VELDClassDefinition gQuorlScriptClass = QuorlScriptRecord();
VELDClassDefinition gQuorlScriptExceptionClass =
    ClassRecord("QuorlScriptException", "RuntimeException", 0);
VELDClassDefinition gQuorlScriptAlreadyRunningExceptionClass = ClassRecord(
    "QuorlScriptAlreadyRunningException", "QuorlScriptException", 0);

// --- The operations ---------------------------------------------------------

QuorlScriptData* QuorlScriptDataOf(VELDObject instance) {
  QuorlScriptData* me =
      (QuorlScriptData*)VELDGetClassData(instance, &gQuorlScriptClass);
  QASSERT_TEXT(me, "me");
  return me;
}

void ThrowScriptRunningException() {
  VELDObject exception = VELDnewInstance("QuorlScriptAlreadyRunningException");
  if (!exception) return;
  VELDRaiseException(exception);
  // The host keeps what it raises alive itself.
  VELDUnlockObject(exception);
}

void QuorlScriptInitializer(VELDObject instance) {
  QuorlScriptData* me = QuorlScriptDataOf(instance);
  me->mState = kStateIdle;
  me->mSource = nullptr;
  me->mInterface = new QuorlInterpreter(instance);
  QuorlScriptInstallRuntime(me);
}

void QuorlScriptFinalizer(VELDObject instance) {
  QuorlScriptData* me = QuorlScriptDataOf(instance);
  if (me->mSource) VELDUnlockString(me->mSource);
  me->mSource = nullptr;
  delete me->mInterface;
  me->mInterface = nullptr;
  if (me->mContext) VELDUnlockObject(me->mContext);
  me->mContext = nullptr;
}

// Reset only forgets the outcome: it stops nothing and keeps the compiled
// code.
void QuorlScriptReset(VELDObject instance) {
  QuorlScriptDataOf(instance)->mState = kStateIdle;
}

// A Run() from inside an event handler of the same instance is not refused:
// it re-enters. Only the Source and Context setters guard the running state.
void QuorlScriptRun(VELDObject instance) {
  QuorlScriptData* me = QuorlScriptDataOf(instance);
  if (me->mState != kStateIdle) QuorlScriptReset(instance);
  me->mState = kStateRunning;
  if (me->mInterface) me->mInterface->Run();
  // An error report (3) or a Reset() from a handler (0) stands.
  if (me->mState == kStateRunning) me->mState = kStateComplete;
}

void QuorlScriptPrecompile(VELDObject instance) {
  QuorlScriptData* me = QuorlScriptDataOf(instance);
  if (me->mInterface) me->mInterface->Precompile();
}

// The running code never sees its source change: while running, setting it
// raises in the host and changes nothing.
void QuorlScriptSetSource(VELDObject instance, long ignored, VELDString newSource) {
  QuorlScriptData* me = QuorlScriptDataOf(instance);
  if (me->mState == kStateRunning) {
    ThrowScriptRunningException();
    return;
  }
  if (me->mState != kStateIdle) QuorlScriptReset(instance);
  if (me->mSource) VELDUnlockString(me->mSource);
  // Scripts are always compiled as UTF-8.
  me->mSource = VELDConvertString(newSource, kEncodingUTF8);
  string text(me->mSource);
  me->mInterface->SetSource(text.CString(), text.Length());
}
