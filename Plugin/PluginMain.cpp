// The plug-in's one exported entry and the registration of its classes.
#include "Plugin/EngineOperations.h"
#include "Plugin/HostCalls.h"
#include "Plugin/QuorlScriptClass.h"

// The oldest hosts that can run the plug-in: from 2007.04 on, or from 5.9 on
// when the host is a development environment rather than a built program.
static double const kMinimumHostVersion = 2007.04;
static double const kMinimumDevelopmentHostVersion = 5.9;

static void SetClassConsoleSafe(VELDClassDefinition* cls) {
  cls->mFlags |= kVELDConsoleSafe;
}

// Registers the classes if the host is recent enough; an older host gets
// nothing, and no error.
static void PluginEntry() {
  double version = VELDGetQuorlVersion();
  bool recentEnough =
      version >= kMinimumHostVersion ||
      (version >= kMinimumDevelopmentHostVersion && !VELDinRuntime());
  if (!recentEnough) return;
  SetClassConsoleSafe(&gQuorlScriptClass);
  SetClassConsoleSafe(&gQuorlScriptExceptionClass);
  SetClassConsoleSafe(&gQuorlScriptAlreadyRunningExceptionClass);
  VELDRegisterClass(&gQuorlScriptClass);
  VELDRegisterClass(&gQuorlScriptExceptionClass);
  VELDRegisterClass(&gQuorlScriptAlreadyRunningExceptionClass);
}

extern "C" __attribute__((visibility("default"))) void VELDPluginMain(
    VELDResolver resolver) {
  gResolver = resolver;
  RegisterPluginVersion(kVELDPluginVersion);
  PluginEntry();
  OfferEngineOperations();
}
