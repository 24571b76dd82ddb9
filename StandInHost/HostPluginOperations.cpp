// Registration, version and thread/stack operations of the host.
#include <pthread.h>

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

int VELDOptimizeScripts() { return Host().options.optimize ? 1 : 0; }

// Called from generated code: the hook's exception must not unwind it. It
// stops the script instead, and the Run() that ends rethrows it.
void VELDYieldToQuorl() {
  if (!Host().options.yieldHook) return;
  try {
    Host().options.yieldHook();
  } catch (...) {
    RecordCallbackFailure(std::current_exception());
    VELDObject running = CurrentScriptInstance();
    if (running && Host().engine) Host().engine->mRequestStop(running);
  }
}

namespace {

// Room left below the limit for what runs after an overflow is detected:
// the raise, which walks the frames, and the handlers of every frame on the
// way out, which release locals and may call into the runtime and the host.
#ifdef QUORL_SANITIZE
unsigned long const kStackSafetyMargin = 2 * 1024 * 1024;
#else
unsigned long const kStackSafetyMargin = 256 * 1024;
#endif

// The low end of the calling thread's stack plus the margin; 0 when the
// thread's stack cannot be known, which turns the check off.
unsigned long ThreadStackLimit() {
  pthread_attr_t attributes;
  if (pthread_getattr_np(pthread_self(), &attributes) != 0) return 0;
  void* low = nullptr;
  size_t size = 0;
  int failed = pthread_attr_getstack(&attributes, &low, &size);
  pthread_attr_destroy(&attributes);
  if (failed || size <= kStackSafetyMargin) return 0;
  return reinterpret_cast<unsigned long>(low) + kStackSafetyMargin;
}

}  // namespace

// A limit the host options or the plug-in set wins; otherwise the running
// thread's own stack decides, so that runaway recursion ends in a runtime
// error instead of a fault.
unsigned long VELDGetStackLimit() {
  unsigned long limit = Host().options.stackLimit;
  return limit ? limit : ThreadStackLimit();
}

void VELDSetStackLimit(unsigned long limit) {
  Host().options.stackLimit = limit;
}

void VELDInitStackChecker(unsigned long base) { Host().stackBase = base; }

}  // namespace standin
}  // namespace quorl
