// The script runtime as the script object sees it: installing the runtime's
// entry points on a new or re-contexted instance.
#ifndef PLUGIN_SCRIPTRUNTIME_H
#define PLUGIN_SCRIPTRUNTIME_H

struct QuorlScriptData;

// A runtime name through the host's resolver; null when the host lacks it.
void* Resolver(char const* name);
// A library function's entry by its runtime name: the plug-in's own, or
// the host's through the resolver.
void* LibraryFunctionAddress(char const* name);

// Stores the runtime's entry words in the instance's interface and registers
// the standard library functions the host serves. Run at
// instance creation and after each change of Context; never while running.
void QuorlScriptInstallRuntime(QuorlScriptData* me);

#endif
