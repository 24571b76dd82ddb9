// The host operations the stand-in host serves to the plug-in, under the
// names the resolver hands out. Each has the signature of its typedef in
// Plugin/PluginBoundary.h.
#ifndef STANDINHOST_HOSTOPERATIONS_H
#define STANDINHOST_HOSTOPERATIONS_H

#include "Plugin/PluginBoundary.h"

namespace quorl {
namespace standin {

// Registration and the plug-in's view of the host.
void RegisterPluginVersion(int version);
void VELDRegisterClass(VELDClassDefinition* cls);
double VELDGetQuorlVersion();
int VELDinRuntime();
int VELDOptimizeScripts();
void VELDYieldToQuorl();
unsigned long VELDGetStackLimit();
void VELDSetStackLimit(unsigned long limit);
void VELDInitStackChecker(unsigned long base);

// Objects and exceptions.
void* VELDGetClassData(VELDObject object, VELDClassDefinition* cls);
void* VELDGetEventInstance(VELDObject object, VELDEvent* event);
void VELDLockObject(VELDObject object);
void VELDUnlockObject(VELDObject object);
VELDObject VELDnewInstance(char const* className);
void VELDRaiseException(VELDObject exception);

// The members of a class, as a script's context sees them.
int VELDCountClassMethods(VELDClassRef cls);
int VELDGetClassMethod(VELDClassRef cls, int index, void** entry,
                       VELDString* declaration);
int VELDCountClassProperties(VELDClassRef cls);
int VELDGetClassProperty(VELDClassRef cls, int index, void** getter,
                         void** setter, long* parameter,
                         VELDString* declaration);

// Strings.
VELDString VELDBuildString(void const* bytes, int length);
void VELDSetStringEncoding(VELDString text, uint32_t encoding);
VELDString VELDConvertString(VELDString text, uint32_t encoding);
uint32_t VELDGetStringEncoding(VELDString text);
void VELDLockString(VELDString text);
void VELDUnlockString(VELDString text);

}  // namespace standin
}  // namespace quorl

#endif
