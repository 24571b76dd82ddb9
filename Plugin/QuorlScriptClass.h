// The class the host sees: QuorlScript, with its per-instance data block, its
// class record and the operations the record binds, and the two exception
// classes the plug-in registers beside it.
#ifndef PLUGIN_QUORLSCRIPTCLASS_H
#define PLUGIN_QUORLSCRIPTCLASS_H

#include <stdint.h>

#include "Plugin/PluginBoundary.h"
#include "Universal/ustring.h"

class QuorlInterpreter;

// The value of the property "State".
enum QuorlScriptState {
  kStateIdle = 0,      // nothing running, no outcome recorded
  kStateRunning = 1,   // inside Run()
  kStateComplete = 2,  // the last run ended without an error being reported
  kStateAborted = 3,   // a compile error or a runtime error has been reported
};

// The instance data block the host allocates (zero-filled) for each
// QuorlScript. The host reads mState and mSource directly as the values of
// "State" and "Source".
struct QuorlScriptData {
  int32_t mState;
  VELDString mSource;            // UTF-8, owned (locked)
  QuorlInterpreter* mInterface;  // owned
  VELDObject mContext;           // locked while held; may be nil
};
static_assert(sizeof(QuorlScriptData) == 16 || sizeof(void*) != 4,
              "the host reads this block by byte offsets");

// Indices of the events in the class record; code addresses an event by its
// record, so this order is fixed.
enum QuorlScriptEventIndex {
  kEventInput = 0,
  kEventPrint = 1,
  kEventCompilerError = 2,
  kEventRuntimeError = 3,
};

extern VELDClassDefinition gQuorlScriptClass;
extern VELDClassDefinition gQuorlScriptExceptionClass;
extern VELDClassDefinition gQuorlScriptAlreadyRunningExceptionClass;
extern VELDEvent gQuorlScriptEvents[4];

// The data block of a QuorlScript instance; asserts that the host has one.
QuorlScriptData* QuorlScriptDataOf(VELDObject instance);

// Raises "QuorlScriptAlreadyRunningException" in the host, if the host can
// make one.
void ThrowScriptRunningException();

// The operations the class record binds.
void QuorlScriptInitializer(VELDObject instance);
void QuorlScriptFinalizer(VELDObject instance);
void QuorlScriptRun(VELDObject instance);
void QuorlScriptReset(VELDObject instance);
void QuorlScriptPrecompile(VELDObject instance);
void QuorlScriptSetSource(VELDObject instance, long ignored, VELDString newSource);
void QuorlScriptSetContext(VELDObject instance, long ignored, VELDObject object);

#endif
