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

void RequestYield(VELDObject instance) {
  if (!instance) return;
  QuorlScriptData* me = QuorlScriptDataOf(instance);
  if (me->mInterface) me->mInterface->RequestYield();
}

int32_t YieldNow() { return RuntimeYieldFromCall() ? 1 : 0; }

void RaiseScriptException(char const* className, char const* message) {
  RaiseNamedException(className && *className ? className : "RuntimeException",
                      string(message));
}

// A declaration that does not read is refused here, at registration.
int32_t AddHostFunction(VELDObject instance, void* entry, void* data,
                        char const* declaration) {
  QuorlSignature signature;
  if (!instance || !entry ||
      DescribeHostDeclaration(declaration, &signature) != kQuorlCallDone)
    return kQuorlBadDeclaration;
  QuorlScriptData* me = QuorlScriptDataOf(instance);
  if (!me->mInterface) return kQuorlNotCompiled;
  me->mInterface->RegisterHostFunction(entry, data, declaration);
  return kQuorlCallDone;
}

int32_t CallFunction(VELDObject instance, char const* name,
                     QuorlValue const* arguments, int32_t count,
                     QuorlValue* result) {
  if (!instance) return kQuorlNotCompiled;
  QuorlScriptData* me = QuorlScriptDataOf(instance);
  if (!me->mInterface) return kQuorlNotCompiled;
  return me->mInterface->CallFunction(name, arguments, count, result);
}

QuorlEngineOperations const kOperations = {
    sizeof(QuorlEngineOperations),
    RequestStop,
    DescribeHostDeclaration,
    AddHostFunction,
    RaiseScriptException,
    CallFunction,
    RaiseStopNow,
    RequestYield,
    YieldNow,
};

}  // namespace

void OfferEngineOperations() { QuorlTakeEngineOperations(&kOperations); }
