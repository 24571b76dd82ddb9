// The engine's operations for hosts that ask for them (EmbeddingBoundary.h),
// handed over once at load.
#include "Compiler/BackEnds/Minilinker/QuorlScriptIntrinsics.h"
#include "Plugin/EngineOperations.h"
#include "Plugin/HostCalls.h"
#include "Plugin/QuorlInterpreter.h"
#include "Plugin/QuorlScriptClass.h"

namespace {

void RequestStop(VELDObject instance) {
  if (!instance) return;
  QuorlScriptData* me = QuorlScriptDataOf(instance);
  if (me->mInterface) me->mInterface->RequestStop();
}

void RaiseScriptException(char const* className, char const* message) {
  RaiseNamedException(className && *className ? className : "RuntimeException",
                      string(message));
}

QuorlEngineOperations const kOperations = {
    sizeof(QuorlEngineOperations),
    RequestStop,
    nullptr,
    nullptr,
    RaiseScriptException,
    nullptr,
};

}  // namespace

void OfferEngineOperations() { QuorlTakeEngineOperations(&kOperations); }
