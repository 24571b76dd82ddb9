// Attaches the engine linked into the test to the stand-in host.
#ifndef TESTS_PLUGIN_PLUGINTESTSUPPORT_H
#define TESTS_PLUGIN_PLUGINTESTSUPPORT_H

#include "Plugin/QuorlInterpreter.h"
#include "Plugin/QuorlScriptClass.h"
#include "quorl/QuorlHost.h"


inline void AttachEngine() { quorl::Attach(&VELDPluginMain); }

inline QuorlInterpreter* InterfaceOf(quorl::Script const& script) {
  return QuorlScriptDataOf(script.Instance())->mInterface;
}

#endif
