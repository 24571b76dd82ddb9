// Registration, version and thread/stack operations of the host.
#include <exception>

#include "StandInHost/HostClasses.h"
#include "StandInHost/HostOperations.h"
#include "StandInHost/HostState.h"
#include "StandInHost/PluginCalls.h"

namespace quorl {
namespace standin {

void RegisterPluginVersion(int version) { Host().pluginVersion = version; }

// The host keeps the plug-in's record: the definition stays the plug-in's,
// and VELDGetClassData finds the class by it.
void VELDRegisterClass(VELDClassDefinition* definition) {
  if (!definition || !definition->mName) return;
  auto cls = std::make_unique<VELDClassReference>();
  cls->mName = definition->mName;
  cls->mSuperName = definition->mSuperName ? definition->mSuperName : "";
  cls->mDataSize = definition->mDataSize;
  cls->mConstructor = reinterpret_cast<VELDInstanceProc>(definition->mConstructor);
  cls->mDestructor = reinterpret_cast<VELDInstanceProc>(definition->mDestructor);
  cls->mDefinition = definition;
  RegisterClassReference(std::move(cls));
}

double VELDGetQuorlVersion() { return Host().options.version; }

int VELDinRuntime() { return Host().options.inRuntime ? 1 : 0; }

// Called from generated code: the hook's exception must not unwind it.
void VELDYieldToQuorl() {
  if (!Host().options.yieldHook) return;
  try {
    Host().options.yieldHook();
  } catch (...) {
    RecordCallbackFailure(std::current_exception());
  }
}

unsigned long VELDGetStackLimit() { return Host().options.stackLimit; }

void VELDSetStackLimit(unsigned long limit) {
  Host().options.stackLimit = limit;
}

void VELDInitStackChecker(unsigned long base) { Host().stackBase = base; }

}  // namespace standin
}  // namespace quorl
