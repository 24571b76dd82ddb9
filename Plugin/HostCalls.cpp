#include "Plugin/HostCalls.h"

VELDResolver gResolver = nullptr;

void* CallResolver(char const* name) {
  return gResolver ? gResolver(name) : nullptr;
}

// Fills `slot` from the resolver while it is still empty. A name that did not
// resolve is asked for again on the next call, which costs nothing once the
// host serves it.
template <class Proc>
static Proc Resolved(Proc& slot, char const* name) {
  if (!slot) slot = reinterpret_cast<Proc>(CallResolver(name));
  return slot;
}

// HOST_CALL(Name, default, args...): call the resolved operation Name with
// the arguments, or give the default when the host does not serve it.
#define HOST_CALL(Name, fallback, ...)            \
  static Name##Proc sProc = nullptr;              \
  Name##Proc proc = Resolved(sProc, #Name);       \
  return proc ? proc(__VA_ARGS__) : fallback

// The same for operations that give nothing back.
#define HOST_DO(Name, ...)                        \
  static Name##Proc sProc = nullptr;              \
  Name##Proc proc = Resolved(sProc, #Name);       \
  if (proc) proc(__VA_ARGS__)

typedef VELDRegisterPluginVersionProc RegisterPluginVersionProc;

void RegisterPluginVersion(int version) { HOST_DO(RegisterPluginVersion, version); }
void VELDRegisterClass(VELDClassDefinition* cls) { HOST_DO(VELDRegisterClass, cls); }
double VELDGetQuorlVersion() { HOST_CALL(VELDGetQuorlVersion, 0.0, ); }
int VELDinRuntime() { HOST_CALL(VELDinRuntime, 0, ); }
int VELDOptimizeScripts() { HOST_CALL(VELDOptimizeScripts, 1, ); }

void* VELDGetClassData(VELDObject object, VELDClassDefinition* cls) {
  HOST_CALL(VELDGetClassData, nullptr, object, cls);
}
void* VELDGetEventInstance(VELDObject object, VELDEvent* event) {
  HOST_CALL(VELDGetEventInstance, nullptr, object, event);
}

VELDString VELDBuildString(void const* bytes, int length) {
  HOST_CALL(VELDBuildString, nullptr, bytes, length);
}
void VELDSetStringEncoding(VELDString text, uint32_t encoding) {
  HOST_DO(VELDSetStringEncoding, text, encoding);
}
VELDString VELDConvertString(VELDString text, uint32_t encoding) {
  HOST_CALL(VELDConvertString, nullptr, text, encoding);
}
uint32_t VELDGetStringEncoding(VELDString text) {
  HOST_CALL(VELDGetStringEncoding, 0, text);
}
void VELDLockString(VELDString text) { HOST_DO(VELDLockString, text); }
void VELDUnlockString(VELDString text) { HOST_DO(VELDUnlockString, text); }

void VELDLockObject(VELDObject object) { HOST_DO(VELDLockObject, object); }
void VELDUnlockObject(VELDObject object) { HOST_DO(VELDUnlockObject, object); }
VELDObject VELDnewInstance(char const* className) {
  HOST_CALL(VELDnewInstance, nullptr, className);
}
void VELDRaiseException(VELDObject exception) {
  HOST_DO(VELDRaiseException, exception);
}
void VELDYieldToQuorl() { HOST_DO(VELDYieldToQuorl, ); }

int VELDCountClassMethods(VELDClassRef cls) {
  HOST_CALL(VELDCountClassMethods, 0, cls);
}
int VELDGetClassMethod(VELDClassRef cls, int index, void** entry,
                       VELDString* declaration) {
  HOST_CALL(VELDGetClassMethod, 0, cls, index, entry, declaration);
}
int VELDCountClassProperties(VELDClassRef cls) {
  HOST_CALL(VELDCountClassProperties, 0, cls);
}
int VELDGetClassProperty(VELDClassRef cls, int index, void** getter,
                         void** setter, long* parameter, VELDString* declaration) {
  HOST_CALL(VELDGetClassProperty, 0, cls, index, getter, setter, parameter,
            declaration);
}

unsigned long VELDGetStackLimit() { HOST_CALL(VELDGetStackLimit, 0, ); }
void VELDSetStackLimit(unsigned long limit) { HOST_DO(VELDSetStackLimit, limit); }
void VELDInitStackChecker(unsigned long base) { HOST_DO(VELDInitStackChecker, base); }

// The names beyond the classic contract: a host that does not serve them
// simply hears nothing of them.
void QuorlCompileErrorDetail(VELDObject instance, int number, char const* message,
                             char const* summary, int line, int column) {
  HOST_DO(QuorlCompileErrorDetail, instance, number, message, summary, line, column);
}
void QuorlRuntimeErrorDetail(VELDObject instance, int line,
                             char const* exceptionClass, char const* message,
                             int errorNumber) {
  HOST_DO(QuorlRuntimeErrorDetail, instance, line, exceptionClass, message,
          errorNumber);
}
void QuorlRuntimeCallStack(VELDObject instance, QuorlStackFrame const* frames,
                           int32_t count, int32_t complete) {
  HOST_DO(QuorlRuntimeCallStack, instance, frames, count, complete);
}
void QuorlScriptStopped(VELDObject instance) { HOST_DO(QuorlScriptStopped, instance); }
void QuorlTakeEngineOperations(QuorlEngineOperations const* operations) {
  HOST_DO(QuorlTakeEngineOperations, operations);
}
