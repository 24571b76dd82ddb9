// The plug-in's side of the host's operations.
//
// Every host operation is reached by name through the resolver the host gave
// VELDPluginMain. Each wrapper below keeps its own resolved pointer: it asks
// the resolver on its first call and then calls straight through. A name the
// host does not serve makes its wrapper do nothing and return 0, so that an
// absent VELDGetEventInstance, for one, simply means that events are dropped.
//
// Only the operations the engine uses have wrappers; the rest of the host's
// interface is reachable through CallResolver in the same way when needed.
#ifndef PLUGIN_HOSTCALLS_H
#define PLUGIN_HOSTCALLS_H

#include "Plugin/EmbeddingBoundary.h"
#include "Plugin/PluginBoundary.h"
#include "Universal/ustring.h"

// Stored by VELDPluginMain; lives as long as the process.
extern VELDResolver gResolver;

// The address of a host operation by name, or null.
void* CallResolver(char const* name);

void RegisterPluginVersion(int version);
void VELDRegisterClass(VELDClassDefinition* cls);
double VELDGetQuorlVersion();
int VELDinRuntime();
int VELDOptimizeScripts();
void* VELDGetClassData(VELDObject object, VELDClassDefinition* cls);
void* VELDGetEventInstance(VELDObject object, VELDEvent* event);
VELDString VELDBuildString(void const* bytes, int length);
void VELDSetStringEncoding(VELDString text, uint32_t encoding);
VELDString VELDConvertString(VELDString text, uint32_t encoding);
uint32_t VELDGetStringEncoding(VELDString text);
void VELDLockString(VELDString text);
void VELDUnlockString(VELDString text);
void VELDLockObject(VELDObject object);
void VELDUnlockObject(VELDObject object);
VELDObject VELDnewInstance(char const* className);
void VELDRaiseException(VELDObject exception);
void VELDYieldToQuorl();
int VELDCountClassMethods(VELDClassRef cls);
int VELDGetClassMethod(VELDClassRef cls, int index, void** entry,
                       VELDString* declaration);
int VELDCountClassProperties(VELDClassRef cls);
int VELDGetClassProperty(VELDClassRef cls, int index, void** getter,
                         void** setter, long* parameter, VELDString* declaration);
unsigned long VELDGetStackLimit();
void VELDSetStackLimit(unsigned long limit);
void VELDInitStackChecker(unsigned long base);

// Beyond the classic contract (EmbeddingBoundary.h).
void QuorlCompileErrorDetail(VELDObject instance, int number, char const* message,
                             char const* summary, int line, int column);
void QuorlRuntimeErrorDetail(VELDObject instance, int line,
                             char const* exceptionClass, char const* message,
                             int errorNumber);
void QuorlRuntimeCallStack(VELDObject instance, QuorlStackFrame const* frames,
                           int32_t count, int32_t complete);
void QuorlScriptStopped(VELDObject instance);
void QuorlTakeEngineOperations(QuorlEngineOperations const* operations);

#endif
